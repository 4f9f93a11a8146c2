// 3 dB measurements. The search starts at the centre of a band pass and at
// fs/2 of a high pass (whose response is reversed), so every type is measured
// as the falling edge of a low pass.
#include "dsp/filter_measurements.h"

#include "dsp/fast_elementary.h"
#include "dsp/fir_synthesis.h"
#include "dsp/frequency_response.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

Filt3dBResult calcFilt3dB(int type, std::span<const double> m, double theta0)
{
    Filt3dBResult r;
    const std::size_t n = m.size();
    if (n < 2 || n >= kResponsePoints)
        return r;

    // The point after the last reads 0.0 dB, as the interpolation may look there.
    std::array<double, kResponsePoints> work;
    std::copy(m.begin(), m.end(), work.begin());
    work[n] = 0.0;
    // NaN points are passed over: a comparison with NaN is false.
    double largest = -std::numeric_limits<double>::infinity();
    double smallest = std::numeric_limits<double>::infinity();
    std::size_t first = 0;
    while (first < n && std::isnan(work[first]))
        ++first;
    if (first < n)
        rangeOf(std::span<const double>(work.data() + first, n - first), largest, smallest);
    const bool seen = largest >= smallest; // false only when every point is NaN
    if (seen) {
        r.largest = largest;
        r.smallest = smallest;
    }
    if (!seen || r.largest < -3.0 || r.smallest > -3.0)
        return r;

    std::size_t s = 0;
    if (type == kFilterBandPass) {
        const double start = std::trunc(theta0 * static_cast<double>(n));
        s = start > 0.0 ? std::min(static_cast<std::size_t>(start), n - 1) : 0;
    } else if (type == kFilterHighPass) {
        std::reverse(work.begin(), work.begin() + static_cast<std::ptrdiff_t>(n));
    }

    std::size_t k = 0;
    for (std::size_t i = n; i-- > s;) {
        if (work[i] > -3.0) {
            k = i;
            break;
        }
    }
    const double f =
        (static_cast<double>(k) + (work[k] + 3.0) / (work[k] - work[k + 1])) / static_cast<double>(n - 1);

    std::size_t p = 0;
    for (std::size_t j = k; j > s; --j) {
        if (work[j] >= 0.0) {
            p = j;
            break;
        }
    }
    r.ripple = 0.0;
    for (std::size_t j = p; j > s; --j)
        r.ripple = std::max(r.ripple, std::fabs(work[j]));

    switch (type) {
    case kFilterBandPass:
        r.high = f;
        r.low = theta0 - (f - theta0);
        r.bandwidth = f - r.low;
        break;
    case kFilterHighPass:
        r.low = 1.0 - f;
        r.bandwidth = f;
        break;
    default:
        r.low = f;
        r.bandwidth = f;
        break;
    }
    r.valid = true;
    return r;
}
