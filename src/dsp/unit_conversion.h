// Bringing the project's two signals to common units, and showing a small
// output in millivolts.
#pragma once

#include <span>

// Voltage codes: 0 = V, 1 = mV. Frequency codes: 0 = MHz, 1 = KHz.
// Sign codes: 2 means the signal takes no part.

// x1Out as long as x1, x2Out as long as x2 (outputs may alias inputs). Equal
// codes: copies, common code that code. Different codes: the mV signal is
// divided by 1000 and the common code is 0 (V). Returns the common code.
int voltUnits(std::span<const double> x1, std::span<const double> x2, int code1, int code2,
              std::span<double> x1Out, std::span<double> x2Out);

struct FreqUnitsChoice {
    int code = 0;
    double maxFreq = 0.0;
};

// The frequency unit and highest frequency of the signals taking part; with
// different units both are put in MHz (the KHz maximum divided by 1000).
// With neither taking part, signal one's values are returned.
FreqUnitsChoice freqUnits(int code1, int code2, double maxFreq1, double maxFreq2, int sign1, int sign2);

// y and yOut of one length (may alias). A volt output whose largest sample
// is below 1.0 is shown in mV (×1000, code 1); otherwise unchanged. Returns
// the output code.
int rescale(std::span<const double> y, int commonCode, std::span<double> yOut);
