// Equiripple design. liquid-dsp takes edges in cycles per sample (0..0.5),
// half our normalised frequencies, and returns single-precision taps.
#include "dsp/equiripple.h"

#include <liquid/liquid.h>

#include <cmath>
#include <vector>

bool equirippleDesign(const ToleranceMask& m, std::span<double> h)
{
    const std::size_t N = h.size();
    if (N < 3 || N > 511 || N % 2 == 0)
        return false;
    const double ratio = passbandDeviation(m.rippleDb) / stopbandDeviation(m.attenuationDb);
    std::vector<float> bands, desired, weights;
    auto add = [&](double from, double to, float want, double weight) {
        bands.push_back(static_cast<float>(from / 2.0));
        bands.push_back(static_cast<float>(to / 2.0));
        desired.push_back(want);
        weights.push_back(static_cast<float>(weight));
    };
    if (m.type == 0) {
        if (!(0.0 < m.passband[0] && m.passband[0] < m.stopband[0] && m.stopband[0] < 1.0))
            return false;
        add(0.0, m.passband[0], 1.0f, 1.0);
        add(m.stopband[0], 1.0, 0.0f, ratio);
    } else if (m.type == 2) {
        if (!(0.0 < m.stopband[0] && m.stopband[0] < m.passband[0] && m.passband[0] < 1.0))
            return false;
        add(0.0, m.stopband[0], 0.0f, ratio);
        add(m.passband[0], 1.0, 1.0f, 1.0);
    } else {
        if (!(0.0 < m.stopband[0] && m.stopband[0] < m.passband[0] && m.passband[0] < m.passband[1] &&
              m.passband[1] < m.stopband[1] && m.stopband[1] < 1.0))
            return false;
        add(0.0, m.stopband[0], 0.0f, ratio);
        add(m.passband[0], m.passband[1], 1.0f, 1.0);
        add(m.stopband[1], 1.0, 0.0f, ratio);
    }
    std::vector<liquid_firdespm_wtype> flat(desired.size(), LIQUID_FIRDESPM_FLATWEIGHT);
    std::vector<float> taps(N);
    // liquid-dsp 1.3 (Debian 12) returns nothing here and later versions a status, so the
    // result is judged by the taps: all finite and not all zero.
    firdespm_run(static_cast<unsigned>(N), static_cast<unsigned>(desired.size()), bands.data(),
                 desired.data(), weights.data(), flat.data(), LIQUID_FIRDESPM_BANDPASS, taps.data());
    bool any = false;
    for (const float t : taps) {
        if (!std::isfinite(t))
            return false;
        any = any || t != 0.0f;
    }
    if (!any)
        return false;
    for (std::size_t n = 0; n < N; ++n)
        h[n] = taps[n];
    return true;
}
