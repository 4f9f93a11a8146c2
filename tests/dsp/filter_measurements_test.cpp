// 3 dB measurements on synthetic magnitude curves whose crossings are known.
#include "dsp/filter_measurements.h"
#include "dsp/fir_synthesis.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr std::size_t n = 2048;

// Falls 0.01 dB a point from `start`: crosses −3 dB exactly at start + 300.
std::vector<double> slope(std::size_t start, double top = 0.0)
{
    std::vector<double> m(n);
    for (std::size_t k = 0; k < n; ++k)
        m[k] = k <= start ? top : top - 0.01 * static_cast<double>(k - start);
    return m;
}

} // namespace

TEST(FilterMeasurements, LowPassCrossing)
{
    const Filt3dBResult r = calcFilt3dB(kFilterLowPass, slope(0), 0.0);
    ASSERT_TRUE(r.valid);
    EXPECT_NEAR(r.low, 300.0 / 2047.0, 1e-12);
    EXPECT_EQ(r.bandwidth, r.low);
    EXPECT_EQ(r.high, -1.0);
    EXPECT_EQ(r.ripple, 0.0); // point 0 is the only one at 0 dB and the scan stops above it
    EXPECT_EQ(r.largest, 0.0);
    EXPECT_NEAR(r.smallest, -20.47, 1e-9);
}

TEST(FilterMeasurements, RippleIsTheLargestMagnitudeInThePassband)
{
    std::vector<double> m = slope(100, 0.25);
    m[40] = -0.75;
    const Filt3dBResult r = calcFilt3dB(kFilterLowPass, m, 0.0);
    ASSERT_TRUE(r.valid);
    EXPECT_NEAR(r.low, (100.0 + 325.0) / 2047.0, 1e-12);
    EXPECT_DOUBLE_EQ(r.ripple, 0.75);
}

TEST(FilterMeasurements, BandPassIsSymmetricAboutTheCentre)
{
    const double theta0 = 0.5;
    const std::size_t s = 1024; // θ0 × n
    std::vector<double> m = slope(s);
    for (std::size_t k = 0; k < s; ++k)
        m[k] = m[2 * s - k - 1 < n ? 2 * s - k - 1 : 0];
    const Filt3dBResult r = calcFilt3dB(kFilterBandPass, m, theta0);
    ASSERT_TRUE(r.valid);
    EXPECT_NEAR(r.high, (s + 300.0) / 2047.0, 1e-12);
    EXPECT_NEAR((r.low + r.high) / 2.0, theta0, 1e-15);
    EXPECT_NEAR(r.bandwidth, r.high - r.low, 1e-15);
}

TEST(FilterMeasurements, HighPassCountsFromHalfTheSamplingRate)
{
    std::vector<double> m = slope(0);
    std::reverse(m.begin(), m.end());
    const Filt3dBResult r = calcFilt3dB(kFilterHighPass, m, 0.0);
    ASSERT_TRUE(r.valid);
    EXPECT_NEAR(r.bandwidth, 300.0 / 2047.0, 1e-12);
    EXPECT_NEAR(r.low, 1.0 - 300.0 / 2047.0, 1e-12);
    EXPECT_EQ(r.high, -1.0);
}

TEST(FilterMeasurements, NoCrossingLeavesTheFlagDown)
{
    Filt3dBResult r = calcFilt3dB(kFilterLowPass, std::vector<double>(n, -1.0), 0.0);
    EXPECT_FALSE(r.valid);
    EXPECT_EQ(r.low, -1.0);
    EXPECT_EQ(r.ripple, -1.0);
    EXPECT_EQ(r.largest, -1.0);
    r = calcFilt3dB(kFilterLowPass, std::vector<double>(n, -4.0), 0.0);
    EXPECT_FALSE(r.valid);
    EXPECT_EQ(r.smallest, -4.0);
}

TEST(FilterMeasurements, LastPointReadsThePaddingAfterIt)
{
    // Above −3 dB up to the last point: the crossing is interpolated against the 0.0 dB pad.
    std::vector<double> m(n, -2.0);
    m[0] = -10.0;
    const Filt3dBResult r = calcFilt3dB(kFilterLowPass, m, 0.0);
    ASSERT_TRUE(r.valid);
    EXPECT_NEAR(r.low, (2047.0 + 1.0 / -2.0) / 2047.0, 1e-12);
}
