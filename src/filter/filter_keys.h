// Keys of the filter parameter dictionary (KEYFP_) and the filter results
// dictionary (KEYFDR_). Each key's text is its own name.
#pragma once

#include <QString>

// Filter parameter dictionary: nine entries built by the filter design window.
inline const QString KEYFP_UNITS = QStringLiteral("KEYFP_UNITS");
inline const QString KEYFP_FILTER_TYPE = QStringLiteral("KEYFP_FILTER_TYPE");
inline const QString KEYFP_SAMPLING_FREQ = QStringLiteral("KEYFP_SAMPLING_FREQ");
inline const QString KEYFP_CUTOFF_FREQ = QStringLiteral("KEYFP_CUTOFF_FREQ");
inline const QString KEYFP_CENTER_FREQ = QStringLiteral("KEYFP_CENTER_FREQ");
inline const QString KEYFP_FILTER_LENGTH = QStringLiteral("KEYFP_FILTER_LENGTH");
inline const QString KEYFP_FILTER_WIDTH = QStringLiteral("KEYFP_FILTER_WIDTH");
inline const QString KEYFP_WINDOW_TYPE = QStringLiteral("KEYFP_WINDOW_TYPE");
inline const QString KEYFP_BETA_UPSILON = QStringLiteral("KEYFP_BETA_UPSILON");

// Filter results dictionary: six numbers, frequencies in the selected units.
inline const QString KEYFDR_3DB_LOW = QStringLiteral("KEYFDR_3DB_LOW");
inline const QString KEYFDR_3DB_HIGH = QStringLiteral("KEYFDR_3DB_HIGH");
inline const QString KEYFDR_3DB_BANDWIDTH = QStringLiteral("KEYFDR_3DB_BANDWIDTH");
inline const QString KEYFDR_PASSBAND_RIPPLE = QStringLiteral("KEYFDR_PASSBAND_RIPPLE");
inline const QString KEYFDR_DYNAMIC_RNG = QStringLiteral("KEYFDR_DYNAMIC_RNG");
inline const QString KEYFDR_DYNAMIC_RNG_ERR = QStringLiteral("KEYFDR_DYNAMIC_RNG_ERR");
