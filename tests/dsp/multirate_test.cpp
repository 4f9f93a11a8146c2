// Interpolation, decimation, the automatic low pass and the fused rate
// changer against the plain chain and scipy's upfirdn.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "dsp/multirate.h"
#include "dsp/sum_and_filter.h"
#include "support/reference_python.h"

namespace {

constexpr std::size_t N = 16384;

std::vector<double> randomSignal(std::size_t n, unsigned seed)
{
    std::mt19937 gen(seed);
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    std::vector<double> x(n);
    for (double& v : x)
        v = d(gen);
    return x;
}

std::vector<double> autoFilter(int L, int M)
{
    std::vector<double> h(kAutoFilterTaps);
    EXPECT_TRUE(autoGenLPF(L, M, h));
    return h;
}

} // namespace

TEST(Multirate, InterpolationInsertsZerosAndDecimationKeepsEveryMth)
{
    const std::vector<double> x{1, 2, 3};
    std::vector<double> u(9, 7.0), copy(3);
    EXPECT_TRUE(interpolateSignal(x, 3, u));
    EXPECT_EQ(u, (std::vector<double>{1, 0, 0, 2, 0, 0, 3, 0, 0}));
    interpolateSignal(x, 1, copy);
    EXPECT_EQ(copy, x);
    EXPECT_FALSE(interpolateSignal(x, 0, u));
    EXPECT_EQ(u, std::vector<double>(9, 0.0));

    std::vector<double> y(7, 9.0);
    EXPECT_TRUE(decimateSignal(std::vector<double>{0, 1, 2, 3, 4, 5, 6}, 3, y));
    EXPECT_EQ(y, (std::vector<double>{0, 3, 6, 0, 0, 0, 0}));
    EXPECT_FALSE(decimateSignal(x, -2, y));
}

// Against scipy's Chebyshev window; the window rounds its spectrum through
// single precision, hence 1e-6.
TEST(Multirate, AutoFilterMatchesScipyDesign)
{
    const std::size_t passBins[] = {128, 64, 43, 32, 26, 21, 18, 16, 14, 13, 12, 11};
    for (int top = 1; top <= 12; ++top) {
        EXPECT_EQ(autoFilterPassBins(top, 1), passBins[top - 1]) << top;
        EXPECT_EQ(autoFilterPassBins(1, top), passBins[top - 1]) << top;
    }
    for (auto [L, M] : {std::pair{2, 3}, std::pair{10, 3}, std::pair{1, 12}}) {
        const auto h = autoFilter(L, M);
        const auto ref =
            reference::numbers("project_auto_filter.py", {QString::number(L), QString::number(M)});
        ASSERT_EQ(ref.size(), kAutoFilterTaps);
        for (std::size_t i = 0; i < kAutoFilterTaps; ++i)
            ASSERT_NEAR(h[i], ref[i], 1e-6) << L << "/" << M << " tap " << i;
    }
    const auto h = autoFilter(2, 3);
    for (std::size_t i = 0; i < kAutoFilterTaps; ++i)
        ASSERT_NEAR(h[i], h[kAutoFilterTaps - 1 - i], 1e-15);
    EXPECT_EQ(std::max_element(h.begin(), h.end()) - h.begin(), 127);
    EXPECT_NEAR(h[127], 87.0 / 255.0, 1e-12); // (2k + 1)/N with k = 43, window peak 1
    std::vector<double> right(255);
    EXPECT_FALSE(autoGenLPF(0, 3, right));
}

// The fused rate changer equals the three stages and scipy's upfirdn to
// rounding (relative to Σ|h| · max|x|, the largest possible output).
TEST(Multirate, FusedSystemEqualsChainAndUpfirdn)
{
    const auto x = randomSignal(N, 11);
    const auto userFilter = randomSignal(101, 12);
    struct Case {
        int L, M;
        bool automatic;
    };
    for (const Case c : {Case{10, 3, true}, Case{1, 3, true}, Case{3, 1, false}, Case{2, 2, false},
                         Case{12, 12, true}, Case{7, 11, false}}) {
        SCOPED_TRACE(std::to_string(c.L) + "/" + std::to_string(c.M));
        const auto h = c.automatic ? autoFilter(c.L, c.M) : userFilter;
        std::vector<double> y(N);
        ASSERT_TRUE(multirateSysOut(x, h, c.L, c.M, y));
        double scale = 0.0;
        for (double v : h)
            scale += std::fabs(v);
        // The system as its three stages, each over L·n samples.
        const std::size_t nl = static_cast<std::size_t>(c.L) * N;
        std::vector<double> u(nl), v(nl), w(nl);
        interpolateSignal(x, c.L, u);
        convolutionSysOut(u, h, v);
        decimateSignal(v, c.M, w);
        for (std::size_t j = 0; j < N; ++j)
            ASSERT_NEAR(y[j], w[j], 1e-15 * scale) << j;

        const auto ref = reference::numbers("project_systems.py",
                                            {"multirate", QString::number(c.L), QString::number(c.M)},
                                            reference::numbersLine(h) + reference::numbersLine(x));
        ASSERT_EQ(ref.size(), N);
        for (std::size_t j = 0; j < N; ++j)
            ASSERT_NEAR(y[j], ref[j], 1e-12 * scale) << j;
    }
}

TEST(Multirate, UnitFactorsInPlaceAndTheZeroTail)
{
    const auto x = randomSignal(N, 13);
    std::vector<double> y(N);
    ASSERT_TRUE(multirateSysOut(x, autoFilter(1, 1), 1, 1, y));
    EXPECT_EQ(y, x); // copied without filtering
    std::vector<double> inPlace = x;
    const auto h = autoFilter(10, 3);
    multirateSysOut(x, h, 10, 3, y);
    multirateSysOut(inPlace, h, 10, 3, inPlace);
    EXPECT_EQ(inPlace, y);
    EXPECT_FALSE(multirateSysOut(x, x, 0, 1, y));
    EXPECT_FALSE(multirateSysOut(x, x, 1, 17, y));

    // M > L: decimation of 1/3 leaves the tail of the 16384 positions zero.
    multirateSysOut(x, autoFilter(1, 3), 1, 3, y);
    const std::size_t kept = (convolutionOutputLength(N, 255) + 2) / 3;
    EXPECT_NE(y[kept - 1], 0.0);
    for (std::size_t j = kept; j < N; ++j)
        ASSERT_EQ(y[j], 0.0);
}
