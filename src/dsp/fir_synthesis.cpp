// Window-method FIR synthesis. The inverse transforms are direct cosine sums;
// they use a table of cos(2πm/N) indexed by (k·i) mod N and the even symmetry
// of real spectra (X[i] and X[N−i] share a cosine) so a design stays cheap.
#include "dsp/fir_synthesis.h"

#include "dsp/contract.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

namespace {

// Per length N: cos(2πm/N) for m < N, sin(πm/N) for m < 2N, and 1/(2·sin(πk/N)).
// Built once per length; designs keep asking for the same few.
struct Tables {
    std::vector<double> cosine, sine, halfCosecant;
};

const Tables& tablesFor(std::size_t N)
{
    thread_local std::array<Tables, kFirMaxTaps + 1> cache;
    Tables& t = cache[N];
    if (t.cosine.empty()) {
        const double n = static_cast<double>(N);
        t.cosine.resize(N);
        t.sine.resize(2 * N);
        t.halfCosecant.resize(N / 2 + 1);
        for (std::size_t m = 0; m < N; ++m)
            t.cosine[m] = std::cos(2.0 * std::numbers::pi * static_cast<double>(m) / n);
        for (std::size_t m = 0; m < 2 * N; ++m)
            t.sine[m] = std::sin(std::numbers::pi * static_cast<double>(m) / n);
        for (std::size_t k = 1; k <= N / 2; ++k)
            t.halfCosecant[k] = 1.0 / (2.0 * t.sine[k]);
    }
    return t;
}

// Runs of equal bins at least this long are summed in closed form.
constexpr std::size_t kClosedFormRun = 4;

} // namespace

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
    if (!DSP_EXPECTS(N > 0 && N <= kFirMaxTaps))
        return;
    std::fill(H.begin(), H.end(), 0.0);
    M = std::min(M, (N - 1) / 2);
    for (std::size_t k = 0; k <= M; ++k)
        H[k] = 1.0;
    for (std::size_t k = N - M; k < N; ++k)
        H[k] = 1.0;
}

void inverseDFT(std::span<const double> X, std::span<double> x)
{
    const std::size_t N = X.size();
    if (!DSP_EXPECTS(N > 0 && N <= kFirMaxTaps && x.size() == N))
        return;

    const Tables& t = tablesFor(N);

    // x[k] = x[N−k], so only k = 0..N/2 is summed; bins i and N−i share a cosine.
    const std::size_t K = N / 2;
    std::array<double, kFirMaxTaps> acc;
    std::fill(acc.begin(), acc.begin() + K + 1, X[0]);
    const std::size_t pairs = (N - 1) / 2;
    std::size_t a = 1;
    while (a <= pairs) {
        const double p = X[a] + X[N - a];
        std::size_t b = a;
        while (b + 1 <= pairs && X[b + 1] + X[N - b - 1] == p)
            ++b;
        if (p != 0.0 && b - a + 1 >= kClosedFormRun) {
            // Σ_{i=a..b} cos(iθ) = (sin((b+½)θ) − sin((a−½)θ)) / (2·sin(θ/2)), θ = 2πk/N:
            // the sines are sin(πm/N) with m = k(2b+1) and k(2a−1) taken mod 2N.
            acc[0] += p * static_cast<double>(b - a + 1);
            const std::size_t stepHigh = (2 * b + 1) % (2 * N);
            const std::size_t stepLow = (2 * a - 1) % (2 * N);
            std::size_t high = 0, low = 0;
            for (std::size_t k = 1; k <= K; ++k) {
                high += stepHigh;
                if (high >= 2 * N)
                    high -= 2 * N;
                low += stepLow;
                if (low >= 2 * N)
                    low -= 2 * N;
                acc[k] += p * ((t.sine[high] - t.sine[low]) * t.halfCosecant[k]);
            }
        } else if (p != 0.0) {
            for (std::size_t i = a; i <= b; ++i) {
                std::size_t idx = 0;
                for (std::size_t k = 0; k <= K; ++k) {
                    acc[k] += p * t.cosine[idx];
                    idx += i;
                    if (idx >= N)
                        idx -= N;
                }
            }
        }
        a = b + 1;
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
    if (!DSP_EXPECTS(N % 2 == 1 && N <= kFirMaxTaps && h.size() == N))
        return;
    std::array<double, kFirMaxTaps> s;
    inverseDFT(H, std::span<double>(s.data(), N));
    // h[(k + half) mod N] = s[k]: a rotation.
    const std::size_t half = (N - 1) / 2;
    std::rotate_copy(s.begin(), s.begin() + static_cast<std::ptrdiff_t>(N - half),
                     s.begin() + static_cast<std::ptrdiff_t>(N), h.begin());
}

void cosineTerm(double a, double omega, std::span<const double> u, std::span<double> out)
{
    const std::size_t n = out.size();
    if (!DSP_EXPECTS(u.size() == n))
        return;
    for (std::size_t i = 0; i < n; ++i)
        out[i] = a * std::cos(omega * u[i]);
}

void winSync(std::span<const double> h, std::span<const double> w, std::span<double> hw)
{
    const std::size_t N = h.size();
    if (!DSP_EXPECTS(N > 0 && N <= kFirMaxTaps && w.size() == N && hw.size() == N))
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
    if (!DSP_EXPECTS(c.size() == N && N % 2 == 1 && N <= kFirMaxTaps))
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
        const double step = std::numbers::pi * theta0;
        // The modulation turns by a fixed angle per tap: rotate a phasor and start
        // it afresh every 32 taps, which keeps it within ~1e-14 of cos(). The blocks
        // of 32 are independent, so they advance side by side.
        constexpr std::size_t kBlock = 32;
        const std::size_t blocks = (N + kBlock - 1) / kBlock;
        const double turnRe = std::cos(step), turnIm = std::sin(step);
        std::array<double, kFirMaxTaps / kBlock> re, im;
        for (std::size_t b = 0; b < blocks; ++b) {
            re[b] = std::cos(step * static_cast<double>(b * kBlock) - phase);
            im[b] = std::sin(step * static_cast<double>(b * kBlock) - phase);
        }
        for (std::size_t o = 0; o < kBlock; ++o)
            for (std::size_t b = 0; b < blocks; ++b) {
                const std::size_t n = b * kBlock + o;
                if (n < N)
                    c[n] = 2.0 * re[b] * hw[n];
                const double nextRe = re[b] * turnRe - im[b] * turnIm;
                im[b] = re[b] * turnIm + im[b] * turnRe;
                re[b] = nextRe;
            }
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
