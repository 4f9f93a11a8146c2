// Window-method FIR synthesis. The inverse transforms are direct cosine sums;
// they use a table of cos(2πm/N) indexed by (k·i) mod N and the even symmetry
// of real spectra (X[i] and X[N−i] share a cosine) so a design stays cheap.
#include "dsp/fir_synthesis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

std::size_t passbandCount(std::size_t N, double theta)
{
    const double m = std::floor((static_cast<double>(N) * theta + 1.0) * 0.5);
    if (!(m > 0.0))
        return 0;
    const double limit = static_cast<double>(N / 2);
    return static_cast<std::size_t>(std::min(m, limit));
}

void idealLowPassSamples(std::size_t M, std::span<double> H)
{
    const std::size_t N = H.size();
    std::fill(H.begin(), H.end(), 0.0);
    if (N == 0)
        return;
    M = std::min(M, (N - 1) / 2);
    for (std::size_t k = 0; k <= M; ++k)
        H[k] = 1.0;
    for (std::size_t k = N - M; k < N; ++k)
        H[k] = 1.0;
}

void inverseDFT(std::span<const double> X, std::span<double> x)
{
    const std::size_t N = X.size();
    if (N == 0 || N > kFirMaxTaps || x.size() != N)
        return;

    std::array<double, kFirMaxTaps> table;
    for (std::size_t m = 0; m < N; ++m)
        table[m] = std::cos(2.0 * std::numbers::pi * static_cast<double>(m) / static_cast<double>(N));

    // x[k] = x[N−k], so only k = 0..N/2 is summed; bins i and N−i are paired.
    const std::size_t K = N / 2;
    std::array<double, kFirMaxTaps> acc;
    std::fill(acc.begin(), acc.begin() + K + 1, X[0]);
    const std::size_t pairs = (N - 1) / 2;
    for (std::size_t i = 1; i <= pairs; ++i) {
        const double p = X[i] + X[N - i];
        if (p == 0.0)
            continue;
        std::size_t idx = 0;
        for (std::size_t k = 0; k <= K; ++k) {
            acc[k] += p * table[idx];
            idx += i;
            if (idx >= N)
                idx -= N;
        }
    }
    if (N % 2 == 0) {
        const double nyquist = X[N / 2];
        for (std::size_t k = 0; k <= K; ++k)
            acc[k] += (k % 2 == 0) ? nyquist : -nyquist;
    }
    const double n = static_cast<double>(N);
    for (std::size_t k = 0; k <= K; ++k)
        x[k] = acc[k] / n;
    for (std::size_t k = K + 1; k < N; ++k)
        x[k] = x[N - k];
}

void iDFTforSinc(std::span<const double> H, std::span<double> h)
{
    const std::size_t N = H.size();
    if (N == 0 || N % 2 == 0 || N > kFirMaxTaps || h.size() != N)
        return;
    std::array<double, kFirMaxTaps> s;
    inverseDFT(H, std::span<double>(s.data(), N));
    const std::size_t half = (N - 1) / 2;
    for (std::size_t k = 0; k < N; ++k)
        h[(k + half) % N] = s[k];
}

void cosineTerm(double a, double omega, std::span<const double> u, std::span<double> out)
{
    const std::size_t n = std::min(u.size(), out.size());
    for (std::size_t i = 0; i < n; ++i)
        out[i] = a * std::cos(omega * u[i]);
}

void winSync(std::span<const double> h, std::span<const double> w, std::span<double> hw)
{
    const std::size_t N = h.size();
    if (N == 0 || w.size() != N || hw.size() != N)
        return;
    double maxH = h[0];
    double maxP = w[0] * h[0];
    for (std::size_t n = 0; n < N; ++n) {
        hw[n] = w[n] * h[n];
        maxH = std::max(maxH, h[n]);
        maxP = std::max(maxP, hw[n]);
    }
    // A window that wipes out every positive tap has no peak to restore.
    const double scale = (maxP != 0.0 && std::isfinite(maxP)) ? maxH / maxP : 1.0;
    for (std::size_t n = 0; n < N; ++n)
        hw[n] *= scale;
}

void filt(int type, double theta0, std::span<const double> hw, std::span<double> c)
{
    const std::size_t N = hw.size();
    if (c.size() != N)
        return;
    std::fill(c.begin(), c.end(), 0.0);
    switch (type) {
    case kFilterLowPass:
        std::copy(hw.begin(), hw.end(), c.begin());
        break;
    case kFilterBandPass: {
        // r aligns the modulation with the centre tap; halves go to the even neighbour.
        const double r = std::remainder(static_cast<double>(N - 1) * theta0, 1.0);
        const double phase = std::numbers::pi / 2.0 * r;
        for (std::size_t n = 0; n < N; ++n)
            c[n] = 2.0 * std::cos(std::numbers::pi * theta0 * static_cast<double>(n) - phase) * hw[n];
        break;
    }
    case kFilterHighPass:
        // −cos(πn) is exactly −1 for even n and +1 for odd n.
        for (std::size_t n = 0; n < N; ++n)
            c[n] = (n % 2 == 0) ? -hw[n] : hw[n];
        break;
    default:
        break;
    }
}
