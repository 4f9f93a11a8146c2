// Spectrum chart layout: zoom to twice the highest frequency, magnitude grid,
// segment counts, project halves and bad data.
#include "charts/spectrum_chart_layout.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "chart_arrays.h"
#include "scene_labels.h"
#include "charts/chart_colors.h"

namespace {

constexpr float kW = 1200.0f;
constexpr float kH = 400.0f;

} // namespace

TEST(SpectrumChartLayout, ZoomsToTwiceTheHighestFrequency)
{
    const auto a = chartarrays::signalSpectrum(100.0, 5.0, 100, 0.5, 0, 0);
    const ChartScene scene = layoutSpectrumChart(a, 0, 8, kW, kH);
    EXPECT_EQ(scene.horizontalStep->step, 1.0f);
    EXPECT_EQ(scene.horizontalStep->count, 10);
    ASSERT_EQ(scene.curve.size(), 1638);
    EXPECT_NEAR(scene.curve.last().x2(), kW * 8190.0f / 8192.0f, 1e-3);
    // The tenth frequency line is at the right edge.
    EXPECT_NEAR(scene.gridLines.last().x1(), kW, 1e-3);
    EXPECT_EQ(labelTexts(scene).last(), "0 MHz");
    EXPECT_EQ(scene.curveColor, chartcolors::magSpectrum());
}

TEST(SpectrumChartLayout, MagnitudeGridFromZero)
{
    const auto a = chartarrays::signalSpectrum(100.0, 5.0, 100, 0.5, 0, 0);
    ChartScene scene = layoutSpectrumChart(a, 0, 8, kW, kH);
    EXPECT_FLOAT_EQ(scene.verticalStep->step, 0.1f);
    EXPECT_EQ(scene.verticalStep->count, 5);
    EXPECT_EQ(labelTexts(scene).mid(0, 6), QStringList({"0 V", "0.10", "0.20", "0.30", "0.40", "0.50"}));
    EXPECT_NEAR(scene.gridLines[0].y1(), 0.1f * kH, 1e-3);
    EXPECT_NEAR(scene.gridLines[5].y1(), 0.9f * kH, 1e-3);
    // The peak bin reaches the top line.
    EXPECT_NEAR(scene.curve[100].y1(), 0.9f * kH, 1e-3);
    EXPECT_NEAR(scene.curve[50].y1(), 0.1f * kH, 1e-3);

    const auto small = chartarrays::signalSpectrum(100.0, 5.0, 100, 0.03, 1, 0);
    scene = layoutSpectrumChart(small, 0, 8, kW, kH);
    EXPECT_FLOAT_EQ(scene.verticalStep->step, 0.01f);
    EXPECT_EQ(scene.verticalStep->count, 3);
    EXPECT_EQ(labelTexts(scene).first(), "0 mV");
}

TEST(SpectrumChartLayout, ProjectOutputHalf)
{
    std::vector<double> project(16400, 0.0);
    const double header[] = {100.0, 5.0, 0.0, 0.0, 0.5, 0.0, 0.0, 0.0};
    std::copy(std::begin(header), std::end(header), project.begin());
    std::copy(std::begin(header), std::end(header), project.begin() + 8);
    project[10] = 1.0; // output in mV
    project[8208 + 40] = 0.5;
    const ChartScene scene = layoutSpectrumChart(project, 8, 8208, kW, kH);
    EXPECT_EQ(labelTexts(scene).first(), "0 mV");
    EXPECT_NEAR(scene.curve[40].y1(), 0.9f * kH, 1e-3);
    EXPECT_NEAR(scene.curve[39].y2(), 0.9f * kH, 1e-3);
}

TEST(SpectrumChartLayout, BadDataNeverRunsAway)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, inf, -inf, 1e300, 0.0, -5.0, 1e-300}) {
        auto a = chartarrays::signalSpectrum(100.0, 5.0, 100, 0.5, 0, 0);
        a[8 + 7] = bad;
        ChartScene scene = layoutSpectrumChart(a, 0, 8, kW, kH);
        EXPECT_LE(scene.curve.size(), 1638);
        for (int i = 0; i < 6; ++i)
            a[i] = bad;
        scene = layoutSpectrumChart(a, 0, 8, kW, kH);
        EXPECT_LE(scene.curve.size(), 8191);
        EXPECT_LE(scene.gridLines.size(), 7 + 15);
        for (const QLineF& s : scene.curve)
            EXPECT_TRUE(std::isfinite(s.x1()) && std::isfinite(s.y2()));
    }
}
