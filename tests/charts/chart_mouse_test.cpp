// The chart interaction end to end with real mouse and key events: a wheel
// zoom, a rubber-band zoom, Save Image As to SVG, Escape back to the default.
#include <QAction>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include "chart_arrays.h"
#include "charts/mag_phase_array_source.h"
#include "charts/view_filt_design.h"

namespace {

class Response : public MagPhaseArraySource {
public:
    std::vector<double> theMagPhaseArray() const override
    {
        return chartarrays::filterResponse(900, -60, -20, 0.5);
    }
};

} // namespace

TEST(ChartMouse, WheelAndRubberBandZoomThenSaveSvg)
{
    Response source;
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
