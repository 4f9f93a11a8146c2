// Keys of the signal parameter dictionary, shared by the signal design
// window, its model and the signal file code. Each key's text is its name.
#pragma once

#include <QLatin1String>

inline constexpr QLatin1String KEYSP_FREQ_UNITS("KEYSP_FREQ_UNITS"); // 0 MHz, 1 KHz
inline constexpr QLatin1String KEYSP_VOLT_UNITS("KEYSP_VOLT_UNITS"); // 0 V, 1 mV
inline constexpr QLatin1String KEYSP_FREQ_SAMP("KEYSP_FREQ_SAMP");   // fs in the frequency unit
inline constexpr QLatin1String KEYSP_Y_STEP("KEYSP_Y_STEP");         // signal function 0..10, as a double
inline constexpr QLatin1String KEYSP_PARM1("KEYSP_PARM1");
inline constexpr QLatin1String KEYSP_PARM2("KEYSP_PARM2");
inline constexpr QLatin1String KEYSP_PARM3("KEYSP_PARM3");
inline constexpr QLatin1String KEYSP_PARM4("KEYSP_PARM4");
inline constexpr QLatin1String KEYSP_PARM5("KEYSP_PARM5");
inline constexpr QLatin1String KEYSP_PARM6("KEYSP_PARM6");

// The six function parameters in slot order.
inline constexpr QLatin1String KEYSP_PARMS[6] = {KEYSP_PARM1, KEYSP_PARM2, KEYSP_PARM3,
                                                 KEYSP_PARM4, KEYSP_PARM5, KEYSP_PARM6};
