// Signal extremes and the designer's magnitude spectrum, on the shared
// 16384-point FFTW plan.
#include "dsp/signal_spectrum.h"

#include <algorithm>
#include <cmath>

#include "dsp/real_fft.h"

SignalExtremes measureSignal(std::span<const double> x)
{
    if (x.empty())
        return {};
    // Four running extremes keep the loop free of a long dependency chain.
    double hi[4] = {x[0], x[0], x[0], x[0]};
    double lo[4] = {x[0], x[0], x[0], x[0]};
    std::size_t i = 0;
    for (; i + 4 <= x.size(); i += 4) {
        for (std::size_t k = 0; k < 4; ++k) {
            hi[k] = x[i + k] > hi[k] ? x[i + k] : hi[k];
            lo[k] = x[i + k] < lo[k] ? x[i + k] : lo[k];
        }
    }
    for (; i < x.size(); ++i) {
        hi[0] = x[i] > hi[0] ? x[i] : hi[0];
        lo[0] = x[i] < lo[0] ? x[i] : lo[0];
    }
    return {std::max({hi[0], hi[1], hi[2], hi[3]}), std::min({lo[0], lo[1], lo[2], lo[3]})};
}

SignalExtremes magSpectrum(std::span<const double> x, std::span<double> mag)
{
    RealFft& fft = RealFft::ofSize(kSpectrumLength);
    const std::span<double> in = fft.input();
    const std::size_t used = std::min(x.size(), kSpectrumLength);
    std::copy_n(x.begin(), used, in.begin());
    std::fill(in.begin() + static_cast<std::ptrdiff_t>(used), in.end(), 0.0);
    fft.execute();
    const auto bins = fft.output();
    const std::size_t n = std::min(mag.size(), kSpectrumLength);
    for (std::size_t k = 0; k < n; ++k) {
        // Bins above N/2 mirror those below (the input is real).
        const std::size_t b = k <= kSpectrumLength / 2 ? k : kSpectrumLength - k;
        const double re = bins[b].real();
        const double im = bins[b].imag();
        mag[k] = std::sqrt(re * re + im * im) / static_cast<double>(kSpectrumLength);
    }
    return measureSignal(mag.first(n));
}
