// Time chart layout: time span and caption per rate, units and zoom, the
// symmetric amplitude grid, and bad data.
#include "charts/time_chart_layout.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "chart_arrays.h"

namespace {

constexpr float kW = 1200.0f;
constexpr float kH = 400.0f;

} // namespace

// Step, divisions, unit of the last label and segments drawn (zoom z shows
// 16384 / z samples).
TEST(TimeChartLayout, TimeAxisFollowsRateUnitsAndZoom)
{
    struct Case {
        double fs;
        int voltUnit, freqUnit;
        float zoom, step;
        int count;
        const char16_t* unit;
        qsizetype segments;
    };
    const Case cases[] = {
        {1.0, 0, 0, 16.0f, 0.1f, 11, u"0 mS", 1024},   {100.0, 1, 0, 16.0f, 1.0f, 11, u"0 \u03bcS", 1024},
        {100.0, 0, 1, 1.0f, 20.0f, 9, u"0 mS", 16383}, {100000.0, 0, 1, 1.0f, 20.0f, 9, u"0 \u03bcS", 16383},
        {48.0, 0, 1, 256.0f, 0.1f, 14, u"0 mS", 64},   {48.0, 0, 1, 2.0f, 0.0f, 0, nullptr, 8192},
    };
    for (const Case& c : cases) {
        const auto a = chartarrays::signalTime(c.fs, 1.0, 64.0, c.voltUnit, c.freqUnit);
        const ChartScene scene = layoutTimeChart(a, 0, 8, c.zoom, kW, kH);
        SCOPED_TRACE(testing::Message() << c.fs << " zoom " << c.zoom);
        EXPECT_EQ(scene.curve.size(), c.segments);
        if (!c.unit)
            continue;
        EXPECT_FLOAT_EQ(scene.horizontalStep->step, c.step);
        EXPECT_EQ(scene.horizontalStep->count, c.count);
        EXPECT_EQ(chartarrays::labelTexts(scene).last(), QString::fromUtf16(c.unit));
    }
}

TEST(TimeChartLayout, AmplitudeGridIsSymmetric)
{
    auto a = chartarrays::signalTime(1.0, 2.5, 64.0, 0, 0);
    ChartScene scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    EXPECT_EQ(scene.verticalStep->step, 1.0f);
    EXPECT_EQ(scene.verticalStep->count, 3);
    EXPECT_EQ(chartarrays::labelTexts(scene).mid(0, 7),
              QStringList({"-3.00", "-2.00", "-1.00", "0 V", "1.00", "2.00", "3.00"}));
    // Sample 16 of a period-64 sine is the crest, 2.5 of 3 divisions up.
    EXPECT_NEAR(scene.curve[16].y1(), 0.5f * kH + 2.5f / 3.0f * 0.4f * kH, 1e-2);

    a[4] = 0.8;
    a[5] = -1.2;
    scene = layoutTimeChart(a, 0, 8, 16.0f, kW, kH);
    EXPECT_EQ(scene.verticalStep->step, 0.5f);
    EXPECT_EQ(scene.verticalStep->count, 3);
}

TEST(TimeChartLayout, BadDataNeverRunsAway)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    auto a = chartarrays::signalTime(1.0, 1.0, 64.0, 0, 0);
    a[8 + 10] = nan;
    a[8 + 20] = inf;
    EXPECT_EQ(layoutTimeChart(a, 0, 8, 16.0f, kW, kH).curve.size(), 1024 - 4);

    for (const double bad : {nan, inf, -inf, 1e300, 0.0, -5.0, 1e-300}) {
        auto b = a;
        std::fill(b.begin(), b.begin() + 8, bad);
        for (const float zoom : {1.0f, 0.0f, -3.0f, 1e30f, float(bad), 0.25f}) {
            const ChartScene scene = layoutTimeChart(b, 0, 8, zoom, kW, kH);
            EXPECT_LE(scene.curve.size(), 16383);
            EXPECT_LE(scene.gridLines.size(), 7 + 15);
            for (const QLineF& s : scene.curve)
                ASSERT_TRUE(std::isfinite(s.x1()) && std::isfinite(s.y2()));
        }
    }
    // Header only, or bases beyond the end.
    const std::vector<double> header(a.begin(), a.begin() + 8);
    EXPECT_TRUE(layoutTimeChart(header, 0, 8, 1.0f, kW, kH).curve.isEmpty());
    EXPECT_TRUE(layoutTimeChart(a, 8, 16400, 1.0f, kW, kH).curve.isEmpty());
}
