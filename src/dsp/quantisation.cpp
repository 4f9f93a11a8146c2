// Coefficient quantisation and symmetry. Rounding is half away from zero so a
// coefficient and its negative quantise to opposite integers, which keeps the
// symmetry of antisymmetric band passes exact.
#include "dsp/quantisation.h"

#include <algorithm>
#include <cmath>
#include <limits>

int widthBits(int widthIndex)
{
    return (widthIndex >= 1 && widthIndex < kWidthCount) ? 21 - widthIndex : 0;
}

PrecisionResult bitPrecison(int widthIndex, std::span<const double> c, std::span<std::int32_t> q,
                            std::span<double> cp)
{
    PrecisionResult r;
    const std::size_t N = c.size();
    if (N == 0 || q.size() != N || cp.size() != N)
        return r;
    std::fill(q.begin(), q.end(), 0);

    const double cmax = *std::max_element(c.begin(), c.end());
    const double cmin = *std::min_element(c.begin(), c.end());
    r.dynamicRange = std::fabs(cmax / cmin);

    const int bits = widthBits(widthIndex);
    // Without a positive largest coefficient there is no full scale to map to.
    if (bits == 0 || !(cmax > 0.0) || !std::isfinite(cmax)) {
        std::copy(c.begin(), c.end(), cp.begin());
        return r;
    }

    const double fullScale = std::ldexp(1.0, bits - 1) - 1.0;
    constexpr double lo = std::numeric_limits<std::int32_t>::min();
    constexpr double hi = std::numeric_limits<std::int32_t>::max();
    for (std::size_t n = 0; n < N; ++n) {
        const double t = std::round(c[n] / cmax * fullScale);
        // Saturate: a coefficient far below −cmax must not overflow the integer.
        q[n] = std::isnan(t) ? 0 : static_cast<std::int32_t>(std::clamp(t, lo, hi));
    }
    const double qmax = *std::max_element(q.begin(), q.end());
    const double qmin = *std::min_element(q.begin(), q.end());
    const double dynamicRangeQ = std::fabs(qmax / qmin);
    for (std::size_t n = 0; n < N; ++n)
        cp[n] = static_cast<double>(q[n]) / qmax * cmax;
    r.dynamicRangeError = std::fabs((r.dynamicRange - dynamicRangeQ) / r.dynamicRange) * 100.0;
    return r;
}

int verifySymmetry(int widthIndex, std::span<const double> c, std::span<const std::int32_t> q)
{
    const std::size_t N = c.size();
    if (N == 0 || q.size() != N)
        return kSymmetryNone;
    const bool onDoubles = widthIndex == kWidthDouble;
    std::size_t positive = 0;
    std::size_t negative = 0;
    const std::size_t pairs = (N - 1) / 2;
    for (std::size_t i = 0; i < pairs; ++i) {
        const std::size_t j = N - 1 - i;
        if (onDoubles) {
            positive += std::fabs(c[i] - c[j]) < 1e-10;
            negative += std::fabs(c[i] + c[j]) < 1e-10;
        } else {
            positive += q[i] == q[j];
            negative += static_cast<std::int64_t>(q[i]) + q[j] == 0;
        }
    }
    if (positive == pairs)
        return kSymmetryPositive;
    if (negative == pairs)
        return kSymmetryNegative;
    return kSymmetryNone;
}
