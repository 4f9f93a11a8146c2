// Window properties. The transform is taken of the window rotated so its
// centre sits at index 0: the spectrum of a symmetric window is then real
// (zero phase), and its first sign change is the first null even where |W|
// has a shoulder before it (Flat Top).
#include "dsp/window_properties.h"

#include "dsp/real_fft.h"
#include "dsp/window.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <vector>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Full width in bins of N where |W| first falls `drop` dB below |W(0)|; W holds grid points 0.. of step
// `binsPerPoint`, amplitude values.
double fullWidth(std::span<const double> W, double binsPerPoint, double drop)
{
    const double level = std::fabs(W[0]) * std::pow(10.0, -drop / 20.0);
    for (std::size_t k = 1; k < W.size(); ++k) {
        const double a1 = std::fabs(W[k]);
        if (a1 > level)
            continue;
        const double d0 = 20.0 * std::log10(std::fabs(W[k - 1]));
        const double d1 = 20.0 * std::log10(std::max(a1, 1e-300));
        const double target = 20.0 * std::log10(level);
        const double t = d0 > d1 ? (d0 - target) / (d0 - d1) : 1.0;
        return 2.0 * (static_cast<double>(k - 1) + t) * binsPerPoint;
    }
    return kNaN;
}

} // namespace

WindowProperties windowProperties(std::span<const double> w)
{
    WindowProperties p;
    const std::size_t N = w.size();
    if (N < 3 || N > 2047 || N % 2 == 0)
        return p;
    double sum = 0.0, sumSquares = 0.0, largest = 0.0;
    std::complex<double> shifted = 0.0;
    for (std::size_t n = 0; n < N; ++n) {
        sum += w[n];
        sumSquares += w[n] * w[n];
        largest = std::max(largest, std::fabs(w[n]));
        shifted +=
            w[n] * std::polar(1.0, -std::numbers::pi * static_cast<double>(n) / static_cast<double>(N));
    }
    const double dN = static_cast<double>(N);
    p.coherentGain = sum / (dN * largest);
    p.enbwBins = dN * sumSquares / (sum * sum);
    p.scallopLossDb = -20.0 * std::log10(std::abs(shifted) / std::fabs(sum));

    std::size_t L = 1;
    while (L < 64 * N)
        L *= 2;
    // Centre at index 0, the left half wrapped to the end: a real, even sequence.
    std::vector<double> x(L, 0.0);
    const std::size_t centre = N / 2;
    for (std::size_t n = 0; n < N; ++n)
        x[(n + L - centre) % L] = w[n];
    RealFft& fft = RealFft::ofSize(L);
    fft.executePadded(x);
    const auto X = fft.output();
    std::vector<double> W(X.size());
    for (std::size_t k = 0; k < X.size(); ++k)
        W[k] = X[k].real();
    if (W[0] < 0.0)
        for (double& v : W)
            v = -v;
    const double binsPerPoint = dN / static_cast<double>(L);
    p.mainLobe3dBBins = fullWidth(W, binsPerPoint, 3.0103);
    p.mainLobe6dBBins = fullWidth(W, binsPerPoint, 6.0206);

    std::size_t zero = 1;
    while (zero < W.size() && W[zero] > 0.0)
        ++zero;
    if (zero == W.size()) {
        p.highestSidelobeDb = kNaN;
        return p;
    }
    double sidelobe = 0.0;
    for (std::size_t k = zero; k < W.size(); ++k)
        sidelobe = std::max(sidelobe, std::fabs(W[k]));
    p.highestSidelobeDb = 20.0 * std::log10(std::max(sidelobe, 1e-300) / W[0]);
    return p;
}

std::optional<WindowProperties> textbookWindowProperties(int windowIndex)
{
    // F. J. Harris, "On the use of windows for harmonic analysis with the discrete Fourier
    // transform", Proc. IEEE 66(1), 1978, table 1 (Blackman-Harris: the 4-term −92 dB window).
    switch (windowIndex) {
    case kWindowRectangular:
        return WindowProperties{1.00, 1.00, 3.92, 0.89, 1.21, -13.3};
    case kWindowHann:
        return WindowProperties{0.50, 1.50, 1.42, 1.44, 2.00, -31.5};
    case kWindowHamming:
        return WindowProperties{0.54, 1.36, 1.78, 1.30, 1.81, -43.0};
    case kWindowBlackman:
        return WindowProperties{0.42, 1.73, 1.10, 1.68, 2.35, -58.0};
    case kWindowBlackmanHarris:
        return WindowProperties{0.36, 2.00, 0.83, 1.90, 2.72, -92.0};
    default:
        return std::nullopt;
    }
}
