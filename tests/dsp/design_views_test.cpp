// Step response, group delay and zeros of FIR designs against hand values and
// the properties of linear-phase filters.
#include "dsp/design_views.h"

#include <cmath>
#include <complex>
#include <numbers>

#include <gtest/gtest.h>

namespace {

// A Hamming-windowed low pass with cutoff `fc` (1 = fs/2), symmetric.
std::vector<double> lowPass(int taps, double fc)
{
    std::vector<double> h(static_cast<size_t>(taps));
    const double mid = (taps - 1) / 2.0;
    for (int n = 0; n < taps; ++n) {
        const double t = n - mid;
        const double sinc = t == 0.0 ? fc : std::sin(std::numbers::pi * fc * t) / (std::numbers::pi * t);
        h[size_t(n)] = sinc * (0.54 - 0.46 * std::cos(2.0 * std::numbers::pi * n / (taps - 1)));
    }
    return h;
}

double magnitudeAt(const std::vector<double>& h, double k)
{
    std::complex<double> sum;
    for (size_t n = 0; n < h.size(); ++n)
        sum += h[n] * std::polar(1.0, -2.0 * std::numbers::pi * k * double(n) / 4096.0);
    return std::abs(sum);
}

} // namespace

TEST(DesignViews, StepIsTheRunningSum)
{
    const std::vector<double> h{0.25, -1.0, 2.5, 0.0, 4.0};
    EXPECT_EQ(designviews::stepResponse(h), (std::vector<double>{0.25, -0.75, 1.75, 1.75, 5.75}));
    EXPECT_TRUE(designviews::stepResponse({}).empty());
}

TEST(DesignViews, GroupDelayOfLinearPhaseIsHalfTheLength)
{
    for (const int taps : {25, 51, 255}) {
        const auto h = lowPass(taps, 0.3);
        const auto delay = designviews::groupDelay(h);
        ASSERT_EQ(delay.size(), 2048u);
        double largest = 0.0;
        std::vector<double> mag(2048);
        for (int k = 0; k < 2048; ++k)
            largest = std::max(largest, mag[size_t(k)] = magnitudeAt(h, k));
        int checked = 0;
        for (int k = 0; k < 2048; ++k) {
            if (mag[size_t(k)] >= 1e-3 * largest) {
                EXPECT_NEAR(delay[size_t(k)], (taps - 1) / 2.0, 1e-6) << taps << " " << k;
                ++checked;
            }
            if (mag[size_t(k)] < 0.5e-6 * largest) {
                EXPECT_TRUE(std::isnan(delay[size_t(k)])) << taps << " " << k;
            }
        }
        EXPECT_GT(checked, 600);
    }
    // A pure delay of 3 samples.
    for (const double v : designviews::groupDelay(std::vector<double>{0, 0, 0, 2.0}, 10))
        EXPECT_NEAR(v, 3.0, 1e-12);
}

TEST(DesignViews, ZerosPairUpAndMultiplyOutToTheCoefficients)
{
    for (const int taps : {25, 41, 51}) {
        const auto h = lowPass(taps, 0.33);
        const auto zeros = designviews::transferZeros(h);
        ASSERT_EQ(zeros.size(), size_t(taps - 1));
        for (const auto& z : zeros) {
            // 1/z is a zero too (on the unit circle it is the conjugate).
            double nearest = 1e300;
            for (const auto& w : zeros)
                nearest = std::min(nearest, std::abs(w - 1.0 / z));
            EXPECT_LT(nearest, 1e-6 * std::max(1.0, std::abs(1.0 / z))) << taps << " " << z;
        }
        // h[0]·Π(z − r) reproduces h.
        std::vector<std::complex<double>> poly{h[0]};
        for (const auto& r : zeros) {
            poly.push_back(0.0);
            for (size_t i = poly.size() - 1; i > 0; --i)
                poly[i] -= r * poly[i - 1];
        }
        const double tolerance = 1e-9;
        for (size_t n = 0; n < h.size(); ++n) {
            EXPECT_LT(std::abs(poly[n] - h[n]), tolerance) << taps << " " << n;
        }
    }
    // Trailing zeros are zeros at the origin; 1 − z⁻¹ has its zero at 1.
    const auto z = designviews::transferZeros(std::vector<double>{1.0, -1.0, 0.0});
    ASSERT_EQ(z.size(), 2u);
    EXPECT_NEAR(std::abs(z[0] - 1.0), 0.0, 1e-12);
    EXPECT_EQ(z[1], std::complex<double>(0.0, 0.0));
}
