// Measured analysis on the power |X|² of a 16384-point response. Everything
// that only compares values works on power, so the logarithm is taken for a
// handful of bins (the peak, the crossings, the extremes) instead of 8193.
#include "dsp/filter_analysis.h"

#include "dsp/quantisation.h"
#include "dsp/real_fft.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::ptrdiff_t kLast = static_cast<std::ptrdiff_t>(kAnalysisBins) - 1;
constexpr double kDrop3dB = 3.0103;
constexpr double kDrop6dB = 6.0206;

double dB(double power)
{
    // An exact zero of the response would give −∞; 1e-300 is far below any real stopband.
    return 10.0 * std::log10(std::max(power, 1e-300));
}

double frequencyOf(double bin)
{
    return bin / static_cast<double>(kLast);
}

// The bins inside [low, high], at least the one nearest to low.
std::pair<std::ptrdiff_t, std::ptrdiff_t> binsOf(NominalBand band)
{
    const double scale = static_cast<double>(kLast);
    auto lo = static_cast<std::ptrdiff_t>(std::ceil(band.low * scale - 1e-9));
    auto hi = static_cast<std::ptrdiff_t>(std::floor(band.high * scale + 1e-9));
    lo = std::clamp<std::ptrdiff_t>(lo, 0, kLast);
    hi = std::clamp<std::ptrdiff_t>(hi, 0, kLast);
    if (hi < lo)
        hi = lo;
    return {lo, hi};
}

std::ptrdiff_t peakBin(NominalBand band, std::span<const double> power)
{
    const auto [lo, hi] = binsOf(band);
    std::ptrdiff_t peak = lo;
    for (std::ptrdiff_t k = lo; k <= hi; ++k)
        if (power[k] > power[peak])
            peak = k;
    return peak;
}

struct Crossing {
    double frequency = kNaN;
    std::ptrdiff_t bin = -1; // first bin at or below the level
};

// First fall `drop` dB below the peak, scanning from `peak` in direction dir (±1); linear in dB between bins.
Crossing crossing(std::span<const double> power, std::ptrdiff_t peak, int dir, double drop)
{
    const double reference = dB(power[peak]);
    const double level = reference - drop;
    const double threshold = power[peak] * std::pow(10.0, -drop / 10.0);
    for (std::ptrdiff_t k = peak + dir; k >= 0 && k <= kLast; k += dir) {
        if (power[k] > threshold)
            continue;
        const double d0 = dB(power[k - dir]);
        const double d1 = dB(power[k]);
        const double t = d0 > d1 ? std::clamp((d0 - level) / (d0 - d1), 0.0, 1.0) : 1.0;
        return {frequencyOf(static_cast<double>(k - dir) + dir * t), k};
    }
    return {};
}

// The first local minimum met going from bin k in direction dir.
std::ptrdiff_t firstMinimum(std::span<const double> power, std::ptrdiff_t k, int dir)
{
    while (k + dir >= 0 && k + dir <= kLast && power[k + dir] < power[k])
        k += dir;
    return k;
}

// Peak-to-peak dB from `start` to the last local extremum before bin `end` (exclusive), going dir.
double rippleBetween(std::span<const double> power, std::ptrdiff_t start, std::ptrdiff_t end, int dir)
{
    double largest = power[start];
    double smallest = power[start];
    double ripple = 0.0;
    for (std::ptrdiff_t k = start + dir; k != end && k + dir >= 0 && k + dir <= kLast; k += dir) {
        largest = std::max(largest, power[k]);
        smallest = std::min(smallest, power[k]);
        const double before = power[k] - power[k - dir];
        const double after = power[k + dir] - power[k];
        if ((before > 0.0 && after < 0.0) || (before < 0.0 && after > 0.0))
            ripple = dB(largest) - dB(smallest);
    }
    return ripple;
}

} // namespace

void analysisPower(std::span<const double> c, std::span<double> power)
{
    if (power.size() != kAnalysisBins || c.empty() || c.size() > kAnalysisFftSize)
        return;
    RealFft& fft = RealFft::ofSize(kAnalysisFftSize);
    fft.executePadded(c);
    const auto X = fft.output();
    for (std::size_t k = 0; k < kAnalysisBins; ++k)
        power[k] = std::norm(X[k]);
}

NominalBand nominalPassband(int type, double cutoff, double center)
{
    NominalBand band;
    if (type == 0)
        band = {0.0, cutoff};
    else if (type == 2)
        band = {cutoff, 1.0};
    else
        band = {center - cutoff, center + cutoff};
    band.low = std::clamp(band.low, 0.0, 1.0);
    band.high = std::clamp(band.high, 0.0, 1.0);
    return band;
}

ResponseAnalysis analyseResponse(int type, NominalBand band, std::span<const double> power)
{
    ResponseAnalysis r;
    if (power.size() != kAnalysisBins)
        return r;
    const std::ptrdiff_t peak = peakBin(band, power);
    r.referenceGainDb = dB(power[peak]);
    r.peakFrequency = frequencyOf(static_cast<double>(peak));

    // Low pass scans up, high pass down, band pass both ways (lower side first).
    const int dirs[2] = {type == 2 || type == 1 ? -1 : 1, 1};
    r.edgeCount = type == 1 ? 2 : 1;
    r.passbandRippleDb = 0.0;
    for (int i = 0; i < r.edgeCount; ++i) {
        const int dir = dirs[i];
        const Crossing c3 = crossing(power, peak, dir, kDrop3dB);
        const Crossing c6 = crossing(power, peak, dir, kDrop6dB);
        r.edges3dB[i] = c3.frequency;
        r.edges6dB[i] = c6.frequency;
        if (c6.bin >= 0) {
            const std::ptrdiff_t minimum = firstMinimum(power, c6.bin, dir);
            if (dir < 0)
                r.stopband.lowerEnd = minimum;
            else
                r.stopband.upperStart = minimum;
        }
        const std::ptrdiff_t start = type == 0 ? 0 : type == 2 ? kLast : peak;
        const std::ptrdiff_t end = c3.bin >= 0 ? c3.bin : (dir > 0 ? kLast + 1 : -1);
        r.passbandRippleDb = std::max(r.passbandRippleDb, rippleBetween(power, start, end, dir));
    }
    return r;
}

double stopbandAttenuation(std::span<const double> power, double referenceGainDb,
                           const StopbandBins& stopband)
{
    if (power.size() != kAnalysisBins || stopband.empty())
        return kNaN;
    double largest = 0.0;
    for (std::ptrdiff_t k = 0; k <= stopband.lowerEnd; ++k)
        largest = std::max(largest, power[k]);
    if (stopband.upperStart >= 0)
        for (std::ptrdiff_t k = stopband.upperStart; k <= kLast; ++k)
            largest = std::max(largest, power[k]);
    return referenceGainDb - dB(largest);
}

int bitsNeeded(std::span<const std::int32_t> q)
{
    if (q.empty())
        return 0;
    int bits = 1;
    for (const std::int32_t v : q) {
        // v fits B bits when −2^(B−1) ≤ v ≤ 2^(B−1) − 1.
        const std::int64_t magnitude = v < 0 ? -static_cast<std::int64_t>(v) - 1 : v;
        int b = 1;
        while (b < 64 && (magnitude >> (b - 1)) != 0)
            ++b;
        bits = std::max(bits, b);
    }
    return bits;
}

FilterMeasurement measureFilter(int type, double cutoff, double center, int widthIndex,
                                std::span<const double> c, std::span<const double> cp,
                                std::span<const std::int32_t> q)
{
    FilterMeasurement m;
    if (c.empty() || cp.size() != c.size())
        return m;
    const NominalBand band = nominalPassband(type, cutoff, center);
    std::vector<double> power(kAnalysisBins);
    analysisPower(c, power);
    m.response = analyseResponse(type, band, power);
    m.stopbandAttenuationDb = stopbandAttenuation(power, m.response.referenceGainDb, m.response.stopband);
    const bool quantised = widthIndex != 0;
    if (quantised) {
        analysisPower(cp, power);
        m.stopbandAttenuationQuantisedDb =
            stopbandAttenuation(power, dB(power[peakBin(band, power)]), m.response.stopband);
        m.bitsNeeded = q.size() == c.size() ? bitsNeeded(q) : 0;
        m.fitsWidth = m.bitsNeeded <= widthBits(widthIndex);
    } else {
        m.stopbandAttenuationQuantisedDb = m.stopbandAttenuationDb;
    }
    m.groupDelaySamples = (static_cast<double>(c.size()) - 1.0) / 2.0;
    return m;
}
