// The further design views: the zeros of a 255-tap design (target 50 ms
// median, numpy.roots beside it), and the paint of each new chart at
// 1200 × 400 (target 5 ms): impulse, step, group delay, zeros, word length,
// the Multirate stages w[m] and p[m] in time and frequency, and the compare
// overlay. Each chart is laid out once; the figure is one full paint pass.
#include <cmath>
#include <numbers>
#include <vector>

#include <QApplication>
#include <QDir>
#include <QFont>

#include "bench_support.h"
#include "charts/chart_export.h"
#include "charts/compare_overlay.h"
#include "charts/design_view_charts.h"
#include "charts/spectrum_chart_layout.h"
#include "charts/time_chart_layout.h"
#include "dsp/design_views.h"
#include "dsp/frequency_response.h"
#include "dsp/word_length_sweep.h"
#include "library/design_library.h"
#include "library/memory_design_source.h"
#include "project/project_model.h"

namespace {

constexpr QSize kSize{1200, 400};

// The 255-tap Hamming low pass with cutoff fs/8, as zeros_numpy.py makes it.
std::vector<double> lowPass(int taps, double cutoff)
{
    std::vector<double> h(static_cast<std::size_t>(taps));
    const int mid = (taps - 1) / 2;
    for (int i = 0; i < taps; ++i) {
        const double n = i - mid;
        const double sinc =
            n == 0 ? 1.0 : std::sin(std::numbers::pi * cutoff * n) / (std::numbers::pi * cutoff * n);
        const double window = 0.54 - 0.46 * std::cos(2 * std::numbers::pi * i / (taps - 1));
        h[std::size_t(i)] = cutoff * sinc * window;
    }
    return h;
}

void reportPaint(const std::string& label, const ChartScene& scene)
{
    const QFont font = QApplication::font();
    bench::report(label + ", 1200x400 (target 5000)",
                  bench::medianMicros([&] { (void)chartexport::renderImage(scene, kSize, 1.0, font); }, 30),
                  std::nullopt, "");
}

// Stage arrays of a Multirate design of a two-tone signal, L = 4, M = 3.
GVRProjectModel::StageArrays stage(GVRProjectModel& model, GVRProjectModel::MultirateStage which)
{
    return model.multirateStageArrays(which);
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    bench::loadFftWisdom();

    const std::vector<double> h = lowPass(255, 0.25);
    bench::report("zeros of a 255-tap design, Eigen colleague-matrix eigenvalues (target 50000)",
                  bench::medianMicros([&] { (void)designviews::transferZeros(h); }, 20),
                  bench::pythonMedianMicros("zeros_numpy.py", "20"), "numpy.roots");

    const float w = float(kSize.width());
    const float ht = float(kSize.height());
    const std::vector<double> cp = lowPass(255, 0.25);
    const ChartSeries impulse = designcharts::impulseSeries(h, cp);
    reportPaint("impulse chart, 255 stems", designcharts::layoutDesignChart(impulse, w, ht));
    const ChartSeries step = designcharts::stepSeries(cp);
    reportPaint("step chart, 255 stems", designcharts::layoutDesignChart(step, w, ht));
    const ChartSeries delay = designcharts::groupDelaySeries(cp, 1.0, QStringLiteral("Norm"));
    reportPaint("group delay chart, 2048 points", designcharts::layoutDesignChart(delay, w, ht));
    const ChartSeries zeros = designcharts::zerosSeries(cp);
    reportPaint("zeros chart, 254 zeros and the unit circle", designcharts::layoutDesignChart(zeros, w, ht));
    SweepRow rows[kSweepRows];
    wordLengthSweep(0, 0.25, 0.0, h, rows);
    const ChartSeries sweep = designcharts::wordLengthSeries(rows);
    reportPaint("word length chart, 14 rows", designcharts::layoutWordLengthChart(sweep, w, ht));

    // A Multirate design from memory: the tones 0.02 and 0.11 of fs, L = 4, M = 3, automatic filter.
    MemoryDesignSource source;
    GVRSignal s;
    s.samplingFreq = 1.0;
    s.yStepIndex = 0.0;
    s.freqUnits = 0;
    s.voltUnits = 0;
    s.maxFreq = 0.11;
    std::vector<double> x(16384);
    for (std::size_t k = 0; k < x.size(); ++k)
        x[k] = std::cos(2 * std::numbers::pi * 0.02 * double(k)) +
               0.5 * std::cos(2 * std::numbers::pi * 0.11 * double(k));
    s.sampledSignalArray = x;
    source.signalRecords["x"] = s;
    GVRFilter unused;
    unused.unitsType = 0;
    unused.dfFilterLengthN = 1.0;
    unused.filterPrecisionCoefficients = std::vector<double>{1.0};
    source.filterRecords["f"] = unused;
    DesignLibrary library(QDir::tempPath() + QStringLiteral("/orvana-bench-unused"));
    GVRProjectModel model(library);
    model.setDesignSource(&source);
    model.designProjectWithParameters(GVRProjectModel::parameterDictionary(2, "f", "x", "x", 0, 2, 4, 3, 1));
    bench::report(
        "stage arrays on demand, p[m] with the 255-tap automatic filter, L 4 M 3",
        bench::medianMicros([&] { (void)stage(model, GVRProjectModel::MultirateStage::Filtered); }, 20),
        std::nullopt, "");
    for (const auto& [which, name] :
         {std::pair{GVRProjectModel::MultirateStage::Upsampled, "upsampled w[m]"},
          std::pair{GVRProjectModel::MultirateStage::Filtered, "filtered p[m]"}}) {
        const GVRProjectModel::StageArrays arrays = stage(model, which);
        reportPaint(std::string(name) + " time chart, zoom 16",
                    layoutTimeChart(arrays.time, 0, 8, 16.0f, w, ht));
        reportPaint(std::string(name) + " time chart, zoom 1",
                    layoutTimeChart(arrays.time, 0, 8, 1.0f, w, ht));
        reportPaint(std::string(name) + " spectrum chart", layoutSpectrumChart(arrays.freq, 0, 8, w, ht));
    }

    std::vector<ComparedCurve> curves;
    for (const double cutoff : {0.25, 0.4, 0.1, 0.6}) {
        ComparedCurve c{QStringLiteral("lp%1").arg(cutoff), std::vector<double>(2048),
                        std::vector<double>(2048)};
        fftFilterHalf(lowPass(101, cutoff), c.dB, {});
        for (std::size_t k = 0; k < 2048; ++k)
            c.xs[k] = double(k) / 2048.0;
        curves.push_back(std::move(c));
    }
    reportPaint("compare overlay, 4 designs of 2048 points and the legend",
                comparechart::layoutCompareChart(curves, w, ht));
    return 0;
}
