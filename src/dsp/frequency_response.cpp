// Frequency response on a real FFT. Only bins 0..2048 are converted to dB and
// phase; the upper half, when wanted, is their conjugate mirror and is copied.
#include "dsp/frequency_response.h"

#include "dsp/fast_elementary.h"
#include "dsp/real_fft.h"
#include "dsp/vector_dispatch.h"
#include "dsp/vector_lanes.h"

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
        // linear-phase jump of π. Steps are counted in whole turns of π (whole numbers
        // held as doubles) so the running sum carries no rounding.
        std::array<double, kResponsePoints> step;
        for (std::size_t j = 0; j + 1 < n; ++j) {
            const double up = P[j + 1] > P[j] ? 1.0 : 0.0;
            const double down = P[j + 1] <= P[j] ? 1.0 : 0.0;
            const bool notch = (R[j] == 0.0) & (R[j + 1] > 0.0) & (R[j + 2] >= 0.5) & (R[j + 2] > R[j + 3]);
            step[j] = notch ? down : -up;
        }
        for (std::size_t j : {std::size_t{0}, std::size_t{1}, n - 3, n - 2})
            step[j] = P[j + 1] > P[j] ? -1.0 : 0.0; // no notch at the ends
        // U[j + 1] = P[j + 1] + π·(step[0] + … + step[j]), a vector of running sums at a time.
        using L = vector_dispatch::Lanes<Bytes>;
        constexpr double pi = std::numbers::pi;
        U[0] = P[0];
        typename L::V turns = L::splat(0.0);
        std::size_t j = 0;
        for (; j + L::count < n; j += L::count) {
            const typename L::V sums = L::runningSum(L::load(step.data() + j));
            L::store(U.data() + j + 1, L::load(P.data() + j + 1) + (turns + sums) * pi);
            turns += L::lastLane(sums);
        }
        double last = turns[0];
        for (; j + 1 < n; ++j) {
            last += step[j];
            U[j + 1] = P[j + 1] + last * pi;
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
