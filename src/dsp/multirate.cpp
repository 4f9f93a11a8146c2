// Multirate system: interpolation, decimation, the automatic low pass and a
// fused rate changer that skips the inserted zeros and the dropped outputs.
#include "dsp/multirate.h"

#include <algorithm>
#include <array>
#include <vector>

#include "dsp/fir_synthesis.h"
#include "dsp/sum_and_filter.h"
#include "dsp/window.h"

namespace {

constexpr int kMaxFactor = 16;
constexpr double kAutoFilterUpsilon = 3.5;  // 70 dB side-lobe ratio

double at(std::span<const double> x, std::size_t i)
{
    return i < x.size() ? x[i] : 0.0;
}

}  // namespace

bool interpolateSignal(std::span<const double> x, int L, std::span<double> u)
{
    std::fill(u.begin(), u.end(), 0.0);
    if (L < 1)
        return false;
    const auto step = static_cast<std::size_t>(L);
    for (std::size_t i = 0, j = 0; i < u.size(); i += step, ++j)
        u[i] = at(x, j);
    return true;
}

bool decimateSignal(std::span<const double> v, int M, std::span<double> y)
{
    std::vector<double> kept(y.size(), 0.0);
    if (M < 1) {
        std::fill(y.begin(), y.end(), 0.0);
        return false;
    }
    const auto step = static_cast<std::size_t>(M);
    for (std::size_t i = 0, j = 0; i < y.size(); i += step, ++j)
        kept[j] = at(v, i);
    std::copy(kept.begin(), kept.end(), y.begin());
    return true;
}

std::size_t autoFilterPassBins(int L, int M)
{
    const int top = std::max(L, M);
    if (top < 1)
        return 0;
    return static_cast<std::size_t>(((1.0 / top) * 255.0 + 1.0) * 0.5);
}

bool autoGenLPF(int L, int M, std::span<double> h)
{
    if (L < 1 || M < 1 || h.size() != kAutoFilterTaps)
        return false;
    constexpr std::size_t N = kAutoFilterTaps;
    const std::size_t k = autoFilterPassBins(L, M);
    std::array<double, N> ideal{};
    for (std::size_t i = 0; i <= k && i < N; ++i)
        ideal[i] = 1.0;
    for (std::size_t i = N - std::min(k, N); i < N; ++i)
        ideal[i] = 1.0;
    std::array<double, N> impulse{};
    std::array<double, N> window{};
    iDFTforSinc(ideal, impulse);
    cheby(kAutoFilterUpsilon, window);
    for (std::size_t i = 0; i < N; ++i)
        h[i] = window[i] * impulse[i];
    return true;
}

bool multirateSysOut(std::span<const double> x, std::span<const double> h, int L, int M,
                     std::span<double> y)
{
    std::fill(y.begin(), y.end(), 0.0);
    if (L < 1 || L > kMaxFactor || M < 1 || M > kMaxFactor)
        return false;
    if (L == 1 && M == 1) {
        for (std::size_t j = 0; j < y.size(); ++j)
            y[j] = at(x, j);
        return true;
    }
    const auto up = static_cast<std::size_t>(L);
    const auto down = static_cast<std::size_t>(M);
    const std::size_t taps = h.size();
    if (taps == 0)
        return true;
    // The high-rate sequence is L·n long; the filter stage leaves its last
    // 4⌈N_H/4⌉ samples zero and the decimator keeps every M-th of the rest.
    const std::size_t highRate = up * x.size();
    const std::size_t filtered = convolutionOutputLength(highRate, taps);
    const std::vector<double> reversed(h.rbegin(), h.rend());
    for (std::size_t j = 0; j < y.size(); ++j) {
        const std::size_t i = down * j;  // position in the filtered high-rate sequence
        if (i >= filtered)
            break;
        // Only taps that land on an inserted input sample contribute; they
        // are summed in the same tap order as the direct form.
        const std::size_t first = (up - i % up) % up;
        const double* in = x.data() + (i + first) / up;
        double acc = 0.0;
        for (std::size_t p = first; p < taps; p += up, ++in)
            acc += *in * reversed[p];
        y[j] = acc;
    }
    return true;
}
