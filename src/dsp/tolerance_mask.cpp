// Tolerance masks: the linear tolerances and the pass/fail test on the
// 16384-point power response.
#include "dsp/tolerance_mask.h"

#include "dsp/filter_analysis.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

double dB(double power)
{
    return 10.0 * std::log10(std::max(power, 1e-300));
}

template <typename F> void forBins(double low, double high, F f)
{
    const double scale = static_cast<double>(kAnalysisBins - 1);
    const auto lo = static_cast<std::ptrdiff_t>(std::ceil(std::clamp(low, 0.0, 1.0) * scale - 1e-9));
    const auto hi = static_cast<std::ptrdiff_t>(std::floor(std::clamp(high, 0.0, 1.0) * scale + 1e-9));
    for (std::ptrdiff_t k = std::max<std::ptrdiff_t>(lo, 0); k <= hi; ++k)
        f(k);
}

} // namespace

double passbandDeviation(double rippleDb)
{
    const double g = std::pow(10.0, rippleDb / 20.0);
    return (g - 1.0) / (g + 1.0);
}

double stopbandDeviation(double attenuationDb)
{
    return std::pow(10.0, -attenuationDb / 20.0);
}

double narrowestTransition(const ToleranceMask& m)
{
    if (m.type == 1)
        return std::min(m.passband[0] - m.stopband[0], m.stopband[1] - m.passband[1]);
    return std::fabs(m.stopband[0] - m.passband[0]);
}

MaskCheck checkMask(const ToleranceMask& m, std::span<const double> power)
{
    MaskCheck r;
    if (power.size() != kAnalysisBins)
        return r;
    const double scale = static_cast<double>(kAnalysisBins - 1);
    double pMax = 0.0, pMin = 0.0, sMax = 0.0;
    std::ptrdiff_t minBin = -1, stopBin = -1;
    auto passBin = [&](std::ptrdiff_t k) {
        if (minBin < 0) {
            pMax = pMin = power[k];
            minBin = k;
        }
        pMax = std::max(pMax, power[k]);
        if (power[k] < pMin) {
            pMin = power[k];
            minBin = k;
        }
    };
    auto stopBinF = [&](std::ptrdiff_t k) {
        if (stopBin < 0 || power[k] > sMax) {
            sMax = power[k];
            stopBin = k;
        }
    };
    if (m.type == 0) {
        forBins(0.0, m.passband[0], passBin);
        forBins(m.stopband[0], 1.0, stopBinF);
    } else if (m.type == 2) {
        forBins(m.passband[0], 1.0, passBin);
        forBins(0.0, m.stopband[0], stopBinF);
    } else {
        forBins(m.passband[0], m.passband[1], passBin);
        forBins(0.0, m.stopband[0], stopBinF);
        forBins(m.stopband[1], 1.0, stopBinF);
    }
    if (minBin < 0 || stopBin < 0)
        return r;
    r.passbandRippleDb = dB(pMax) - dB(pMin);
    r.stopbandAttenuationDb = dB(pMax) - dB(sMax);
    const double rippleMiss = r.passbandRippleDb - m.rippleDb;
    const double stopMiss = m.attenuationDb - r.stopbandAttenuationDb;
    r.met = rippleMiss <= 0.0 && stopMiss <= 0.0;
    r.missDb = std::max(rippleMiss, stopMiss);
    r.worstFrequency = static_cast<double>(stopMiss >= rippleMiss ? stopBin : minBin) / scale;
    return r;
}
