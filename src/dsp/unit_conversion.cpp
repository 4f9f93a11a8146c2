// Unit handling of the project model.
#include "dsp/unit_conversion.h"

#include "dsp/contract.h"

#include <algorithm>

namespace {

void copyScaled(std::span<const double> in, double divisor, std::span<double> out)
{
    const std::size_t n = out.size();
    if (!DSP_EXPECTS(in.size() == n))
        return;
    for (std::size_t i = 0; i < n; ++i)
        out[i] = in[i] / divisor;
}

} // namespace

int voltUnits(std::span<const double> x1, std::span<const double> x2, int code1, int code2,
              std::span<double> x1Out, std::span<double> x2Out)
{
    if (code1 == code2) {
        copyScaled(x1, 1.0, x1Out);
        copyScaled(x2, 1.0, x2Out);
        return code1;
    }
    copyScaled(x1, code1 == 1 ? 1000.0 : 1.0, x1Out);
    copyScaled(x2, code1 == 1 ? 1.0 : 1000.0, x2Out);
    return 0;
}

FreqUnitsChoice freqUnits(int code1, int code2, double maxFreq1, double maxFreq2, int sign1, int sign2)
{
    const bool one = sign1 != 2;
    const bool two = sign2 != 2;
    if (one && !two)
        return {code1, maxFreq1};
    if (two && !one)
        return {code2, maxFreq2};
    if (!one && !two)
        return {code1, maxFreq1};
    if (code1 == code2)
        return {code1, std::max(maxFreq1, maxFreq2)};
    const double mhz1 = code1 == 1 ? maxFreq1 / 1000.0 : maxFreq1;
    const double mhz2 = code2 == 1 ? maxFreq2 / 1000.0 : maxFreq2;
    return {0, std::max(mhz1, mhz2)};
}

int rescale(std::span<const double> y, int commonCode, std::span<double> yOut)
{
    const std::size_t n = yOut.size();
    if (!DSP_EXPECTS(y.size() == n))
        return commonCode;
    const double largest =
        n == 0 ? 0.0 : *std::max_element(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
    if (commonCode == 0 && largest < 1.0) {
        for (std::size_t i = 0; i < n; ++i)
            yOut[i] = y[i] * 1000.0;
        return 1;
    }
    copyScaled(y, 1.0, yOut);
    return commonCode;
}
