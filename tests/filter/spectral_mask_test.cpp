// Spectral masks: a designed low, band and high pass, measured by a direct
// sum of their coefficients (not our FFT), stay within 0.01 dB of 0 dB in
// the pass band and under -70 dB in the stop band; the response the model
// plots is that same measurement.
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "recording_filter_view.h"

namespace {

struct Band {
    double from, to; // normalised: 1 is half the sampling rate
};

struct Mask {
    const char* name;
    FilterParams p;
    std::vector<Band> pass, stop;
};

// |H| in dB at θ = k / 2048, the points the model plots.
double directDecibels(const std::vector<double>& c, std::size_t k)
{
    std::complex<double> sum = 0.0;
    const double w = std::numbers::pi * static_cast<double>(k) / 2048.0;
    for (std::size_t n = 0; n < c.size(); ++n)
        sum += c[n] * std::polar(1.0, -w * static_cast<double>(n));
    return 20.0 * std::log10(std::abs(sum));
}

bool inside(const std::vector<Band>& bands, double theta)
{
    for (const Band& b : bands)
        if (theta >= b.from && theta <= b.to)
            return true;
    return false;
}

} // namespace

using SpectralMask = FilterFixture;

TEST_F(SpectralMask, EachFilterTypeStaysInsideItsMask)
{
    // 101-tap Blackman designs (side lobes near -75 dB); width 0 is double, 5 is 16-bit.
    const Mask masks[] = {
        {"low pass", {.cutoff = 0.3}, {{0.0, 0.2}}, {{0.4, 1.0}}},
        {"low pass, 16-bit", {.cutoff = 0.3, .width = 5}, {{0.0, 0.2}}, {{0.4, 1.0}}},
        {"band pass", {.type = 1, .cutoff = 0.1, .center = 0.5}, {{0.47, 0.53}}, {{0.0, 0.3}, {0.7, 1.0}}},
        {"high pass", {.type = 2, .cutoff = 0.3}, {{0.4, 1.0}}, {{0.0, 0.2}}},
    };
    for (const Mask& m : masks) {
        SCOPED_TRACE(m.name);
        FilterParams p = m.p;
        p.length = 101;
        p.window = 1;
        design(p);
        ASSERT_TRUE(model.validResultsFlag());
        const std::vector<double>& c = model.filterPrecisionCoefficients();
        const std::vector<double>& plotted = model.dBmagAndPhaseArray();
        ASSERT_EQ(c.size(), 101u);
        ASSERT_EQ(plotted.size(), 8u + 2 * 2048u);
        int passPoints = 0, stopPoints = 0;
        for (std::size_t k = 0; k < 2048; ++k) {
            const double theta = static_cast<double>(k) / 2048.0;
            const double dB = directDecibels(c, k);
            if (dB > -110.0) {
                ASSERT_NEAR(plotted[8 + k], dB, 1e-3) << "θ " << theta;
            }
            if (inside(m.pass, theta)) {
                ASSERT_NEAR(dB, 0.0, 0.01) << "θ " << theta;
                ++passPoints;
            }
            if (inside(m.stop, theta)) {
                ASSERT_LT(dB, -70.0) << "θ " << theta;
                ++stopPoints;
            }
        }
        EXPECT_GT(passPoints, 100);
        EXPECT_GT(stopPoints, 400);
    }
}
