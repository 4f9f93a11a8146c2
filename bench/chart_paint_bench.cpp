// Paint time of the two busiest charts: the time chart at zoom 1 (16383
// segments) on 1200 × 400, and the filter response chart.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include <QApplication>
#include <QImage>

#include "bench_support.h"
#include "charts/mag_phase_array_source.h"
#include "charts/time_array_source.h"
#include "charts/view_filt_design.h"
#include "charts/view_time_signal_design.h"

namespace {

struct Arrays : MagPhaseArraySource, TimeArraySource {
    std::vector<double> response;
    std::vector<double> time;
    std::vector<double> theMagPhaseArray() const override { return response; }
    std::vector<double> theTimeArray() const override { return time; }
};

// A noisy two-tone record: a busy curve that fills the plot band.
std::vector<double> timeArray()
{
    std::vector<double> a(8 + 16384);
    unsigned state = 12345;
    double largest = -1e300;
    double smallest = 1e300;
    for (int k = 0; k < 16384; ++k) {
        state = state * 1103515245u + 12345u;
        const double noise = (double(state >> 8) / double(1u << 24) - 0.5) * 0.2;
        const double v = std::cos(2 * std::numbers::pi * 0.01 * k) +
                         0.5 * std::sin(2 * std::numbers::pi * 0.13 * k) + noise;
        a[8 + k] = v;
        largest = std::max(largest, v);
        smallest = std::min(smallest, v);
    }
    a[0] = 1.0;
    a[1] = 0.13;
    a[4] = largest;
    a[5] = smallest;
    return a;
}

// A 51-tap low pass: flat pass band, side lobes down to -90 dB, linear phase
// with a jump of π at each stop-band notch.
std::vector<double> responseArray()
{
    std::vector<double> a(8 + 2 * 2048);
    double phase = 0.0;
    double lowest = 0.0;
    for (int k = 0; k < 2048; ++k) {
        const double f = k / 2047.0;
        const bool pass = f < 0.25;
        a[8 + k] = pass ? 0.01 * std::sin(60 * f) : -40.0 - 50.0 * std::fabs(std::sin(90 * f));
        if (!pass && k % 45 == 0)
            phase += std::numbers::pi;
        a[8 + 2048 + k] = phase - 25.0 * std::numbers::pi * f;
        lowest = std::min(lowest, a[8 + 2048 + k]);
    }
    a[0] = 2048.0;
    a[1] = 0.01;
    a[2] = -90.0;
    a[3] = 1.0;
    a[4] = 0.0;
    a[5] = lowest;
    return a;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Arrays arrays;
    arrays.time = timeArray();
    arrays.response = responseArray();

    QImage image(1200, 400, QImage::Format_ARGB32_Premultiplied);

    GVRViewTimeSignalDesign time;
    time.setTimeSource(&arrays);
    time.setZoomLevel(1);
    time.resize(image.size());
    bench::report("time chart, zoom 1, 16383 segments, 1200x400 (target 5000)",
                  bench::medianMicros([&] { time.render(&image); }, 50), std::nullopt, "");

    Arrays none;
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
