// Frequency response on a real FFT. Only bins 0..2048 are converted to dB and
// phase; the upper half, when wanted, is their conjugate mirror and is copied.
#include "dsp/frequency_response.h"

#include "dsp/contract.h"
#include "dsp/fast_elementary.h"
#include "dsp/real_fft.h"
#include "dsp/vector_kernels.h"

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

void fftFilterHalf(std::span<const double> c, std::span<double> dB, std::span<double> phase)
{
    constexpr std::size_t n = kResponsePoints;
    constexpr std::size_t half = n / 2;
    const std::size_t m = dB.size();
    const bool wantPhase = !phase.empty();
    if (!DSP_EXPECTS(!c.empty() && c.size() <= n && m > 0 && m <= half + 1 &&
                     (!wantPhase || phase.size() == m)))
        return;

    RealFft& fft = RealFft::ofSize(n);
    fft.executePadded(c);
    const auto X = fft.output();

    std::array<std::uint16_t, half + 1> zeros;
    const std::size_t zeroCount = decibelsAndPhaseOfBins(X.first(m), dB, phase, kNearZero, zeros);
    // A bin at (numerically) zero has no usable dB or phase: it takes its left
    // neighbour's value, bin 0 its right one, scanning upward (so bin 0 gets bin 1's
    // own value even when bin 1 is near zero too).
    for (std::size_t z = 0; z < zeroCount; ++z) {
        const std::size_t k = zeros[z];
        if (k == 0 && m == 1) {
            std::uint16_t ignored[1];
            decibelsAndPhaseOfBins(X.subspan(1, 1), dB, phase, kNearZero, ignored);
            continue;
        }
        const std::size_t from = k == 0 ? 1 : k - 1;
        dB[k] = dB[from];
        if (wantPhase)
            phase[k] = phase[from];
    }
}

void fftFilter(std::span<const double> c, std::span<double> dB, std::span<double> phase)
{
    constexpr std::size_t n = kResponsePoints;
    constexpr std::size_t half = n / 2;
    const bool wantPhase = !phase.empty();
    if (!DSP_EXPECTS(!c.empty() && c.size() <= n && dB.size() == n && (!wantPhase || phase.size() == n)))
        return;
    fftFilterHalf(c, dB.first(half + 1), wantPhase ? phase.first(half + 1) : std::span<double>{});

    // Bins above fs/2 are the conjugates of those below: same dB, opposite phase;
    // a near-zero one takes its (already final) left neighbour instead.
    for (std::size_t k = half + 1; k < n; ++k)
        dB[k] = dB[n - k];
    if (wantPhase)
        for (std::size_t k = half + 1; k < n; ++k)
            phase[k] = -phase[n - k];
    const auto X = RealFft::ofSize(n).output();
    for (std::size_t k = half + 1; k < n; ++k) {
        if (!nearZero(X[n - k]))
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
    if (!DSP_EXPECTS(n >= 5 && n <= kResponsePoints && P.size() >= n && D.size() >= n))
        return range;
    vector_kernels::unwrap(P.first(n), D.first(n), U);
    rangeOf(U, range.largest, range.smallest);
    return range;
}
