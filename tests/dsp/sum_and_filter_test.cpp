// Signed sum and the FIR stage read N_H − 1 samples ahead.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "dsp/sum_and_filter.h"
#include "support/reference_python.h"

namespace {

constexpr std::size_t N = 16384;

std::vector<double> randomSignal(std::size_t n, unsigned seed)
{
    std::mt19937 gen(seed);
    std::normal_distribution<double> d(0.0, 1.0);
    std::vector<double> x(n);
    for (double& v : x)
        v = d(gen);
    return x;
}

} // namespace

TEST(SumAndFilter, SignedSums)
{
    const auto x1 = randomSignal(N, 1);
    const auto x2 = randomSignal(N, 2);
    std::vector<double> x(N);
    // Signs: 0 adds, 1 subtracts, 2 leaves the signal out.
    for (const auto& [sign1, sign2] : {std::pair{0, 1}, {2, 0}, {1, 2}, {0, 0}, {1, 1}}) {
        sumTwoSignals(x1, x2, sign1, sign2, x);
        const double s1 = sign1 == 0 ? 1.0 : sign1 == 1 ? -1.0 : 0.0;
        const double s2 = sign2 == 0 ? 1.0 : sign2 == 1 ? -1.0 : 0.0;
        for (std::size_t i = 0; i < N; ++i)
            ASSERT_EQ(x[i], s1 * x1[i] + s2 * x2[i]) << sign1 << sign2 << " " << i;
    }
    // A signal left out contributes nothing, even infinities.
    const std::vector<double> bad(N, INFINITY);
    sumTwoSignals(x1, bad, 0, 2, x);
    EXPECT_EQ(x, x1);
}

// A unit impulse at the centre tap delays by (N_H − 1)/2 after the
// read-ahead: y[n] = x[n + 12] for N_H = 25, and the last 28 are zero.
TEST(SumAndFilter, CentreTapReadAheadAndZeroTail)
{
    const auto x = randomSignal(N, 3);
    std::vector<double> h(25, 0.0);
    h[12] = 1.0;
    std::vector<double> y(N);
    convolutionSysOut(x, h, y);
    for (std::size_t n = 0; n <= 16355; ++n)
        ASSERT_EQ(y[n], x[n + 12]) << n;
    for (std::size_t n = 16356; n < N; ++n)
        ASSERT_EQ(y[n], 0.0) << n;

    std::vector<double> h255(255, 1.0 / 255);
    convolutionSysOut(x, h255, y);
    EXPECT_NE(y[16127], 0.0);
    for (std::size_t n = 16128; n < N; ++n)
        ASSERT_EQ(y[n], 0.0) << n;
    EXPECT_EQ(convolutionOutputLength(N, 255), 16128u);
    EXPECT_EQ(convolutionOutputLength(N, 25), 16356u);
    EXPECT_EQ(convolutionOutputLength(10, 25), 0u);
}

// Random filters of 25 and 255 taps against numpy's convolution.
TEST(SumAndFilter, MatchesNumpyConvolution)
{
    for (std::size_t taps : {25u, 101u, 255u}) {
        const auto x = randomSignal(N, 4);
        const auto h = randomSignal(taps, 5);
        std::vector<double> y(N);
        convolutionSysOut(x, h, y);
        const auto ref = reference::numbers("project_systems.py", {"conv"},
                                            reference::numbersLine(h) + reference::numbersLine(x));
        ASSERT_EQ(ref.size(), N);
        for (std::size_t n = 0; n < N; ++n)
            ASSERT_NEAR(y[n], ref[n], 1e-12 * std::sqrt(static_cast<double>(taps))) << taps << " " << n;
    }
}

// Each output sums its products in tap order, so it equals the plain double
// loop of the definition bit for bit; in place gives the same.
TEST(SumAndFilter, EqualsTheDefinitionExactly)
{
    const auto x = randomSignal(N, 6);
    const auto h = randomSignal(37, 7);
    std::vector<double> y(N);
    convolutionSysOut(x, h, y);
    const std::size_t count = convolutionOutputLength(N, h.size());
    for (std::size_t n = 0; n < count; ++n) {
        double acc = 0.0;
        for (std::size_t p = 0; p < h.size(); ++p)
            acc += x[n + p] * h[h.size() - 1 - p];
        ASSERT_EQ(y[n], acc) << n;
    }
    std::vector<double> inPlace = x;
    convolutionSysOut(inPlace, h, inPlace);
    EXPECT_EQ(inPlace, y);
    // A short input reads as zeros past its end.
    std::vector<double> shortOut(12, 9.0);
    convolutionSysOut(std::vector<double>{1.0, 2.0, 3.0}, std::vector<double>{1.0}, shortOut);
    EXPECT_EQ(shortOut, (std::vector<double>{1, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}
