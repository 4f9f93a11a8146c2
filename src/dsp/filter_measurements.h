// Measurements of a filter's dB magnitude response: 3 dB points, 3 dB
// bandwidth and pass-band ripple.
#pragma once

#include <span>

struct Filt3dBResult {
    double low = -1.0;       // normalised; the 3 dB cutoff, or the lower band edge of a band pass
    double high = -1.0;      // normalised upper band edge of a band pass, else −1
    double bandwidth = -1.0; // normalised 3 dB bandwidth
    double ripple = -1.0;    // pass-band ripple, dB
    double largest = 0.0;    // largest dB value over the n points
    double smallest = 0.0;   // smallest dB value over the n points
    bool valid = false;      // the response crosses −3 dB and was measured
};

// Measures dB magnitude m (n = m.size() points from 0 to fs/2, 2..4095) of a filter of type 0 low pass,
// 1 band pass (centre theta0, normalised 0..1) or 2 high pass. Point n is read as 0.0 dB.
Filt3dBResult calcFilt3dB(int type, std::span<const double> m, double theta0);
