// Frequency response on a real FFT. Only bins 0..2048 are converted to dB and
// phase; the upper half is their conjugate mirror and is copied.
#include "dsp/frequency_response.h"

#include "dsp/fast_elementary.h"
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

} // namespace

void fftFilter(std::span<const double> c, std::span<double> dB, std::span<double> phase)
{
    constexpr std::size_t n = kResponsePoints;
    constexpr std::size_t half = n / 2;
    const bool wantPhase = !phase.empty();
    if (c.empty() || c.size() > n || dB.size() != n || (wantPhase && phase.size() != n))
        return;

    RealFft& fft = RealFft::ofSize(n);
    auto in = fft.input();
    std::copy(c.begin(), c.end(), in.begin());
    std::fill(in.begin() + static_cast<std::ptrdiff_t>(c.size()), in.end(), 0.0);
    fft.execute();
    const auto X = fft.output();

    // A bin at (numerically) zero has no usable dB or phase: it borrows its left
    // neighbour's value, bin 0 its right one, scanning upward over all 4096 bins.
    std::array<double, half + 1> re, im, power;
    unsigned nearZeroSeen = 0;
    for (std::size_t k = 0; k <= half; ++k) {
        re[k] = X[k].real();
        im[k] = X[k].imag();
        nearZeroSeen |= static_cast<unsigned>(std::fabs(re[k]) <= kNearZero) &
                        static_cast<unsigned>(std::fabs(im[k]) <= kNearZero);
    }
    // Which bins were near zero before any replacement; only filled when there are some.
    std::array<bool, half + 1> zero;
    const bool anyZero = nearZeroSeen != 0;
    if (anyZero) {
        for (std::size_t k = 0; k <= half; ++k) {
            zero[k] = nearZero(X[k]);
            if (zero[k]) {
                re[k] = k == 0 ? X[1].real() : re[k - 1];
                im[k] = k == 0 ? X[1].imag() : im[k - 1];
            }
        }
    }
    // 20·log10|X| from the squared magnitude spares a square root.
    for (std::size_t k = 0; k <= half; ++k)
        power[k] = re[k] * re[k] + im[k] * im[k];
    decibelsOfPower(power, dB.first(half + 1));
    if (wantPhase)
        arctangentOfRatio(im, re, phase.first(half + 1));

    // Bins above fs/2 are the conjugates of those below: same dB, opposite phase,
    // unless the bin is near zero and takes its (upper) left neighbour instead.
    if (!anyZero) {
        for (std::size_t k = half + 1; k < n; ++k)
            dB[k] = dB[n - k];
        if (wantPhase)
            for (std::size_t k = half + 1; k < n; ++k)
                phase[k] = -phase[n - k];
        return;
    }
    for (std::size_t k = half + 1; k < n; ++k) {
        const std::size_t mirror = n - k;
        dB[k] = zero[mirror] ? dB[k - 1] : dB[mirror];
        if (wantPhase)
            phase[k] = zero[mirror] ? phase[k - 1] : -phase[mirror];
    }
}

PhaseRange unwrapPhase(std::span<const double> P, std::span<const double> D, std::span<double> U)
{
    const std::size_t n = U.size();
    PhaseRange range;
    if (n < 5 || n > kResponsePoints || P.size() < n || D.size() < n)
        return range;

    // Rises of the magnitude between neighbouring points; falls and NaN count as 0.
    std::array<double, kResponsePoints> R;
    R[0] = 0.0;
    for (std::size_t j = 0; j + 1 < n; ++j) {
        const double rise = D[j + 1] - D[j];
        R[j + 1] = rise >= 0.0 ? rise : 0.0;
    }
    // A notch at i (2 ≤ i < n − 3): the magnitude stops falling, then climbs by at
    // least 0.5 dB a point, slowing down.
    std::array<unsigned char, kResponsePoints> notch;
    std::fill(notch.begin(), notch.begin() + static_cast<std::ptrdiff_t>(n), 0);
    for (std::size_t i = 2; i + 3 < n; ++i)
        notch[i] = R[i] == 0.0 && R[i + 1] > 0.0 && R[i + 2] >= 0.5 && R[i + 2] > R[i + 3];

    // Away from a notch every upward step of the wrapped phase is a wrap by π;
    // across a notch a downward step is the linear-phase jump of π.
    constexpr double pi = std::numbers::pi;
    double offset = 0.0;
    U[0] = P[0];
    double largest = U[0], smallest = U[0];
    for (std::size_t j = 0; j + 1 < n; ++j) {
        const bool up = P[j + 1] > P[j];
        const bool down = P[j + 1] <= P[j];
        offset += (up && !notch[j]) ? -pi : ((down && notch[j]) ? pi : 0.0);
        const double u = P[j + 1] + offset;
        U[j + 1] = u;
        largest = u > largest ? u : largest;
        smallest = u < smallest ? u : smallest;
    }
    range.largest = largest;
    range.smallest = smallest;
    return range;
}
