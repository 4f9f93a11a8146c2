// Shared by the dsp tests: the window-method design pipeline and random signals.
#pragma once

#include "dsp/fir_synthesis.h"
#include "dsp/window.h"

#include <random>
#include <vector>

namespace dsptest {

// An ideal low pass of N taps and pass band θ, windowed with its peak
// restored, then moved to its band (θ0 is a band pass's centre).
inline std::vector<double> design(std::size_t N, double theta, int type, double theta0, int window,
                                  double p = 0.0)
{
    std::vector<double> H(N), h(N), w(N), hw(N), c(N);
    idealLowPassSamples(passbandCount(N, theta), H);
    iDFTforSinc(H, h);
    winfun(window, p, w);
    winSync(h, w, hw);
    filt(type, theta0, hw, c);
    return c;
}

inline std::vector<double> randomSignal(std::size_t n, unsigned seed, double scale = 1.0)
{
    std::mt19937 gen(seed);
    std::uniform_real_distribution<double> d(-scale, scale);
    std::vector<double> x(n);
    for (double& v : x)
        v = d(gen);
    return x;
}

} // namespace dsptest
