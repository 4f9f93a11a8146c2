// Paint time of the two busiest charts: the time chart at zoom 1 (16383
// segments) on 1200 × 400, and the filter response chart.

#include <QApplication>
#include <QImage>

#include "bench_support.h"
#include "chart_fixtures.h"
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
    bench::report("time chart, zoom 1, 16383 segments, 1200x400 (target 5000)",
                  bench::medianMicros([&] { time.render(&image); }, 50), std::nullopt, "");

    bench::ChartArrays none;
    GVRViewTimeSignalDesign empty;
    empty.setTimeSource(&none);
    empty.resize(image.size());
    bench::report("empty chart (frame only, the cost of a render call), 1200x400",
                  bench::medianMicros([&] { empty.render(&image); }, 50), std::nullopt, "");

    time.setZoomLevel(16);
    bench::report("time chart, zoom 16, 1024 segments, 1200x400",
                  bench::medianMicros([&] { time.render(&image); }, 50), std::nullopt, "");

    GVRViewFiltDesign filter;
    filter.setMagPhaseSource(&arrays);
    filter.resize(image.size());
    filter.newChartOfType(0, QStringLiteral("Norm"));
    bench::report("filter magnitude chart, 2047 segments, 1200x400 (target 2000)",
                  bench::medianMicros([&] { filter.render(&image); }, 50), std::nullopt, "");
    filter.newChartOfType(1, QStringLiteral("Norm"));
    bench::report("filter phase chart, 2047 segments, 1200x400 (target 2000)",
                  bench::medianMicros([&] { filter.render(&image); }, 50), std::nullopt, "");
    return 0;
}
