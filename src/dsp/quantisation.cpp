// Coefficient quantisation and symmetry. Rounding is half away from zero so a
// coefficient and its negative quantise to opposite integers, which keeps the
// symmetry of antisymmetric band passes exact.
#include "dsp/quantisation.h"

#include "dsp/contract.h"
#include "dsp/fast_elementary.h"
#include "dsp/vector_kernels.h"

#include <algorithm>
#include <cmath>
#include <limits>

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
    if (!DSP_EXPECTS(N > 0 && q.size() == N && cp.size() == N))
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
    vector_kernels::quantise(c, cmax, fullScale, q);
    std::int32_t qLargest = q[0], qSmallest = q[0];
    for (const std::int32_t v : q) {
        qLargest = std::max(qLargest, v);
        qSmallest = std::min(qSmallest, v);
    }
    const double qmax = qLargest;
    const double qmin = qSmallest;
    const double dynamicRangeQ = std::fabs(qmax / qmin);
    vector_kernels::rescale(q, qmax, cmax, cp);
    r.dynamicRangeError = std::fabs((r.dynamicRange - dynamicRangeQ) / r.dynamicRange) * 100.0;
    return r;
}

int verifySymmetry(int widthIndex, std::span<const double> c, std::span<const std::int32_t> q)
{
    const std::size_t N = c.size();
    if (!DSP_EXPECTS(N % 2 == 1 && q.size() == N))
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
