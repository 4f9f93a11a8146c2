// Signed sum and direct-form FIR stage of the Sum & Filter model.
#include "dsp/sum_and_filter.h"

#include <algorithm>
#include <vector>

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
    std::vector<double> acc(count, 0.0);
    std::vector<double> reversed(h.rbegin(), h.rend());
    // A short input reads as zeros past its end.
    std::vector<double> padded;
    if (input.size() < n) {
        padded.assign(n, 0.0);
        std::copy(input.begin(), input.end(), padded.begin());
        input = padded;
    }
    // Tap-outer order over cache-sized blocks: each output still sums its
    // products in tap order p = 0, 1, …, as the definition reads, but the
    // inner loop runs over outputs and vectorises.
    constexpr std::size_t kBlock = 1024;
    for (std::size_t b0 = 0; b0 < count; b0 += kBlock) {
        const std::size_t len = std::min(kBlock, count - b0);
        double* out = acc.data() + b0;
        for (std::size_t p = 0; p < taps; ++p) {
            const double c = reversed[p];
            const double* in = input.data() + b0 + p;
            for (std::size_t i = 0; i < len; ++i)
                out[i] += in[i] * c;
        }
    }
    std::copy(acc.begin(), acc.end(), y.begin());
    std::fill(y.begin() + static_cast<std::ptrdiff_t>(count), y.end(), 0.0);
}
