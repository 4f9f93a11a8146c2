// Coefficient quantisation and symmetry. Rounding is half away from zero so a
// coefficient and its negative quantise to opposite integers, which keeps the
// symmetry of antisymmetric band passes exact.
#include "dsp/quantisation.h"

#include "dsp/fast_elementary.h"
#include "dsp/vector_dispatch.h"
#include "dsp/vector_lanes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// q = round(c / cmax · fullScale), half away from zero, saturated to 32 bits, NaN to 0.
struct Quantise {
    // Clamped first (a coefficient far below −cmax must not overflow), the value
    // converts to a 64-bit integer exactly, which truncates; the exact fraction
    // left over decides the rounding.
    template <std::size_t Bytes>
    [[gnu::always_inline]] static typename vector_dispatch::Lanes<Bytes>::VI
    quantise(typename vector_dispatch::Lanes<Bytes>::V x, double cmax, double fullScale)
    {
        using L = vector_dispatch::Lanes<Bytes>;
        using V = typename L::V;
        using VI = typename L::VI;
        constexpr double lo = std::numeric_limits<std::int32_t>::min();
        constexpr double hi = std::numeric_limits<std::int32_t>::max();
        x = x / cmax * fullScale;
        x = x == x ? x : L::splat(0.0);
        x = x < lo ? L::splat(lo) : x;
        x = x > hi ? L::splat(hi) : x;
        const VI whole = __builtin_convertvector(x, VI);
        const V fraction = x - __builtin_convertvector(whole, V);
        return whole - (VI)(fraction >= 0.5) + (VI)(fraction <= -0.5); // true lanes are −1
    }

    template <std::size_t Bytes>
    [[gnu::always_inline]] static void run(std::span<const double> c, double cmax, double fullScale,
                                           std::span<std::int32_t> q)
    {
        using L = vector_dispatch::Lanes<Bytes>;
        const std::size_t n = c.size();
        std::size_t i = 0;
        for (; i + L::count <= n; i += L::count) {
            const auto r = quantise<Bytes>(L::load(c.data() + i), cmax, fullScale);
            for (std::size_t l = 0; l < L::count; ++l)
                q[i + l] = static_cast<std::int32_t>(r[l]);
        }
        for (; i < n; ++i)
            q[i] = static_cast<std::int32_t>(quantise<Bytes>(L::splat(c[i]), cmax, fullScale)[0]);
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

// Index 1 is 20 bits and each index below drops one, so bits + index is fixed.
constexpr int kBitsPlusIndex = 21;

int widthBits(int widthIndex)
{
    return (widthIndex >= 1 && widthIndex < kWidthCount) ? kBitsPlusIndex - widthIndex : 0;
}

int widthIndexForBits(int bits)
{
    const int index = kBitsPlusIndex - bits;
    return (index >= 1 && index < kWidthCount) ? index : -1;
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
