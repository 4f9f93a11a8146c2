// Box–Muller noise: the transform against a long-double reference, the
// extreme draws, and the statistics of fresh noise.
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>
#include <vector>

#include "dsp/gaussian_noise.h"
#include "support/reference_python.h"

// Table-and-polynomial log and cosine against log1p/cos in long double,
// over random draws and the edges of the draw range.
TEST(GaussianNoise, TransformMatchesLongDoubleReference)
{
    std::mt19937 gen(12345);
    std::vector<std::uint32_t> r1(20000);
    std::vector<std::uint32_t> r2(r1.size());
    for (std::size_t k = 0; k < r1.size(); ++k) {
        r1[k] = gen() >> 1;
        r2[k] = gen() >> 1;
    }
    // Edges: U₁ = 0 and U₁ just below 1, tiny and large U₁, the cosine's table seams.
    const std::uint32_t top = 0x7FFFFFFF;
    const std::uint32_t edges1[] = {0,          1,          2,          top,        top - 1,
                                    0x40000000, 0x3FFFFFFF, 0x20000000, 0x60000000, 12345};
    const std::uint32_t edges2[] = {0, 1 << 21, (1 << 21) - 1, top, 0x40000000, 0x20000000, 0x60000000, 1,
                                    2, 3};
    for (std::size_t i = 0; i < std::size(edges1); ++i) {
        r1[i] = edges1[i];
        r2[i] = edges2[i];
    }
    std::vector<double> out(r1.size());
    boxMullerSig(r1, r2, 1.5, -0.25, out);

    QByteArray pairs;
    for (std::size_t k = 0; k < r1.size(); ++k)
        pairs += QByteArray::number(r1[k]) + ' ' + QByteArray::number(r2[k]) + '\n';
    const auto ref = reference::numbers("signal_noise.py", {"1.5", "-0.25"}, pairs);
    ASSERT_EQ(ref.size(), out.size());
    double worst = 0.0;
    for (std::size_t k = 0; k < out.size(); ++k)
        worst = std::max(worst, std::fabs(out[k] - ref[k]));
    EXPECT_LE(worst, 1e-14); // samples reach ±9.8
    // U₁ = 0 gives exactly μ; U₁ = 1 − 2^-31 gives the largest radius, finite.
    EXPECT_EQ(out[0], -0.25);
    EXPECT_NEAR(out[3], -0.25 + 1.5 * std::sqrt(2 * 31 * std::log(2.0)), 1e-13);
}

// 16384 samples of N(5, 1): the sample mean is within 5 standard errors
// (5/128) and the deviation within 5 % of 1; 200 records never hold a
// non-finite value and never repeat; σ = 0 gives exactly μ.
TEST(GaussianNoise, FreshNoiseHasTheRequestedStatistics)
{
    std::vector<double> x(16384);
    gaussianSig(1.0, 5.0, x);
    EXPECT_NEAR(std::accumulate(x.begin(), x.end(), 0.0) / 16384.0, 5.0, 5.0 / 128);
    double squares = 0.0;
    for (double v : x)
        squares += (v - 5.0) * (v - 5.0);
    EXPECT_NEAR(std::sqrt(squares / 16384.0), 1.0, 0.05);

    // Fraction within one σ ≈ 68.3 %.
    const auto inside = std::count_if(x.begin(), x.end(), [](double v) { return std::fabs(v - 5.0) < 1.0; });
    EXPECT_NEAR(static_cast<double>(inside) / 16384.0, 0.6827, 0.02);

    std::vector<double> previous = x;
    for (int design = 0; design < 200; ++design) {
        gaussianSig(2.0, 0.0, x);
        for (double v : x)
            ASSERT_TRUE(std::isfinite(v) && std::fabs(v) <= 2.0 * 6.56);
        ASSERT_NE(x, previous);
        previous = x;
    }
    gaussianSig(0.0, 0.25, x);
    EXPECT_EQ(x, std::vector<double>(16384, 0.25));
    addGaussianNoiseSig(std::vector<double>(16384, 1.5), 0.0, 0.25, x);
    EXPECT_EQ(x, std::vector<double>(16384, 1.75));
}

TEST(GaussianNoise, DrawsCoverTheRangeUniformly)
{
    std::vector<std::uint32_t> r(1 << 16);
    uniformDraws(r);
    double sum = 0.0;
    for (auto v : r) {
        ASSERT_LT(v, 0x80000000u);
        sum += v * 0x1p-31;
    }
    EXPECT_NEAR(sum / static_cast<double>(r.size()), 0.5, 5 * std::sqrt(1.0 / 12 / r.size()));
}
