// Repaint time of a zoomed or panned time chart (16383 segments at zoom 1),
// of a repaint after the cursor moves, and of an SVG export of the filter
// chart; the default repaint is printed beside them as the reference.

#include <QApplication>
#include <QImage>

#include "bench_support.h"
#include "chart_fixtures.h"
#include "charts/chart_export.h"
#include "charts/chart_painting.h"
#include "charts/filter_chart_layout.h"
#include "charts/view_filt_design.h"
#include "charts/view_time_signal_design.h"

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    bench::ChartArrays arrays;
    arrays.time = bench::busyTimeArray();
    arrays.response = bench::lowPassResponseArray();
    QImage image(1200, 400, QImage::Format_ARGB32_Premultiplied);

    GVRViewTimeSignalDesign time;
    time.setTimeSource(&arrays);
    time.setZoomLevel(1);
    time.resize(image.size());
    const double unzoomed = bench::medianMicros([&] { time.render(&image); }, 50);
    bench::report("time chart, zoom 1, default view, 1200x400", unzoomed, std::nullopt, "");

    time.setChartZoom({0.1, 0.9, 0.1, 0.9});
    bench::report("time chart, zoom 1, wheel-zoomed, 1200x400 (target 5000)",
                  bench::medianMicros([&] { time.render(&image); }, 50), unzoomed, "default view");
    double shift = 0.0;
    bench::report("time chart, zoom 1, panned each pass, 1200x400 (target 5000)",
                  bench::medianMicros(
                      [&] {
                          shift += 0.001;
                          time.setChartZoom({0.1 + shift, 0.9 + shift, 0.1, 0.9});
                          time.render(&image);
                      },
                      50),
                  unzoomed, "default view");

    time.render(&image);
    int index = 100;
    bench::report("time chart, repaint after the cursor moves (target 2000)",
                  bench::medianMicros(
                      [&] {
                          time.setCursorIndex(++index);
                          time.render(&image);
                      },
                      50),
                  unzoomed, "default view");

    const ChartScene filter = layoutFilterChart(arrays.response, 0, QStringLiteral("Norm"), 1200.0f, 400.0f);
    const QFont font = chartpaint::palatinoFont(12);
    bench::report("filter chart SVG export, 1200x400 (target 50000)",
                  bench::medianMicros(
                      [&] { (void)chartexport::svgBytes(filter, QSize(1200, 400), font, "bench"); }, 20),
                  std::nullopt, "");
    return 0;
}
