// Multirate system: interpolation, decimation, the automatic low pass and a
// fused rate changer that skips the inserted zeros and the dropped outputs.
#include "dsp/multirate.h"

#include "dsp/contract.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <vector>

#include "dsp/fir_synthesis.h"
#include "dsp/sum_and_filter.h"
#include "dsp/window.h"

namespace {

constexpr int kMaxFactor = 16;
constexpr double kAutoFilterUpsilon = 3.5; // 70 dB side-lobe ratio

double at(std::span<const double> x, std::size_t i)
{
    return i < x.size() ? x[i] : 0.0;
}

// Two doubles in one SSE register (GCC/Clang vector extension).
using Pair = double __attribute__((vector_size(16)));

Pair loadPair(const double* p)
{
    Pair v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

double dot(const double* h, const double* x, std::size_t taps)
{
    double acc = 0.0;
    for (std::size_t t = 0; t < taps; ++t)
        acc += x[t] * h[t];
    return acc;
}

// Four dot products of the taps h with x0, x0 + stride, x0 + 2·stride and
// x0 + 3·stride, two taps per step. out[k·outStride] receives the k-th.
void dot4(const double* h, std::size_t taps, const double* x0, std::size_t stride, double* out,
          std::size_t outStride)
{
    const double* x1 = x0 + stride;
    const double* x2 = x1 + stride;
    const double* x3 = x2 + stride;
    Pair a0{}, a1{}, a2{}, a3{};
    std::size_t t = 0;
    for (; t + 2 <= taps; t += 2) {
        const Pair c = loadPair(h + t);
        a0 += loadPair(x0 + t) * c;
        a1 += loadPair(x1 + t) * c;
        a2 += loadPair(x2 + t) * c;
        a3 += loadPair(x3 + t) * c;
    }
    double s0 = a0[0] + a0[1], s1 = a1[0] + a1[1], s2 = a2[0] + a2[1], s3 = a3[0] + a3[1];
    if (t < taps) {
        s0 += x0[t] * h[t];
        s1 += x1[t] * h[t];
        s2 += x2[t] * h[t];
        s3 += x3[t] * h[t];
    }
    out[0] = s0;
    out[outStride] = s1;
    out[2 * outStride] = s2;
    out[3 * outStride] = s3;
}

} // namespace

bool interpolateSignal(std::span<const double> x, int L, std::span<double> u)
{
    std::vector<double> copy;
    if (x.data() < u.data() + u.size() && u.data() < x.data() + x.size()) {
        copy.assign(x.begin(), x.end());
        x = copy;
    }
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
    if (!DSP_EXPECTS(h.size() == kAutoFilterTaps) || L < 1 || M < 1)
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

bool multirateSysOut(std::span<const double> x, std::span<const double> h, int L, int M, std::span<double> y)
{
    std::vector<double> copy;
    if (x.data() < y.data() + y.size() && y.data() < x.data() + x.size()) {
        copy.assign(x.begin(), x.end());
        x = copy;
    }
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
    // 4⌈N_H/4⌉ samples zero and the decimator keeps every M-th of the rest,
    // so output j is filtered sample M·j while M·j < filtered.
    const std::size_t highRate = up * x.size();
    const std::size_t filtered = convolutionOutputLength(highRate, taps);
    const std::size_t outputs = std::min(y.size(), (filtered + down - 1) / down);
    const std::vector<double> reversed(h.rbegin(), h.rend());

    // Outputs j and j + P (P = L / gcd(L, M)) meet the same taps — only those
    // landing on an input sample, every L-th — with the input moved on by
    // M / gcd(L, M) samples. Each such phase is a short strided correlation.
    const std::size_t g = std::gcd(up, down);
    const std::size_t phases = up / g;
    const std::size_t advance = down / g;
    std::vector<double> phaseTaps((taps + up - 1) / up);
    for (std::size_t r = 0; r < phases && r < outputs; ++r) {
        const std::size_t i = down * r;
        const std::size_t first = (up - i % up) % up; // first tap on an input sample
        if (first >= taps)
            continue; // no tap lands on an input: these outputs are zero
        std::size_t count = 0;
        for (std::size_t p = first; p < taps; p += up)
            phaseTaps[count++] = reversed[p];
        const double* in = x.data() + (i + first) / up;
        const std::size_t blocks = (outputs - r + phases - 1) / phases;
        double* out = y.data() + r;
        std::size_t q = 0;
        for (; q + 4 <= blocks; q += 4)
            dot4(phaseTaps.data(), count, in + q * advance, advance, out + q * phases, phases);
        for (; q < blocks; ++q)
            out[q * phases] = dot(phaseTaps.data(), in + q * advance, count);
    }
    return true;
}

bool multirateStages(std::span<const double> x, std::span<const double> h, int L, int M, std::span<double> w,
                     std::span<double> p)
{
    std::fill(w.begin(), w.end(), 0.0);
    std::fill(p.begin(), p.end(), 0.0);
    if (L < 1 || L > kMaxFactor || M < 1 || M > kMaxFactor)
        return false;
    if (L == 1 && M == 1) {
        for (std::size_t i = 0; i < w.size(); ++i)
            w[i] = at(x, i);
        for (std::size_t i = 0; i < p.size(); ++i)
            p[i] = at(x, i);
        return true;
    }
    const std::size_t highRate = static_cast<std::size_t>(L) * x.size();
    interpolateSignal(x, L, w.first(std::min(w.size(), highRate)));
    if (h.empty())
        return true;
    // convolutionSysOut zeroes its last 4⌈N_H/4⌉ outputs; a prefix of that
    // length past the wanted outputs gives them exactly, and when the whole
    // sequence is shorter it is formed in full, zero tail included.
    const std::size_t tail = 4 * ((h.size() + 3) / 4);
    const std::size_t formed = std::min(highRate, p.size() + tail);
    std::vector<double> u(formed);
    interpolateSignal(x, L, u);
    convolutionSysOut(u, h, u);
    std::copy_n(u.begin(), std::min(formed, p.size()), p.begin());
    return true;
}
