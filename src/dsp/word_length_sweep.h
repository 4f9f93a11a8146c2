// The word-length sweep: one filter quantised at every width from 8 to 20
// bits by the program's own rule, and kept in double, each measured against
// the stopband of the double design.
#pragma once

#include <span>

// Rows of a sweep: 8, 9, ..., 20 bits, then Double.
inline constexpr int kSweepRows = 14;

struct SweepRow {
    int bits = 0;                       // 8..20; 0 for Double
    double stopbandAttenuationDb = 0.0; // own reference gain minus the largest dB over the double stopband
    double passbandRippleDb = 0.0;      // of the quantised response, with its own edges
    int bitsNeeded = 0;                 // bits the integers need; 0 for Double
};

// Sweeps double coefficients c (N = c.size(), 1..512) of filter type 0..2 with the cutoff as typed and
// the centre, normalised; rows.size() = 14.
void wordLengthSweep(int type, double cutoff, double center, std::span<const double> c,
                     std::span<SweepRow> rows);
