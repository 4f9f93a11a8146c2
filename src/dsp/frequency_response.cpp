// Frequency response on a real FFT. Only bins 0..2048 are converted to dB and
// phase; the upper half is their conjugate mirror and is copied.
#include "dsp/frequency_response.h"

#include "dsp/fast_elementary.h"
#include "dsp/real_fft.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdint>
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

    std::array<double, half + 1> re, im, power;
    for (std::size_t k = 0; k <= half; ++k) {
        re[k] = X[k].real();
        im[k] = X[k].imag();
    }
    // A bin at (numerically) zero has no usable dB or phase: it borrows its left
    // neighbour's value, bin 0 its right one, scanning upward over all 4096 bins.
    // Such bins are few (a zero of the response landing on the grid), so they are listed.
    std::array<std::uint16_t, half + 1> zeros;
    std::size_t zeroCount = 0;
    for (std::size_t k = 0; k <= half; ++k)
        if (nearZero(X[k]))
            zeros[zeroCount++] = static_cast<std::uint16_t>(k);
    for (std::size_t z = 0; z < zeroCount; ++z) {
        const std::size_t k = zeros[z];
        re[k] = k == 0 ? X[1].real() : re[k - 1];
        im[k] = k == 0 ? X[1].imag() : im[k - 1];
    }
    // 20·log10|X| from the squared magnitude spares a square root.
    for (std::size_t k = 0; k <= half; ++k)
        power[k] = re[k] * re[k] + im[k] * im[k];
    decibelsOfPower(power, dB.first(half + 1));
    if (wantPhase)
        arctangentOfRatio(im, re, phase.first(half + 1));

    // Bins above fs/2 are the conjugates of those below: same dB, opposite phase;
    // a near-zero one takes its (already final) left neighbour instead.
    for (std::size_t k = half + 1; k < n; ++k)
        dB[k] = dB[n - k];
    if (wantPhase)
        for (std::size_t k = half + 1; k < n; ++k)
            phase[k] = -phase[n - k];
    for (std::size_t z = zeroCount; z-- > 0;) {
        const std::size_t k = n - zeros[z];
        if (k <= half || k >= n)
            continue;
        dB[k] = dB[k - 1];
        if (wantPhase)
            phase[k] = phase[k - 1];
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
