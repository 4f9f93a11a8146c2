// Frequency response on a real FFT. Only bins 0..2048 are converted to dB and
// phase; the upper half, when wanted, is their conjugate mirror and is copied.
#include "dsp/frequency_response.h"

#include "dsp/fast_elementary.h"
#include "dsp/real_fft.h"
#include "dsp/vector_dispatch.h"

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
    if (c.empty() || c.size() > n || m == 0 || m > half + 1 || (wantPhase && phase.size() != m))
        return;

    RealFft& fft = RealFft::ofSize(n);
    auto in = fft.input();
    std::copy(c.begin(), c.end(), in.begin());
    std::fill(in.begin() + static_cast<std::ptrdiff_t>(c.size()), in.end(), 0.0);
    fft.execute();
    const auto X = fft.output();

    // One pass splits the bins and lists those near zero.
    std::array<double, half + 1> re, im, power;
    std::array<std::uint16_t, half + 1> zeros;
    const std::size_t zeroCount = splitBins(X.first(m), std::span(re).first(m), std::span(im).first(m),
                                            std::span(power).first(m), kNearZero, zeros);
    // A bin at (numerically) zero has no usable dB or phase: it borrows its left
    // neighbour's value, bin 0 its right one, scanning upward.
    for (std::size_t z = 0; z < zeroCount; ++z) {
        const std::size_t k = zeros[z];
        re[k] = k == 0 ? X[1].real() : re[k - 1];
        im[k] = k == 0 ? X[1].imag() : im[k - 1];
        // 20·log10|X| from the squared magnitude spares a square root.
        power[k] = re[k] * re[k] + im[k] * im[k];
    }
    decibelsOfPower(std::span<const double>(power.data(), m), dB);
    if (wantPhase)
        arctangentOfRatio(std::span<const double>(im.data(), m), std::span<const double>(re.data(), m),
                          phase);
}

void fftFilter(std::span<const double> c, std::span<double> dB, std::span<double> phase)
{
    constexpr std::size_t n = kResponsePoints;
    constexpr std::size_t half = n / 2;
    const bool wantPhase = !phase.empty();
    if (c.empty() || c.size() > n || dB.size() != n || (wantPhase && phase.size() != n))
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

namespace {

// The loops vectorise at whatever width the dispatcher compiles them for.
struct Unwrap {
    template <std::size_t Bytes>
    [[gnu::always_inline]] static PhaseRange run(std::span<const double> P, std::span<const double> D,
                                                 std::span<double> U)
    {
        const std::size_t n = U.size();
        PhaseRange range;
        if (n < 5 || n > kResponsePoints || P.size() < n || D.size() < n)
            return range;

        // Rises of the magnitude between neighbouring points; falls and NaN count as 0.
        std::array<double, kResponsePoints + 4> R;
        R[0] = 0.0;
        for (std::size_t j = 0; j + 1 < n; ++j) {
            const double rise = D[j + 1] - D[j];
            R[j + 1] = rise >= 0.0 ? rise : 0.0;
        }
        R[n] = R[n + 1] = R[n + 2] = 0.0;
        // A notch at i (2 ≤ i < n − 3): the magnitude stops falling, then climbs by at
        // least 0.5 dB a point, slowing down. Away from a notch every upward step of
        // the wrapped phase is a wrap by π; across a notch a downward step is the
        // linear-phase jump of π. Steps are counted in whole turns of π so the running
        // sum carries no rounding.
        std::array<int, kResponsePoints> step;
        for (std::size_t j = 0; j + 1 < n; ++j) {
            const double up = P[j + 1] > P[j] ? 1.0 : 0.0;
            const double down = P[j + 1] <= P[j] ? 1.0 : 0.0;
            const bool notch = (R[j] == 0.0) & (R[j + 1] > 0.0) & (R[j + 2] >= 0.5) & (R[j + 2] > R[j + 3]);
            step[j] = static_cast<int>(notch ? down : -up);
        }
        for (std::size_t j : {std::size_t{0}, std::size_t{1}, n - 3, n - 2})
            step[j] = P[j + 1] > P[j] ? -1 : 0; // no notch at the ends
        constexpr double pi = std::numbers::pi;
        U[0] = P[0];
        int turns = 0;
        for (std::size_t j = 0; j + 1 < n; ++j) {
            turns += step[j];
            U[j + 1] = P[j + 1] + static_cast<double>(turns) * pi;
        }
        double largest = U[0], smallest = U[0];
        rangeOf(U.first(n), largest, smallest);
        range.largest = largest;
        range.smallest = smallest;
        return range;
    }
};

} // namespace

PhaseRange unwrapPhase(std::span<const double> P, std::span<const double> D, std::span<double> U)
{
    return vector_dispatch::run<Unwrap>(P, D, U);
}
