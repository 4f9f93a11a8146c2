// Time chart layout: time span and caption, amplitude grid, zoom and segment
// counts, both halves of a project array, and bad data.
#include "charts/time_chart_layout.h"

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

TEST(TimeChartLayout, MegahertzRecordShownInMilliseconds)
{
    const auto a = chartarrays::signalTime(1.0, 1.0, 64.0, 0, 0);
    const ChartScene scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    ASSERT_TRUE(scene.horizontalStep);
    EXPECT_FLOAT_EQ(scene.horizontalStep->step, 0.1f);
    EXPECT_EQ(scene.horizontalStep->count, 11);
    EXPECT_EQ(labelTexts(scene).last(), "0 mS");
    // z 16 shows 1024 samples: 1024 segments.
    EXPECT_EQ(scene.curve.size(), 1024);
    EXPECT_EQ(scene.curveColor, chartcolors::timeGraph());
}

TEST(TimeChartLayout, MegahertzRecordShownInMicroseconds)
{
    const auto a = chartarrays::signalTime(100.0, 1.0, 64.0, 1, 0);
    const ChartScene scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    // T = 10.24 μs: step 1 with 11 divisions.
    EXPECT_EQ(scene.horizontalStep->step, 1.0f);
    EXPECT_EQ(scene.horizontalStep->count, 11);
    const QStringList texts = labelTexts(scene);
    EXPECT_EQ(texts.last(), QStringLiteral("0 \u03bcS"));
    EXPECT_TRUE(texts.contains("0 mV"));
}

TEST(TimeChartLayout, KilohertzRecordAtZoomOne)
{
    const auto a = chartarrays::signalTime(100.0, 1.0, 64.0, 0, 1);
    const ChartScene scene = layoutTimeChart(a, 0, 8, 1.0f, kW, kH);
    EXPECT_EQ(scene.horizontalStep->step, 20.0f);
    EXPECT_EQ(scene.horizontalStep->count, 9);
    EXPECT_EQ(labelTexts(scene).last(), "0 mS");
    // 16383 segments, the last ending 1/16384 of the width short of the edge.
    ASSERT_EQ(scene.curve.size(), 16383);
    EXPECT_NEAR(scene.curve.last().x2(), kW * 16383.0f / 16384.0f, 1e-3);
}

TEST(TimeChartLayout, KilohertzRecordShortSpanInMicroseconds)
{
    const auto a = chartarrays::signalTime(100000.0, 1.0, 64.0, 0, 1);
    const ChartScene scene = layoutTimeChart(a, 0, 8, 1.0f, kW, kH);
    // T = 0.16384 ms < 1: 163.84 μS.
    EXPECT_EQ(labelTexts(scene).last(), QStringLiteral("0 \u03bcS"));
    EXPECT_EQ(scene.horizontalStep->step, 20.0f);
}

TEST(TimeChartLayout, HighZoomAndZoomTwo)
{
    const auto a = chartarrays::signalTime(48.0, 1.0, 64.0, 0, 1);
    ChartScene scene = layoutTimeChart(a, 0, 8, 256.0f, kW, kH);
    EXPECT_EQ(labelTexts(scene).last(), "0 mS");
    EXPECT_FLOAT_EQ(scene.horizontalStep->step, 0.1f);
    EXPECT_EQ(scene.horizontalStep->count, 14);
    EXPECT_EQ(scene.curve.size(), 64);

    scene = layoutTimeChart(a, 0, 8, 2.0f, kW, kH);
    ASSERT_EQ(scene.curve.size(), 8192);
    EXPECT_NEAR(scene.curve.last().x2(), kW, 1e-3);
}

TEST(TimeChartLayout, AmplitudeGridIsSymmetric)
{
    auto a = chartarrays::signalTime(1.0, 2.5, 64.0, 0, 0);
    a[4] = 2.5;
    a[5] = -2.5;
    ChartScene scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    EXPECT_EQ(scene.verticalStep->step, 1.0f);
    EXPECT_EQ(scene.verticalStep->count, 3);
    EXPECT_EQ(labelTexts(scene).mid(0, 7),
              QStringList({"-3.00", "-2.00", "-1.00", "0 V", "1.00", "2.00", "3.00"}));
    EXPECT_NEAR(scene.gridLines[0].y1(), 0.1f * kH, 1e-3);
    EXPECT_NEAR(scene.gridLines[3].y1(), 0.5f * kH, 1e-3);
    EXPECT_NEAR(scene.gridLines[6].y1(), 0.9f * kH, 1e-3);
    // Sample 16 of a period-64 sine is the crest, 2.5 of 3 divisions up.
    EXPECT_NEAR(scene.curve[16].y1(), 0.5f * kH + 2.5f / 3.0f * 0.4f * kH, 1e-2);

    a[4] = 0.8;
    a[5] = -1.2;
    scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    EXPECT_EQ(scene.verticalStep->step, 0.5f);
    EXPECT_EQ(scene.verticalStep->count, 3);
}

TEST(TimeChartLayout, AllZeroRecordIsAFlatLineAtMid)
{
    auto a = chartarrays::signalTime(1.0, 0.0, 64.0, 0, 0);
    a[4] = 0.0;
    a[5] = 0.0;
    const ChartScene scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    EXPECT_FLOAT_EQ(scene.verticalStep->step, 0.01f);
    EXPECT_EQ(scene.verticalStep->count, 1);
    EXPECT_EQ(labelTexts(scene).mid(0, 3), QStringList({"-0.01", "0 V", "0.01"}));
    for (const QLineF& segment : scene.curve)
        EXPECT_FLOAT_EQ(segment.y1(), 0.5f * kH);
}

TEST(TimeChartLayout, ProjectHalvesReadTheirOwnHeaderAndSamples)
{
    const auto input = chartarrays::signalTime(1.0, 1.0, 64.0, 0, 0);
    const auto output = chartarrays::signalTime(2.0, -2.0, 32.0, 1, 0);
    std::vector<double> project(32784, 0.0);
    std::copy(input.begin(), input.begin() + 8, project.begin());
    std::copy(output.begin(), output.begin() + 8, project.begin() + 8);
    std::copy(input.begin() + 8, input.end(), project.begin() + 16);
    std::copy(output.begin() + 8, output.end(), project.begin() + 16400);

    const ChartScene in = layoutTimeChart(project, 0, 16, 16.0f, kW, kH);
    const ChartScene out = layoutTimeChart(project, 8, 16400, 16.0f, kW, kH);
    EXPECT_TRUE(labelTexts(in).contains("0 V"));
    EXPECT_TRUE(labelTexts(out).contains("0 mV"));
    // fs 2 MHz at zoom 16: T = 512 μs, step 50 with 11 divisions.
    EXPECT_EQ(out.horizontalStep->step, 50.0f);
    // Input sample 16 is the crest of +sin; output sample 8 the trough of -2 sin.
    EXPECT_GT(in.curve[16].y1(), 0.5f * kH);
    EXPECT_LT(out.curve[8].y1(), 0.5f * kH);
    EXPECT_GT(out.curve[24].y1(), 0.5f * kH);
    EXPECT_EQ(out.curve.size(), 1024);
}

TEST(TimeChartLayout, BadDataNeverRunsAway)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    auto a = chartarrays::signalTime(1.0, 1.0, 64.0, 0, 0);
    a[8 + 10] = nan;
    a[8 + 20] = inf;
    ChartScene scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    EXPECT_EQ(scene.curve.size(), 1024 - 4);

    for (const double bad : {nan, inf, -inf, 1e300, 0.0, -5.0, 1e-300}) {
        auto b = a;
        for (int i = 0; i < 8; ++i)
            b[i] = bad;
        for (const float zoom : {1.0f, 0.0f, -3.0f, 1e30f, float(bad), 0.25f}) {
            scene = layoutTimeChart(b, 0, 8, zoom, kW, kH);
            EXPECT_LE(scene.curve.size(), 16383);
            EXPECT_LE(scene.gridLines.size(), 7 + 15);
            for (const QLineF& s : scene.curve)
                EXPECT_TRUE(std::isfinite(s.x1()) && std::isfinite(s.y2()));
        }
    }
    // Header only, or bases beyond the end.
    const std::vector<double> header(a.begin(), a.begin() + 8);
    EXPECT_TRUE(layoutTimeChart(header, 0, 8, 1.0f, kW, kH).curve.isEmpty());
    EXPECT_TRUE(layoutTimeChart(a, 8, 16400, 1.0f, kW, kH).curve.isEmpty());
}
