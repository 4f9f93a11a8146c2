// Step response, group delay and zeros of FIR designs against hand values and
// the properties of linear-phase filters.
#include "dsp/design_views.h"

#include <algorithm>
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
    // Odd palindromes, one of even length (a zero at −1), antipalindromes of
    // both lengths (zeros at 1, and −1), 8-bit quantised, and no symmetry.
    const auto antisymmetric = [](int taps) {
        auto h = lowPass(taps, 0.33);
        for (int n = 0; n < taps / 2; ++n)
            h[size_t(taps - 1 - n)] = -h[size_t(n)];
        if (taps % 2)
            h[size_t(taps / 2)] = 0.0;
        return h;
    };
    auto quantised = lowPass(101, 0.2);
    for (double& v : quantised)
        v = std::round(v * 128.0) / 128.0;
    auto skewed = lowPass(41, 0.33);
    skewed[3] += 0.01;
    const struct {
        const char* name;
        std::vector<double> h;
        bool linearPhase;
    } cases[] = {
        {"25 taps", lowPass(25, 0.33), true},
        {"51 taps", lowPass(51, 0.33), true},
        {"255 taps", lowPass(255, 0.1), true},
        {"50 taps", lowPass(50, 0.33), true},
        {"antisymmetric 41", antisymmetric(41), true},
        {"antisymmetric 40", antisymmetric(40), true},
        {"8-bit", quantised, true},
        {"skewed", skewed, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<double>& h = c.h;
        const auto zeros = designviews::transferZeros(h);
        ASSERT_EQ(zeros.size(), h.size() - 1);
        for (const auto& z : zeros) {
            // 1/z is a zero too (on the unit circle it is the conjugate).
            double nearest = 1e300;
            for (const auto& w : zeros)
                nearest = std::min(nearest, std::abs(w - 1.0 / z));
            if (c.linearPhase) {
                EXPECT_LT(nearest, 1e-6 * std::max(1.0, std::abs(1.0 / z))) << z;
            }
        }
        // Each zero leaves H(z) at rounding level: Horner's sum against the
        // same sum of magnitudes, in z or 1/z, whichever is inside the circle.
        for (const auto& z : zeros) {
            if (std::isinf(z.real()))
                continue; // a leading zero tap
            const bool outside = std::abs(z) > 1.0;
            const std::complex<double> w = outside ? 1.0 / z : z;
            std::complex<double> sum;
            double scale = 0.0;
            for (size_t i = 0; i < h.size(); ++i) {
                const double tap = h[outside ? h.size() - 1 - i : i];
                sum = sum * w + tap;
                scale = scale * std::abs(w) + std::abs(tap);
            }
            EXPECT_LE(std::abs(sum), 1e-10 * scale) << z;
        }
        // h[first]·Π(z − r) over the finite zeros reproduces h from its
        // first nonzero tap, multiplied in Leja order (each next zero the
        // farthest from those taken) so the product itself keeps its digits.
        std::vector<std::complex<double>> left;
        for (const auto& z : zeros)
            if (!std::isinf(z.real()))
                left.push_back(z);
        const size_t first = h.size() - 1 - left.size();
        std::vector<std::complex<double>> taken;
        std::vector<std::complex<double>> poly{h[first]};
        while (!left.empty()) {
            const auto score = [&](std::complex<double> z) {
                double s = taken.empty() ? std::abs(z) : 0.0;
                for (const auto& t : taken)
                    s += std::log(std::abs(z - t) + 1e-300);
                return s;
            };
            const auto next = std::max_element(left.begin(), left.end(),
                                               [&](auto a, auto b) { return score(a) < score(b); });
            taken.push_back(*next);
            left.erase(next);
            poly.push_back(0.0);
            for (size_t k = poly.size() - 1; k > 0; --k)
                poly[k] -= taken.back() * poly[k - 1];
        }
        for (size_t n = first; n < h.size(); ++n)
            EXPECT_LT(std::abs(poly[n - first] - h[n]), 1e-12) << n;
    }
    // Trailing zeros are zeros at the origin; 1 − z⁻¹ has its zero at 1.
    const auto z = designviews::transferZeros(std::vector<double>{1.0, -1.0, 0.0});
    ASSERT_EQ(z.size(), 2u);
    EXPECT_NEAR(std::abs(z[0] - 1.0), 0.0, 1e-12);
    EXPECT_EQ(z[1], std::complex<double>(0.0, 0.0));
}
