// Filter response chart layout: scales, grid lines, labels and the curve,
// checked against values worked out by hand.
#include "charts/filter_chart_layout.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "chart_arrays.h"
#include "scene_labels.h"
#include "charts/chart_colors.h"

namespace {

constexpr float kW = 1024.0f;
constexpr float kH = 400.0f;

int horizontalLines(const ChartScene& scene)
{
    int n = 0;
    for (const QLineF& line : scene.gridLines)
        n += line.y1() == line.y2() ? 1 : 0;
    return n;
}

} // namespace

TEST(FilterChartLayout, MagnitudeAxisForMinus97dB)
{
    auto a = chartarrays::filterResponse(600, -97.3, -20.0, 1.0);
    const ChartScene scene = layoutFilterChart(a, filterchart::kMagnitude, QStringLiteral("Norm"), kW, kH);
    ASSERT_TRUE(scene.verticalStep);
    EXPECT_EQ(scene.verticalStep->step, 10.0f);
    EXPECT_EQ(scene.verticalStep->count, 10);
    EXPECT_EQ(horizontalLines(scene), 11);
    // Horizontal-line labels come first, top line first.
    const QStringList texts = labelTexts(scene);
    EXPECT_EQ(texts.mid(0, 11), QStringList({QStringLiteral(" 0 dB"), "-10", "-20", "-30", "-40", "-50",
                                             "-60", "-70", "-80", "-90", "-100"}));
    EXPECT_FLOAT_EQ(scene.gridLines.first().y1(), 0.9f * kH);
    EXPECT_NEAR(scene.gridLines[10].y1(), 0.1f * kH, 1e-3);
    EXPECT_EQ(scene.labels.first().at, QPointF(5.0, 0.9f * kH));
    EXPECT_EQ(scene.curveColor, chartcolors::dBMagGraph());
}

TEST(FilterChartLayout, PhaseAxisAboveAndBelowZero)
{
    auto a = chartarrays::filterResponse(600, -60.0, -401.2, 1.0);
    a[4] = 3.1;
    const ChartScene scene = layoutFilterChart(a, filterchart::kPhase, QStringLiteral("Norm"), kW, kH);
    EXPECT_EQ(scene.verticalStep->step, 50.0f);
    EXPECT_EQ(scene.verticalStep->count, 9);
    EXPECT_EQ(horizontalLines(scene), 11);
    const QStringList texts = labelTexts(scene);
    EXPECT_EQ(texts[0], "50");
    EXPECT_EQ(texts[1], " 0 Rad");
    EXPECT_EQ(texts[2], "-50");
    EXPECT_EQ(texts[10], "-450");
    EXPECT_EQ(scene.curveColor, chartcolors::phaseGraph());
    // The curve starts at phase 0, one division below the top.
    const float division = 0.8f * kH / 10.0f;
    EXPECT_NEAR(scene.curve.first().y1(), 0.9f * kH - division, 1e-3);
    // And ends at -401.2 rad.
    EXPECT_NEAR(scene.curve.last().y2(), 0.9f * kH - division - 401.2f / 50.0f * division, 1e-2);
}

TEST(FilterChartLayout, NormalisedFrequencyAxis)
{
    auto a = chartarrays::filterResponse(600, -60.0, -20.0, 1.0);
    const ChartScene scene = layoutFilterChart(a, filterchart::kMagnitude, QStringLiteral("Norm"), kW, kH);
    ASSERT_TRUE(scene.horizontalStep);
    EXPECT_FLOAT_EQ(scene.horizontalStep->step, 0.1f);
    EXPECT_EQ(scene.horizontalStep->count, 10);
    const QStringList texts = labelTexts(scene);
    // 7 horizontal labels, then 0.10 .. 1.00, then the origin label.
    EXPECT_EQ(texts.mid(7, 10),
              QStringList({"0.10", "0.20", "0.30", "0.40", "0.50", "0.60", "0.70", "0.80", "0.90", "1.00"}));
    EXPECT_EQ(texts.last(), "0 Norm");
    EXPECT_EQ(scene.labels.last().at, QPointF(5.0, 5.0));
    const QLineF last = scene.gridLines.last();
    EXPECT_NEAR(last.x1(), kW, 1e-3);
    EXPECT_EQ(last.y1(), 0.0);
    EXPECT_EQ(last.y2(), kH);
    EXPECT_NEAR(scene.labels[16].at.x(), kW + 5.0, 1e-3);
}

TEST(FilterChartLayout, KilohertzAxisStepsOfFive)
{
    auto a = chartarrays::filterResponse(600, -60.0, -20.0, 24.0);
    const ChartScene scene = layoutFilterChart(a, filterchart::kMagnitude, QStringLiteral("KHz"), kW, kH);
    EXPECT_EQ(scene.horizontalStep->step, 5.0f);
    EXPECT_EQ(scene.horizontalStep->count, 5);
    const QStringList texts = labelTexts(scene);
    // 25 KHz lies beyond the right edge and is not drawn.
    EXPECT_EQ(texts.mid(7), QStringList({"5.00", "10.00", "15.00", "20.00", "0 KHz"}));
    EXPECT_NEAR(scene.gridLines[7].x1(), kW * 5.0f / 24.0f, 1e-3);
}

TEST(FilterChartLayout, AbsurdHeadersStayBounded)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, inf, -inf, 1e300, -1e300, 0.0, 1e-300}) {
        auto a = chartarrays::filterResponse(600, -60.0, -20.0, 1.0);
        for (int i = 0; i < 8; ++i)
            a[i] = bad;
        for (int type : {filterchart::kMagnitude, filterchart::kPhase}) {
            const ChartScene scene = layoutFilterChart(a, type, QStringLiteral("Norm"), kW, kH);
            EXPECT_LE(scene.gridLines.size(), 2000);
            EXPECT_LE(scene.curve.size(), 2047);
            for (const QLineF& line : scene.gridLines)
                EXPECT_TRUE(std::isfinite(line.x1()) && std::isfinite(line.y1()));
        }
    }
    // A header alone, or part of one, draws no curve.
    const std::vector<double> shortArray = {2048.0, 0.0, -60.0};
    const ChartScene scene = layoutFilterChart(shortArray, 0, QStringLiteral("Norm"), kW, kH);
    EXPECT_TRUE(scene.hasData);
    EXPECT_TRUE(scene.curve.isEmpty());
}
