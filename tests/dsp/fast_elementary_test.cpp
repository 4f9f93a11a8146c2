// The vectorised logarithm and arctangent against the C library over wide
// ranges, odd lengths (the one-lane tail) and special values, on every vector
// target the machine runs (each target is separately compiled code).
#include "dsp/fast_elementary.h"

#include <hwy/targets.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

class FastElementary : public ::testing::TestWithParam<std::int64_t> {
protected:
    void SetUp() override { hwy::SetSupportedTargetsForTest(GetParam()); }
    void TearDown() override { hwy::SetSupportedTargetsForTest(0); }
};

INSTANTIATE_TEST_SUITE_P(Targets, FastElementary, ::testing::ValuesIn(hwy::SupportedAndGeneratedTargets()),
                         [](const auto& info) { return std::string(hwy::TargetName(info.param)); });

namespace {

// dB and phase of the bins X on the target under test; the list of zeros is not looked at here.
void decibelsAndPhase(const std::vector<std::complex<double>>& X, std::vector<double>& dB,
                      std::vector<double>& phase)
{
    dB.assign(X.size(), 0.0);
    phase.assign(X.size(), 0.0);
    std::vector<std::uint16_t> zeros(X.size());
    decibelsAndPhaseOfBins(X, dB, phase, 1e-10, zeros);
}

} // namespace

TEST_P(FastElementary, DecibelsMatchLog10)
{
    // Bins (r, 0): the power r·r is the one the function forms, so the logarithm is what is compared.
    std::mt19937_64 gen(5);
    std::uniform_real_distribution<double> exponent(-150.0, 150.0);
    std::vector<std::complex<double>> X(10007);
    for (auto& v : X)
        v = {std::pow(10.0, exponent(gen)), 0.0};
    const double root2 = std::sqrt(std::sqrt(2.0)); // powers either side of √2, where the reduction turns
    const double special[] = {1.0,
                              std::sqrt(2.0),
                              std::sqrt(0.5),
                              root2,
                              std::nextafter(root2, 2.0),
                              std::nextafter(root2, 0.0),
                              std::ldexp(1.0, -511), // power DBL_MIN exactly
                              std::sqrt(DBL_MAX),
                              0.0,
                              1e-155, // subnormal power
                              1e155,  // power overflows
                              std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN(),
                              -1.0};
    for (const double r : special)
        X.push_back({r, 0.0});
    std::vector<double> dB, phase;
    decibelsAndPhase(X, dB, phase);
    for (std::size_t i = 0; i < X.size(); ++i) {
        const double power = X[i].real() * X[i].real();
        const double ref = 10.0 * std::log10(power);
        if (std::isnan(ref))
            ASSERT_TRUE(std::isnan(dB[i])) << power;
        else if (std::isinf(ref))
            ASSERT_EQ(dB[i], ref) << power;
        else
            ASSERT_NEAR(dB[i], ref, 1e-15 * std::max(1.0, std::fabs(ref))) << power;
    }
}

TEST_P(FastElementary, ArctangentMatchesAtanOfTheRatio)
{
    std::mt19937_64 gen(9);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    std::vector<std::complex<double>> X;
    for (int i = 0; i < 10003; ++i) {
        const double y = u(gen) * std::pow(10.0, 6.0 * u(gen));
        X.push_back({u(gen) * std::pow(10.0, 6.0 * u(gen)), y});
    }
    const double inf = std::numeric_limits<double>::infinity();
    const double specials[][2] = {{0.0, 1.0},  {-0.0, 1.0}, {1.0, 0.0}, {1.0, -0.0},
                                  {-1.0, 0.0}, {0.0, 0.0},  {1.0, 1.0}, {-1.0, 1.0},
                                  {inf, 1.0},  {1.0, inf},  {inf, inf}, {2.414213562373095, 1.0},
                                  {0.66, 1.0}};
    for (const auto& s : specials)
        X.push_back({s[1], s[0]});
    std::vector<double> dB, out;
    decibelsAndPhase(X, dB, out);
    for (std::size_t i = 0; i < X.size(); ++i) {
        const double ref = std::atan(X[i].imag() / X[i].real());
        if (std::isnan(ref))
            ASSERT_TRUE(std::isnan(out[i])) << X[i];
        else
            ASSERT_NEAR(out[i], ref, 4e-16 * std::max(1e-300, std::fabs(ref))) << X[i];
    }
    // Odd in Im, so the mirrored half of a spectrum gets exactly the negated phase.
    std::vector<std::complex<double>> mirrored(X.size());
    for (std::size_t i = 0; i < X.size(); ++i)
        mirrored[i] = std::conj(X[i]);
    std::vector<double> outNeg;
    decibelsAndPhase(mirrored, dB, outNeg);
    for (std::size_t i = 0; i < X.size(); ++i) {
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
