// Zoom and pan arithmetic, the grid steps of zoomed ranges, the cursor
// read-out of a chart view against the array it plots, and the interaction
// end to end with real mouse and key events: a wheel zoom, a rubber-band
// zoom, Save Image As to SVG, Escape back to the default.
#include "charts/chart_zoom.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include "chart_arrays.h"
#include "charts/chart_series.h"
#include "charts/mag_phase_array_source.h"
#include "charts/view_filt_design.h"

namespace {

void expectZoom(const std::optional<ChartZoom>& z, std::array<double, 4> want)
{
    ASSERT_TRUE(z);
    const std::array<double, 4> got{z->u0, z->u1, z->v0, z->v1};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(got[i], want[i], 1e-12) << i;
}

class FixedResponse : public MagPhaseArraySource {
public:
    std::vector<double> theMagPhaseArray() const override { return array; }
    std::vector<double> array;
};

} // namespace

TEST(ChartZoom, WheelRectangleAndPanArithmetic)
{
    const ChartZoom none;
    // Zooming ×2 around the left quarter keeps that point where it is.
    expectZoom(chartzoom::zoomX(none, 0.25, 2.0), {0.125, 0.625, 0.0, 1.0});
    expectZoom(chartzoom::zoomY(none, 1.0, 4.0), {0.0, 1.0, 0.75, 1.0});
    // Zooming out again by the same factor around the same point undoes it.
    expectZoom(chartzoom::zoomX(chartzoom::zoomX(none, 0.3, 2.5), 0.3, 0.4), {0.0, 1.0, 0.0, 1.0});
    // A rectangle of a 1000 × 500 view, twice: fractions of fractions.
    const auto once = chartzoom::zoomToRect(none, QRectF(100, 50, 400, 250), 1000, 500);
    expectZoom(once, {0.1, 0.5, 0.1, 0.6});
    expectZoom(chartzoom::zoomToRect(*once, QRectF(QPointF(1000, 500), QPointF(500, 0)), 1000, 500),
               {0.3, 0.5, 0.1, 0.6});
    // A click is no rectangle.
    EXPECT_FALSE(chartzoom::zoomToRect(none, QRectF(10, 10, 2, 40), 1000, 500));
    // Dragging right by a tenth of the width shows what lay a tenth to the left.
    expectZoom(chartzoom::pan(*once, 0.1, -0.5), {0.06, 0.46, 0.35, 0.85});

    const ChartRange r = chartzoom::visibleRange({0.0, 0.5, -80.0, 10.0}, *once);
    EXPECT_DOUBLE_EQ(r.x0, 0.05);
    EXPECT_DOUBLE_EQ(r.x1, 0.25);
    EXPECT_DOUBLE_EQ(r.y0, -71.0);
    EXPECT_DOUBLE_EQ(r.y1, -26.0);
}

TEST(ChartZoom, ZoomedRangesGetSensibleSteps)
{
    const ChartSeries filter = chartseries::filterSeries({}, 0, QStringLiteral("Norm"));
    const ChartSeries time = chartseries::timeSeries({}, 0, 8, 1.0f);
    // The chart's own table where it gives enough lines (0.3, 45), finer steps below it.
    const struct {
        const ChartAxis* axis;
        double span;
        float step;
        int count;
    } cases[] = {{&filter.x, 0.3, 0.1f, 3},     {&filter.y, 0.2, 0.02f, 10},  {&filter.y, 45.0, 10.0f, 5},
                 {&filter.x, 0.01, 0.001f, 10}, {&time.x, 0.004, 0.0005f, 8}, {&time.y, 3.0, 0.5f, 6}};
    for (const auto& c : cases) {
        const auto step = chartzoom::zoomedGridStep(c.span, *c.axis);
        ASSERT_TRUE(step) << c.span;
        EXPECT_FLOAT_EQ(step->step, c.step) << c.span;
        EXPECT_EQ(step->count, c.count) << c.span;
    }
    EXPECT_EQ(chartzoom::labelDecimals(0.02, 0), 2);
    EXPECT_EQ(chartzoom::labelDecimals(0.0025, 2), 4);
    EXPECT_EQ(chartzoom::labelDecimals(10.0, 0), 0);

    // A passband zoom: 0…0.3 Norm and −0.1…+0.1 dB, labelled at every line.
    const auto response = chartarrays::filterResponse(600, -60.0, -20.0, 0.5);
    const ChartSeries series = chartseries::filterSeries(response, 0, QStringLiteral("Norm"));
    const ChartScene scene = layoutZoomedChart(series, {0.0, 0.3, -0.1, 0.1}, 1000.0f, 400.0f);
    const QStringList labels = chartarrays::labelTexts(scene);
    for (const char* text : {"0.02", "0.20", "0.00 Norm"})
        EXPECT_TRUE(labels.contains(QLatin1String(text))) << text;
    // The flat 0 dB passband runs along the middle of the view.
    ASSERT_FALSE(scene.curve.isEmpty());
    EXPECT_NEAR(scene.curve.first().y1(), 200.0, 1e-3);
}

TEST(ChartZoom, ReadoutShowsTheArrayValueAtTheNearestPoint)
{
    FixedResponse source;
    source.array = chartarrays::filterResponse(1200, -48.5, -30.0, 0.5);
    source.array[8 + 1120] = -3.0172;
    GVRViewFiltDesign view;
    view.resize(1024, 400);
    view.setMagPhaseSource(&source);
    view.newChartOfType(0, QStringLiteral("Norm"));
    view.currentScene(QSizeF(view.size()));
    // 0.2734 Norm lies at point 1119.85: the nearest is 1120.
    EXPECT_EQ(chartseries::nearestIndex(view.currentSeries(), 0.2734), 1120);
    view.setCursorIndex(1120);
    EXPECT_EQ(view.readoutText(), QStringLiteral("0.2734 Norm, \u22123.02 dB"));
    view.setCursorIndex(2000);
    EXPECT_EQ(view.readoutText(), QStringLiteral("0.4883 Norm, \u221248.5 dB"));
    // Phase reads out in radians, from the phase half of the array.
    view.newChartOfType(1, QStringLiteral("Norm"));
    view.currentScene(QSizeF(view.size()));
    view.setCursorIndex(2047);
    EXPECT_EQ(view.readoutText(), QStringLiteral("0.4998 Norm, \u221230 Rad"));
}

TEST(ChartMouse, WheelAndRubberBandZoomThenSaveSvg)
{
    FixedResponse source;
    source.array = chartarrays::filterResponse(900, -60, -20, 0.5);
    GVRViewFiltDesign view;
    view.setMagPhaseSource(&source);
    view.newChartOfType(0, QStringLiteral("Norm"));
    view.resize(1000, 400);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));

    // One notch forward at a quarter of the width: ×1.25 around that point.
    const QPointF at(250.0, 200.0);
    QWheelEvent wheel(at, view.mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &wheel);
    EXPECT_NEAR(view.chartZoom().u0, 0.05, 1e-12);
    EXPECT_NEAR(view.chartZoom().u1, 0.85, 1e-12);

    // From (100, 100) to (500, 300): x 0.1…0.5 of the zoomed view, y (from below) 0.25…0.75.
    QTest::mousePress(&view, Qt::LeftButton, Qt::NoModifier, QPoint(100, 100));
    QTest::mouseMove(&view, QPoint(500, 300));
    QTest::mouseRelease(&view, Qt::LeftButton, Qt::NoModifier, QPoint(500, 300));
    const ChartZoom z = view.chartZoom();
    EXPECT_NEAR(z.u0, 0.05 + 0.8 * 0.1, 1e-9);
    EXPECT_NEAR(z.u1, 0.05 + 0.8 * 0.5, 1e-9);
    EXPECT_NEAR(z.v0, 0.25, 1e-9);
    EXPECT_NEAR(z.v1, 0.75, 1e-9);
    EXPECT_FALSE(view.readoutText().isEmpty()); // the pointer's read-out follows it

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("zoomed.svg"));
    GVRChartView::setFileChooser([&](QWidget*, const QString&, const QString&) { return path; });
    std::unique_ptr<QMenu> menu(view.createContextMenu(nullptr));
    QAction* save = menu->findChild<QAction*>(QStringLiteral("saveImageAction"));
    ASSERT_NE(save, nullptr);
    save->trigger();
    GVRChartView::setFileChooser({});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    int paths = 0;
    while (!xml.atEnd())
        paths += xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("path");
    EXPECT_FALSE(xml.hasError());
    EXPECT_GE(paths, 2); // the curve and the grid

    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_TRUE(view.chartZoom().isDefault());
}
