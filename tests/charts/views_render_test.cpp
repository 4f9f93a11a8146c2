// Every view rendered offscreen: what a user would see in the pixels (frame,
// background, where the curves and boxes land, text present), and that bad
// data or keys never break a pass. PNGs go to the test artifacts folder.
#include <cmath>
#include <limits>

#include <QApplication>
#include <QDir>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>

#include <gtest/gtest.h>

#include "chart_arrays.h"
#include "charts/chart_colors.h"
#include "charts/freq_array_source.h"
#include "charts/mag_phase_array_source.h"
#include "charts/time_array_source.h"
#include "charts/view_block_diagram.h"
#include "charts/view_filt_design.h"
#include "charts/view_freq_signal_design.h"
#include "charts/view_func_signal_design.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"
#include "charts/view_results.h"
#include "charts/view_time_signal_design.h"

namespace {

// Stands in for a designer window: hands out whatever array it holds.
struct StubWindow : MagPhaseArraySource, TimeArraySource, FreqArraySource {
    std::vector<double> array;
    mutable int pulls = 0;
    std::vector<double> theMagPhaseArray() const override { return ++pulls, array; }
    std::vector<double> theTimeArray() const override { return ++pulls, array; }
    std::vector<double> theFreqArray() const override { return ++pulls, array; }
};

QImage render(QWidget& view, int width, int height, const char* artifact = nullptr)
{
    view.resize(width, height);
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::magenta); // anything the view leaves unpainted shows up
    view.render(&image);
    if (artifact) {
        const QString dir = QStringLiteral(ORVANA_TEST_ARTIFACTS "/charts");
        QDir().mkpath(dir);
        image.save(dir + QLatin1Char('/') + QLatin1String(artifact) + QStringLiteral(".png"));
    }
    return image;
}

bool near(QRgb pixel, const QColor& colour, int tolerance = 3)
{
    return std::abs(qRed(pixel) - colour.red()) <= tolerance &&
           std::abs(qGreen(pixel) - colour.green()) <= tolerance &&
           std::abs(qBlue(pixel) - colour.blue()) <= tolerance;
}

// Device row of the lower-left height y.
int row(const QImage& image, double y)
{
    return image.height() - 1 - int(std::floor(y));
}

// True when some pixel of column x within rows [top, bottom] has the colour.
bool columnHas(const QImage& image, int x, int top, int bottom, const QColor& colour, int tolerance = 3)
{
    for (int y = std::max(0, top); y <= std::min(image.height() - 1, bottom); ++y)
        if (near(image.pixel(x, y), colour, tolerance))
            return true;
    return false;
}

int countColour(const QImage& image, const QColor& colour, QRect within = {})
{
    if (within.isNull())
        within = image.rect();
    int n = 0;
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x)
            n += near(image.pixel(x, y), colour) ? 1 : 0;
    return n;
}

int countDark(const QImage& image, QRect within)
{
    int n = 0;
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x)
            n += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    return n;
}

// The outline shows as a dark edge all round (curves and grid lines may
// cross it here and there), and the view paints every pixel.
void expectFrameAndBackground(const QImage& image)
{
    const int w = image.width();
    const int h = image.height();
    const QRect edges[] = {QRect(0, 0, w, 1), QRect(0, h - 1, w, 1), QRect(0, 0, 1, h),
                           QRect(w - 1, 0, 1, h)};
    for (const QRect& edge : edges)
        EXPECT_GE(countDark(image, edge), edge.width() * edge.height() * 9 / 10)
            << edge.x() << "," << edge.y() << " " << edge.width() << "x" << edge.height();
    EXPECT_EQ(countColour(image, Qt::magenta), 0);
}

// Only a white rectangle inside a black outline.
void expectFrameOnly(const QImage& image)
{
    expectFrameAndBackground(image);
    const QRect inside = image.rect().adjusted(1, 1, -1, -1);
    EXPECT_EQ(countColour(image, Qt::white, inside), inside.width() * inside.height());
    for (const QPoint corner : {QPoint(0, 0), QPoint(image.width() - 1, image.height() - 1)})
        EXPECT_TRUE(near(image.pixel(corner), Qt::black));
}

} // namespace

TEST(ViewsRender, EmptyArraysDrawTheFrameOnly)
{
    StubWindow window;
    GVRViewFiltDesign filt;
    filt.setMagPhaseSource(&window);
    GVRViewTimeSignalDesign time;
    time.setTimeSource(&window);
    GVRViewProjTime projTime;
    projTime.setTimeSource(&window);
    GVRViewFreqSignalDesign freq;
    freq.setFreqSource(&window);
    GVRViewProjFreq projFreq;
    projFreq.setFreqSource(&window);
    GVRViewResults results;
    for (QWidget* view : std::initializer_list<QWidget*>{&filt, &time, &projTime, &freq, &projFreq, &results})
        expectFrameOnly(render(*view, 300, 150));
    expectFrameOnly(render(filt, 300, 150, "empty_chart"));
    // A chart with no window at all is empty too.
    GVRViewFiltDesign orphan;
    expectFrameOnly(render(orphan, 200, 100));
}

TEST(ViewsRender, MagnitudeCurveSitsAtTheTopInThePassBand)
{
    StubWindow window;
    window.array = chartarrays::filterResponse(800, -60.0, -30.0, 24.0);
    GVRViewFiltDesign view;
    view.setMagPhaseSource(&window);
    view.newChartOfType(0, QStringLiteral("KHz"));
    const QImage image = render(view, 1024, 400, "filter_magnitude");
    expectFrameAndBackground(image);
    EXPECT_GE(window.pulls, 1);
    const QColor blue = chartcolors::dBMagGraph();
    // Pass band (points 0-799: x < 400) at 0.9 H, stop band at 0.1 H. The
    // columns are in gaps of the dashed grid lines lying on the same heights
    // (dashes 4 on, 6 off from x = 0).
    for (int x : {25, 205, 385}) {
        EXPECT_TRUE(columnHas(image, x, row(image, 0.9 * 400) - 2, row(image, 0.9 * 400) + 2, blue)) << x;
        EXPECT_FALSE(columnHas(image, x, row(image, 0.5 * 400), row(image, 0.1 * 400) + 3, blue)) << x;
    }
    for (int x : {425, 705, 995})
        EXPECT_TRUE(columnHas(image, x, row(image, 0.1 * 400) - 2, row(image, 0.1 * 400) + 2, blue)) << x;
    // The edge at point 800 is a vertical segment.
    EXPECT_TRUE(columnHas(image, 399, row(image, 0.5 * 400), row(image, 0.5 * 400), blue));
    // No phase colour on a magnitude chart.
    EXPECT_EQ(countColour(image, chartcolors::phaseGraph()), 0);

    // Dashed grey grid: along the -30 dB line both grid-grey and white pixels occur.
    const int gridRow = row(image, 0.9 * 400 - 3 * (0.8 * 400 / 6));
    int greyish = 0;
    int white = 0;
    for (int x = 300; x < 1000; ++x) {
        const QRgb p = image.pixel(x, gridRow);
        const bool grey = qRed(p) == qGreen(p) && qGreen(p) == qBlue(p) && qRed(p) > 60 && qRed(p) < 250;
        greyish += grey ? 1 : 0;
        white += near(p, Qt::white, 0) ? 1 : 0;
    }
    EXPECT_GT(greyish, 100);
    EXPECT_GT(white, 100);
    // Labels: dark text near the left edge at the top line (" 0 dB").
    EXPECT_GT(countDark(image, QRect(5, row(image, 0.9 * 400) - 16, 40, 14)), 10);
}

TEST(ViewsRender, TimeChartsDrawTheSignalAroundTheMiddle)
{
    StubWindow window;
    window.array = chartarrays::signalTime(1.0, 1.0, 256.0, 0, 0);
    GVRViewTimeSignalDesign view;
    view.setTimeSource(&window);
    EXPECT_EQ(view.zoomFactor(), 16.0f);
    QImage image = render(view, 1200, 400, "signal_time");
    expectFrameAndBackground(image);
    const QColor blue = chartcolors::timeGraph();
    // Amplitude 1: step 0.5 with 2 divisions, so the crest reaches 0.9 H.
    // Sample 64 (the first crest) at x = 64 × 16 × 1200 / 16384 = 75.
    EXPECT_TRUE(columnHas(image, 75, row(image, 0.9 * 400) - 2, row(image, 0.9 * 400) + 2, blue));
    EXPECT_TRUE(columnHas(image, 225, row(image, 0.1 * 400) - 2, row(image, 0.1 * 400) + 2, blue));

    view.setZoomLevel(1);
    image = render(view, 1200, 400, "signal_time_zoom1");
    expectFrameAndBackground(image);
    // 64 periods across the width: the curve fills the band nearly everywhere.
    int columns = 0;
    for (int x = 2; x < 1198; ++x)
        columns += columnHas(image, x, row(image, 0.9 * 400) - 1, row(image, 0.1 * 400) + 1, blue) ? 1 : 0;
    EXPECT_GT(columns, 1150);

    // Project chart: the output half is a different signal.
    std::vector<double> project(32784, 0.0);
    const auto input = chartarrays::signalTime(1.0, 1.0, 256.0, 0, 0);
    const auto output = chartarrays::signalTime(1.0, -0.5, 256.0, 1, 0);
    std::copy(input.begin(), input.begin() + 8, project.begin());
    std::copy(output.begin(), output.begin() + 8, project.begin() + 8);
    std::copy(input.begin() + 8, input.end(), project.begin() + 16);
    std::copy(output.begin() + 8, output.end(), project.begin() + 16400);
    window.array = project;
    GVRViewProjTime projView;
    projView.setTimeSource(&window);
    EXPECT_TRUE(projView.showsInput());
    image = render(projView, 1200, 400, "project_time_input");
    EXPECT_TRUE(columnHas(image, 75, row(image, 0.9 * 400) - 2, row(image, 0.9 * 400) + 2, blue));
    projView.selectChartOne(false);
    projView.setZoomLevel(4);
    image = render(projView, 1200, 400, "project_time_output");
    expectFrameAndBackground(image);
    // -0.5 sin at zoom 4: the first trough (sample 64) at x = 18.75; amplitude
    // step 0.2 with 3 divisions puts -0.5 at 0.5 H - 0.5 / 0.6 × 0.4 H.
    const double trough = 200.0 - 0.5 / 0.6 * 160.0;
    EXPECT_TRUE(columnHas(image, 19, row(image, trough) - 2, row(image, trough) + 2, blue));
}

TEST(ViewsRender, NonFiniteDataRendersWithoutBreaking)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    StubWindow window;
    GVRViewFiltDesign filt;
    filt.setMagPhaseSource(&window);
    GVRViewTimeSignalDesign time;
    time.setTimeSource(&window);
    GVRViewFreqSignalDesign freq;
    freq.setFreqSource(&window);
    GVRViewProjTime projTime;
    projTime.setTimeSource(&window);
    for (const double bad : {nan, inf, -inf, 1e308}) {
        std::vector<double> a(32784);
        for (std::size_t i = 0; i < a.size(); ++i)
            a[i] = i % 3 == 0 ? bad : std::sin(double(i));
        window.array = a;
        for (int type : {0, 1}) {
            filt.newChartOfType(type, QStringLiteral("Norm"));
            expectFrameAndBackground(render(filt, 400, 200));
        }
        time.setZoomLevel(1);
        expectFrameAndBackground(render(time, 400, 200));
        expectFrameAndBackground(render(freq, 400, 200));
        projTime.selectChartOne(false);
        expectFrameAndBackground(render(projTime, 400, 200));
    }
    // All NaN, header included.
    window.array.assign(8200, nan);
    expectFrameAndBackground(render(freq, 400, 200, "spectrum_all_nan"));
    // A short array.
    window.array = {1.0, 2.0, 3.0};
    expectFrameAndBackground(render(time, 400, 200));
}
