// Coefficient quantisation (rounding, full scale, dynamic range) and the
// symmetry codes.
#include "dsp/quantisation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

struct Quantised {
    std::vector<std::int32_t> q;
    std::vector<double> cp;
    PrecisionResult r;
};

Quantised quantise(int width, const std::vector<double>& c)
{
    Quantised out{std::vector<std::int32_t>(c.size(), 99), std::vector<double>(c.size()), {}};
    out.r = bitPrecison(width, c, out.q, out.cp);
    return out;
}

} // namespace

TEST(Quantisation, FullScaleRoundingAndDynamicRange)
{
    for (const auto& [width, bits] : {std::pair{0, 0}, {1, 20}, {5, 16}, {13, 8}, {14, 0}})
        EXPECT_EQ(widthBits(width), bits) << width;

    const std::vector<double> c{-0.1, 0.05, 0.4, 0.05, -0.1};
    const Quantised r = quantise(13, c);
    EXPECT_EQ(r.q, (std::vector<std::int32_t>{-32, 16, 127, 16, -32}));
    EXPECT_EQ(r.cp[2], 0.4);
    EXPECT_DOUBLE_EQ(r.cp[0], -32.0 / 127.0 * 0.4);
    EXPECT_DOUBLE_EQ(r.r.dynamicRange, 4.0);
    EXPECT_NEAR(r.r.dynamicRangeError, std::fabs((4.0 - 127.0 / 32.0) / 4.0) * 100.0, 1e-12);
    EXPECT_EQ(quantise(13, {-0.4, 0.1, 0.4}).q, (std::vector<std::int32_t>{-127, 32, 127}));
    EXPECT_EQ(quantise(1, c).q[2], 524287);

    // 2.5/127 × 127 is exactly 2.5: halves round away from zero.
    EXPECT_EQ(quantise(13, {1.0, 2.5 / 127, -2.5 / 127, 1.5 / 127, -0.2}).q,
              (std::vector<std::int32_t>{127, 3, -3, 2, -25}));
    const Quantised exact = quantise(13, {-1.0, 0.5, 127.0, 0.5, -1.0});
    EXPECT_EQ(exact.q[0], -1);
    EXPECT_EQ(exact.r.dynamicRangeError, 0.0);
    EXPECT_EQ(quantise(1, {1e-9, -1.0, 1e-9}).q[1], std::numeric_limits<std::int32_t>::min()); // saturates

    // Double width keeps the coefficients.
    const Quantised d = quantise(0, {-0.1, 0.3, 0.9, 0.3, -0.1});
    EXPECT_EQ(d.q, std::vector<std::int32_t>(5, 0));
    EXPECT_EQ(d.cp, (std::vector<double>{-0.1, 0.3, 0.9, 0.3, -0.1}));
    EXPECT_EQ(d.r.dynamicRangeError, 0.0);
    EXPECT_DOUBLE_EQ(d.r.dynamicRange, 9.0);
}

TEST(Symmetry, Codes)
{
    std::vector<double> c(25), none(25, 0.0);
    std::vector<std::int32_t> q(25, 0);
    for (std::size_t i = 0; i < 25; ++i)
        c[i] = 1.0 / (1.0 + std::fabs(12.0 - static_cast<double>(i)));
    EXPECT_EQ(verifySymmetry(0, c, q), kSymmetryPositive);
    c[3] += 5e-11; // within 1e-10
    EXPECT_EQ(verifySymmetry(0, c, q), kSymmetryPositive);
    c[3] += 1e-9;
    EXPECT_EQ(verifySymmetry(0, c, q), kSymmetryNone); // one of the 12 pairs breaks it

    for (std::size_t i = 0; i < 25; ++i)
        c[i] = static_cast<double>(i) - 12.0;
    c[12] = 7.0; // the centre tap is not compared
    EXPECT_EQ(verifySymmetry(0, c, q), kSymmetryNegative);
    EXPECT_EQ(verifySymmetry(0, none, q), kSymmetryPositive); // all-zero pairs count as both; positive wins

    // Widths other than Double look at the integers only.
    for (std::size_t i = 0; i < 25; ++i)
        q[i] = static_cast<std::int32_t>(i) - 12;
    EXPECT_EQ(verifySymmetry(5, none, q), kSymmetryNegative);
    q[24] = 13;
    EXPECT_EQ(verifySymmetry(5, none, q), kSymmetryNone);
    q.assign(25, 3);
    EXPECT_EQ(verifySymmetry(13, c, q), kSymmetryPositive);
}
