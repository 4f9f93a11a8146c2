// Frequency response on a real FFT. Only bins 0..2048 are computed; the upper
// half is the conjugate mirror, so its dB and phase are copied, not recomputed,
// wherever the near-zero rule left a bin equal to its mirror.
#include "dsp/frequency_response.h"

#include "dsp/real_fft.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>

namespace {

constexpr double kNearZero = 1e-10;

bool nearZero(std::complex<double> z)
{
    return std::fabs(z.real()) <= kNearZero && std::fabs(z.imag()) <= kNearZero;
}

// 20·log10|z| from the squared magnitude, which spares a square root.
double decibels(std::complex<double> z)
{
    return 10.0 * std::log10(z.real() * z.real() + z.imag() * z.imag());
}

} // namespace

void fftFilter(std::span<const double> c, std::span<double> dB, std::span<double> phase)
{
    constexpr std::size_t n = kResponsePoints;
    const bool wantPhase = !phase.empty();
    if (c.empty() || c.size() > n || dB.size() != n || (wantPhase && phase.size() != n))
        return;

    RealFft& fft = RealFft::ofSize(n);
    auto in = fft.input();
    std::fill(in.begin(), in.end(), 0.0);
    std::copy(c.begin(), c.end(), in.begin());
    fft.execute();
    const auto half = fft.output();

    std::array<std::complex<double>, n> X;
    for (std::size_t k = 0; k <= n / 2; ++k)
        X[k] = half[k];
    for (std::size_t k = n / 2 + 1; k < n; ++k)
        X[k] = std::conj(half[n - k]);

    // A bin at (numerically) zero has no usable dB or phase: it borrows its left
    // neighbour's value, bin 0 its right one. The scan runs upward over all bins.
    if (nearZero(X[0]))
        X[0] = X[1];
    for (std::size_t k = 1; k < n; ++k)
        if (nearZero(X[k]))
            X[k] = X[k - 1];

    for (std::size_t k = 0; k <= n / 2; ++k) {
        dB[k] = decibels(X[k]);
        if (wantPhase)
            phase[k] = std::atan(X[k].imag() / X[k].real());
    }
    for (std::size_t k = n / 2 + 1; k < n; ++k) {
        const std::complex<double> mirror = X[n - k];
        if (X[k].real() == mirror.real() && X[k].imag() == -mirror.imag()) {
            dB[k] = dB[n - k];
            if (wantPhase)
                phase[k] = -phase[n - k];
        } else {
            dB[k] = decibels(X[k]);
            if (wantPhase)
                phase[k] = std::atan(X[k].imag() / X[k].real());
        }
    }
}

PhaseRange unwrapPhase(std::span<const double> P, std::span<const double> D, std::span<double> U)
{
    const std::size_t n = U.size();
    PhaseRange range;
    if (n < 5 || n > kResponsePoints || P.size() < n || D.size() < n)
        return range;

    // Rises of the magnitude between neighbouring points; falls and NaN count as 0.
    std::array<double, kResponsePoints + 1> R{};
    std::array<bool, kResponsePoints> notch{};
    R[0] = 0.0;
    for (std::size_t j = 0; j + 1 < n; ++j) {
        const double rise = D[j + 1] - D[j];
        R[j + 1] = rise >= 0.0 ? rise : 0.0;
    }
    // A notch: the magnitude stops falling, then climbs by at least 0.5 dB a point, slowing down.
    for (std::size_t i = 2; i + 3 < n; ++i)
        notch[i] = R[i] == 0.0 && R[i + 1] > 0.0 && R[i + 2] >= 0.5 && R[i + 2] > R[i + 3];

    // Away from a notch every upward step of the wrapped phase is a wrap by π;
    // across a notch a downward step is the linear-phase jump of π.
    double offset = 0.0;
    U[0] = P[0];
    for (std::size_t j = 0; j + 1 < n; ++j) {
        if (P[j + 1] > P[j] && !notch[j])
            offset -= std::numbers::pi;
        else if (P[j + 1] <= P[j] && notch[j])
            offset += std::numbers::pi;
        U[j + 1] = P[j + 1] + offset;
    }
    range.largest = *std::max_element(U.begin(), U.end());
    range.smallest = *std::min_element(U.begin(), U.end());
    return range;
}
