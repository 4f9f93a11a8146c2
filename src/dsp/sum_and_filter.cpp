// Signed sum and direct-form FIR stage of the Sum & Filter model.
#include "dsp/sum_and_filter.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

// Two doubles in one SSE register (GCC/Clang vector extension).
using Pair = double __attribute__((vector_size(16)));

Pair loadPair(const double* p)
{
    Pair v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

void storePair(double* p, Pair v)
{
    std::memcpy(p, &v, sizeof v);
}

} // namespace

double signMultiplier(int signCode)
{
    return signCode == 0 ? 1.0 : signCode == 1 ? -1.0 : 0.0;
}

void sumTwoSignals(std::span<const double> x1, std::span<const double> x2, int sign1, int sign2,
                   std::span<double> x)
{
    const std::size_t n = x.size();
    // A left-out term is zero rather than 0·x, so inf or NaN in an unused
    // signal cannot leak into the sum.
    for (std::size_t i = 0; i < n; ++i) {
        const double v1 = i < x1.size() ? x1[i] : 0.0;
        const double v2 = i < x2.size() ? x2[i] : 0.0;
        const double a = sign1 == 0 ? v1 : sign1 == 1 ? -v1 : 0.0;
        const double b = sign2 == 0 ? v2 : sign2 == 1 ? -v2 : 0.0;
        x[i] = a + b;
    }
}

std::size_t convolutionOutputLength(std::size_t n, std::size_t taps)
{
    const std::size_t padded = (taps + 3) / 4 * 4;
    return n > padded ? n - padded : 0;
}

void convolutionSysOut(std::span<const double> input, std::span<const double> h, std::span<double> y)
{
    const std::size_t n = y.size();
    const std::size_t taps = h.size();
    const std::size_t count = taps == 0 ? 0 : convolutionOutputLength(n, taps);
    std::vector<double> reversed(h.rbegin(), h.rend());
    // A short input reads as zeros past its end; an input that shares
    // memory with y is copied before y is written.
    std::vector<double> padded;
    const bool overlaps = input.data() < y.data() + n && y.data() < input.data() + input.size();
    if (input.size() < n || overlaps) {
        padded.assign(std::max(n, input.size()), 0.0);
        std::copy(input.begin(), input.end(), padded.begin());
        input = padded;
    }
    // Eight outputs at a time, one per register lane; each lane sums its
    // products in tap order p = 0, 1, …, exactly as the definition reads.
    const double* in = input.data();
    const double* c = reversed.data();
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8) {
        Pair a0{}, a1{}, a2{}, a3{};
        const double* x = in + i;
        for (std::size_t p = 0; p < taps; ++p) {
            const Pair tap = {c[p], c[p]};
            a0 += loadPair(x + p) * tap;
            a1 += loadPair(x + p + 2) * tap;
            a2 += loadPair(x + p + 4) * tap;
            a3 += loadPair(x + p + 6) * tap;
        }
        storePair(y.data() + i, a0);
        storePair(y.data() + i + 2, a1);
        storePair(y.data() + i + 4, a2);
        storePair(y.data() + i + 6, a3);
    }
    for (; i < count; ++i) {
        double acc = 0.0;
        for (std::size_t p = 0; p < taps; ++p)
            acc += in[i + p] * c[p];
        y[i] = acc;
    }
    std::fill(y.begin() + static_cast<std::ptrdiff_t>(count), y.end(), 0.0);
}
