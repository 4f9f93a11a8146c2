// Signal extremes and the designer's magnitude spectrum, on the shared
// 16384-point FFTW plan.
#include "dsp/signal_spectrum.h"

#include "dsp/contract.h"

#include <algorithm>
#include <cmath>

#include "dsp/fast_elementary.h"
#include "dsp/real_fft.h"

SignalExtremes measureSignal(std::span<const double> x)
{
    if (x.empty())
        return {};
    SignalExtremes e{x[0], x[0]};
    rangeOf(x, e.max, e.min);
    return e;
}

SignalExtremes magSpectrum(std::span<const double> x, std::span<double> mag)
{
    RealFft& fft = RealFft::ofSize(kSpectrumLength);
    fft.executePadded(x.first(std::min(x.size(), kSpectrumLength)));
    const auto bins = fft.output();
    const std::size_t n = mag.size();
    if (!DSP_EXPECTS(n <= kSpectrumLength))
        return {};
    for (std::size_t k = 0; k < n; ++k) {
        // Bins above N/2 mirror those below (the input is real).
        const std::size_t b = k <= kSpectrumLength / 2 ? k : kSpectrumLength - k;
        const double re = bins[b].real();
        const double im = bins[b].imag();
        mag[k] = std::sqrt(re * re + im * im) / static_cast<double>(kSpectrumLength);
    }
    return measureSignal(mag.first(n));
}
