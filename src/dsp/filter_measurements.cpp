// 3 dB measurements. The search starts at the centre of a band pass and at
// fs/2 of a high pass (whose response is reversed), so every type is measured
// as the falling edge of a low pass.
#include "dsp/filter_measurements.h"

#include "dsp/contract.h"
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
    if (!DSP_EXPECTS(n >= 2 && n < kResponsePoints))
        return r;

    // NaN points are passed over: a comparison with NaN is false.
    double largest = -std::numeric_limits<double>::infinity();
    double smallest = std::numeric_limits<double>::infinity();
    std::size_t first = 0;
    while (first < n && std::isnan(m[first]))
        ++first;
    if (first < n)
        rangeOf(m.subspan(first), largest, smallest);
    const bool seen = largest >= smallest; // false only when every point is NaN
    if (seen) {
        r.largest = largest;
        r.smallest = smallest;
    }
    if (!seen || r.largest < -3.0 || r.smallest > -3.0)
        return r;

    // A high pass is read backwards; the point after the last reads 0.0 dB, as the
    // interpolation may look there.
    const bool reversed = type == kFilterHighPass;
    const auto at = [&](std::size_t i) { return i >= n ? 0.0 : m[reversed ? n - 1 - i : i]; };
    std::size_t s = 0;
    if (type == kFilterBandPass) {
        const double start = std::trunc(theta0 * static_cast<double>(n));
        s = start > 0.0 ? std::min(static_cast<std::size_t>(start), n - 1) : 0;
    }

    // k: the last point from s on above −3 dB (a plain loop each way round, as it runs long).
    std::size_t k = 0;
    if (!reversed) {
        for (std::size_t i = n; i-- > s;)
            if (m[i] > -3.0) {
                k = i;
                break;
            }
    } else {
        for (std::size_t j = 0; j < n - s; ++j)
            if (m[j] > -3.0) {
                k = n - 1 - j;
                break;
            }
    }
    const double f =
        (static_cast<double>(k) + (at(k) + 3.0) / (at(k) - at(k + 1))) / static_cast<double>(n - 1);

    std::size_t p = 0;
    for (std::size_t j = k; j > s; --j) {
        if (at(j) >= 0.0) {
            p = j;
            break;
        }
    }
    // Ripple: the largest |dB| over points s+1..p, from the range of that stretch
    // (one stretch of m either way round); a stretch starting with NaN goes point by point.
    r.ripple = 0.0;
    if (p > s) {
        const std::span<const double> stretch =
            reversed ? m.subspan(n - 1 - p, p - s) : m.subspan(s + 1, p - s);
        double high = stretch[0], low = stretch[0];
        rangeOf(stretch, high, low);
        if (!std::isnan(high))
            r.ripple = std::max(0.0, std::max(high, -low));
        else
            for (const double v : stretch)
                r.ripple = std::max(r.ripple, std::fabs(v));
    }

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
