// The vectorised logarithm and arctangent against the C library over wide
// ranges, odd lengths (the scalar tail) and special values, at every vector
// width the machine runs (each width is separately compiled code).
#include "dsp/fast_elementary.h"

#include "dsp/vector_dispatch.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

using vector_dispatch::Width;

class FastElementary : public ::testing::TestWithParam<Width> {
protected:
    void SetUp() override
    {
        if (vector_dispatch::widest() < GetParam())
            GTEST_SKIP() << "this processor lacks the registers";
        vector_dispatch::capWidth(GetParam());
    }
    void TearDown() override { vector_dispatch::capWidth(Width::Bytes64); }
};

INSTANTIATE_TEST_SUITE_P(Widths, FastElementary,
                         ::testing::Values(Width::Bytes16, Width::Bytes32, Width::Bytes64),
                         [](const auto& info) {
                             return "Bytes" + std::to_string(16 << static_cast<int>(info.param));
                         });

TEST_P(FastElementary, DecibelsMatchLog10)
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

TEST_P(FastElementary, ArctangentMatchesAtanOfTheRatio)
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

TEST_P(FastElementary, BinsGiveDecibelsPhaseAndTheListOfZeros)
{
    const double tiny = 1e-10;
    std::vector<std::complex<double>> X(2051);
    for (std::size_t k = 0; k < X.size(); ++k)
        X[k] = {std::cos(0.01 * k) + 1.5, std::sin(0.02 * k) * std::pow(10.0, k % 7)};
    // On the edge, just past it in either part, negative, NaN, and one at the very end (the tail).
    const std::size_t nearAt[] = {0, 9, 17, 1024, 2050};
    X[0] = {0.0, 0.0};
    X[9] = {tiny, -tiny};
    X[17] = {-1e-300, 0.0};
    X[1024] = {-tiny, tiny};
    X[2050] = {1e-11, 0.0};
    X[10] = {std::nextafter(tiny, 1.0), 0.0};
    X[11] = {0.0, -std::nextafter(tiny, 1.0)};
    X[12] = {std::numeric_limits<double>::quiet_NaN(), 0.0};
    X[13] = {1e200, 1e200}; // power overflows
    for (const bool withPhase : {true, false}) {
        std::vector<double> dB(X.size()), phase(withPhase ? X.size() : 0);
        std::vector<std::uint16_t> list(X.size());
        const std::size_t count = decibelsAndPhaseOfBins(X, dB, phase, tiny, list);
        ASSERT_EQ(count, std::size(nearAt));
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(list[i], nearAt[i]);
        for (std::size_t k = 0; k < X.size(); ++k) {
            const double power = std::norm(X[k]);
            const double ref = 10.0 * std::log10(power);
            if (std::isnan(ref))
                ASSERT_TRUE(std::isnan(dB[k])) << k;
            else if (std::isinf(ref))
                ASSERT_EQ(dB[k], ref) << k;
            else
                ASSERT_NEAR(dB[k], ref, 1e-15 * std::max(1.0, std::fabs(ref))) << k;
            if (!withPhase || k == 0 || k == 12)
                continue;
            const double atan = std::atan(X[k].imag() / X[k].real());
            ASSERT_NEAR(phase[k], atan, 4e-16 * std::max(1e-300, std::fabs(atan))) << k;
        }
    }
}

TEST_P(FastElementary, RangeOfPassesOverNaN)
{
    std::vector<double> v(1001);
    for (std::size_t i = 0; i < v.size(); ++i)
        v[i] = std::sin(0.37 * i) * 10.0;
    v[500] = 42.0;
    v[999] = -42.0;
    v[3] = std::numeric_limits<double>::quiet_NaN();
    double largest = 0.0, smallest = 0.0;
    rangeOf(v, largest, smallest);
    EXPECT_EQ(largest, 42.0);
    EXPECT_EQ(smallest, -42.0);
    v[0] = std::numeric_limits<double>::quiet_NaN();
    rangeOf(v, largest, smallest);
    EXPECT_TRUE(std::isnan(largest));
    EXPECT_TRUE(std::isnan(smallest));
}
