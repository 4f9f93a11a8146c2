// Coefficient quantisation and symmetry. Rounding is half away from zero so a
// coefficient and its negative quantise to opposite integers, which keeps the
// symmetry of antisymmetric band passes exact.
#include "dsp/quantisation.h"

#include "dsp/fast_elementary.h"
#include "dsp/vector_dispatch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// std::round without the library call, so the loops below vectorise: x − trunc(x) is exact.
inline double roundHalfAway(double x)
{
    const double t = std::trunc(x);
    return std::fabs(x - t) >= 0.5 ? t + std::copysign(1.0, x) : t;
}

// q = round(c / cmax · fullScale), saturated, NaN to 0; the loops vectorise at the dispatched width.
struct Quantise {
    template <std::size_t Bytes>
    [[gnu::always_inline]] static void run(std::span<const double> c, double cmax, double fullScale,
                                           std::span<std::int32_t> q)
    {
        constexpr double lo = std::numeric_limits<std::int32_t>::min();
        constexpr double hi = std::numeric_limits<std::int32_t>::max();
        for (std::size_t n = 0; n < c.size(); ++n) {
            const double t = roundHalfAway(c[n] / cmax * fullScale);
            // Saturate: a coefficient far below −cmax must not overflow the integer.
            q[n] = t != t ? 0 : static_cast<std::int32_t>(std::clamp(t, lo, hi));
        }
    }
};

// cp = q / qmax · cmax.
struct Rescale {
    template <std::size_t Bytes>
    [[gnu::always_inline]] static void run(std::span<const std::int32_t> q, double qmax, double cmax,
                                           std::span<double> cp)
    {
        for (std::size_t n = 0; n < q.size(); ++n)
            cp[n] = static_cast<double>(q[n]) / qmax * cmax;
    }
};

} // namespace

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

    double cmax = c[0], cmin = c[0];
    rangeOf(c, cmax, cmin);
    r.dynamicRange = std::fabs(cmax / cmin);

    const int bits = widthBits(widthIndex);
    // Without a positive largest coefficient there is no full scale to map to.
    if (bits == 0 || !(cmax > 0.0) || !std::isfinite(cmax)) {
        std::copy(c.begin(), c.end(), cp.begin());
        return r;
    }

    const double fullScale = std::ldexp(1.0, bits - 1) - 1.0;
    vector_dispatch::run<Quantise>(c, cmax, fullScale, q);
    std::int32_t qLargest = q[0], qSmallest = q[0];
    for (const std::int32_t v : q) {
        qLargest = std::max(qLargest, v);
        qSmallest = std::min(qSmallest, v);
    }
    const double qmax = qLargest;
    const double qmin = qSmallest;
    const double dynamicRangeQ = std::fabs(qmax / qmin);
    vector_dispatch::run<Rescale>(std::span<const std::int32_t>(q), qmax, cmax, cp);
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
