// A tolerance mask for a filter: passband and stopband edges, the allowed
// passband ripple and the required stopband attenuation, its linear
// tolerances, and the test of a response against it.
#pragma once

#include <span>

struct ToleranceMask {
    int type = 0; // 0 low pass (fp < fst), 1 band pass (fst1 < fp1 < fp2 < fst2), 2 high pass (fst < fp)
    double passband[2] = {0, 0}; // normalised (1.0 = fs/2); [1] band pass only
    double stopband[2] = {0, 0}; // normalised; [1] band pass only
    double rippleDb = 0.0;       // Rp, peak to peak, > 0
    double attenuationDb = 0.0;  // As, below the passband's peak, > 0
};

// δp = (10^(Rp/20) − 1)/(10^(Rp/20) + 1) and δs = 10^(−As/20).
double passbandDeviation(double rippleDb);
double stopbandDeviation(double attenuationDb);

// The narrowest transition band, normalised.
double narrowestTransition(const ToleranceMask& mask);

struct MaskCheck {
    bool met = false;
    double passbandRippleDb = 0.0;      // max − min dB over the passband
    double stopbandAttenuationDb = 0.0; // passband peak dB − largest stopband dB
    double missDb = 0.0;                // by how much the worse of the two misses (≤ 0 when met)
    double worstFrequency = 0.0;        // normalised frequency of that worst point
};

// Checks power (8193 bins of analysisPower, 0 to fs/2) against the mask; bins on an edge belong to its band.
MaskCheck checkMask(const ToleranceMask& mask, std::span<const double> power);
