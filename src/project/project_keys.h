// Keys of the project parameter dictionary, shared by the project window,
// its model and the project file code. Each key's text is its name.
#pragma once

#include <QLatin1String>

inline constexpr QLatin1String KEYMOD_BLOCK_DIAGRAM("KEYMOD_BLOCK_DIAGRAM"); // 1 Sum & Filter, 2 Multirate
inline constexpr QLatin1String KEYMOD_FILTER_NAME("KEYMOD_FILTER_NAME");     // filter design name
inline constexpr QLatin1String KEYMOD_SIG_ONE_NAME("KEYMOD_SIG_ONE_NAME");   // x₁[n] design name
inline constexpr QLatin1String KEYMOD_SIG_TWO_NAME("KEYMOD_SIG_TWO_NAME");   // x₂[n] design name
inline constexpr QLatin1String KEYMOD_SIG_ONE_SIGN("KEYMOD_SIG_ONE_SIGN");   // 0 +1, 1 −1, 2 left out
inline constexpr QLatin1String KEYMOD_SIG_TWO_SIGN("KEYMOD_SIG_TWO_SIGN");
inline constexpr QLatin1String KEYMOD_MULTIRATE_L("KEYMOD_MULTIRATE_L");       // interpolation factor
inline constexpr QLatin1String KEYMOD_MULTIRATE_M("KEYMOD_MULTIRATE_M");       // decimation factor
inline constexpr QLatin1String KEYMOD_MULTIRATE_FILT("KEYMOD_MULTIRATE_FILT"); // 0 named filter, 1 automatic
