// The vectorised logarithm and arctangent against the C library over wide
// ranges, odd lengths (the scalar tail) and special values.
#include "dsp/fast_elementary.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

TEST(FastElementary, DecibelsMatchLog10)
{
    std::mt19937_64 gen(5);
    std::uniform_real_distribution<double> exponent(-300.0, 300.0);
    std::vector<double> p(10007);
    for (double& v : p)
        v = std::pow(10.0, exponent(gen));
    const double special[] = {1.0,
                              2.0,
                              0.5,
                              std::sqrt(2.0),
                              std::nextafter(std::sqrt(2.0), 2.0),
                              DBL_MIN,
                              DBL_MAX,
                              0.0,
                              1e-310,
                              std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(),
                              -1.0};
    p.insert(p.end(), std::begin(special), std::end(special));
    std::vector<double> dB(p.size());
    decibelsOfPower(p, dB);
    for (std::size_t i = 0; i < p.size(); ++i) {
        const double ref = 10.0 * std::log10(p[i]);
        if (std::isnan(ref))
            ASSERT_TRUE(std::isnan(dB[i])) << p[i];
        else if (std::isinf(ref))
            ASSERT_EQ(dB[i], ref) << p[i];
        else
            ASSERT_NEAR(dB[i], ref, 1e-15 * std::max(1.0, std::fabs(ref))) << p[i];
    }
}

TEST(FastElementary, ArctangentMatchesAtanOfTheRatio)
{
    std::mt19937_64 gen(9);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<double> y, x;
    for (int i = 0; i < 10003; ++i) {
        y.push_back(u(gen) * std::pow(10.0, 6.0 * u(gen)));
        x.push_back(u(gen) * std::pow(10.0, 6.0 * u(gen)));
    }
    const double inf = std::numeric_limits<double>::infinity();
    const double specials[][2] = {{0.0, 1.0},  {-0.0, 1.0}, {1.0, 0.0}, {1.0, -0.0},
                                  {-1.0, 0.0}, {0.0, 0.0},  {1.0, 1.0}, {-1.0, 1.0},
                                  {inf, 1.0},  {1.0, inf},  {inf, inf}, {2.414213562373095, 1.0},
                                  {0.66, 1.0}};
    for (const auto& s : specials) {
        y.push_back(s[0]);
        x.push_back(s[1]);
    }
    std::vector<double> out(y.size());
    arctangentOfRatio(y, x, out);
    for (std::size_t i = 0; i < y.size(); ++i) {
        const double ref = std::atan(y[i] / x[i]);
        if (std::isnan(ref))
            ASSERT_TRUE(std::isnan(out[i])) << y[i] << "/" << x[i];
        else
            ASSERT_NEAR(out[i], ref, 4e-16 * std::max(1e-300, std::fabs(ref))) << y[i] << "/" << x[i];
    }
    // Odd in y, so the mirrored half of a spectrum gets exactly the negated phase.
    std::vector<double> negY(y.size()), outNeg(y.size());
    for (std::size_t i = 0; i < y.size(); ++i)
        negY[i] = -y[i];
    arctangentOfRatio(negY, x, outNeg);
    for (std::size_t i = 0; i < y.size(); ++i) {
        if (!std::isnan(out[i])) {
            ASSERT_EQ(outNeg[i], -out[i]);
        }
    }
}
