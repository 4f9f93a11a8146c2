// orvana-render-chart: draws one chart or panel view offscreen into a PNG,
// fed by the real filter and signal designer models (and, for the project
// charts, a sum-and-filter system built from their results), so a view can
// be looked at without opening the windows.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <span>
#include <vector>

#include <QApplication>
#include <QCommandLineParser>
#include <QImage>
#include <QStringList>
#include <QTemporaryDir>

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
#include "dsp/signal_spectrum.h"
#include "dsp/sum_and_filter.h"
#include "filter/filter_design_view.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "library/design_library.h"
#include "signal/signal_design_view.h"
#include "signal/signal_designer_model.h"
#include "signal/signal_keys.h"

namespace {

struct Options {
    int width = 800;
    int height = 300;
    double zoom = 16.0;
    int index = -1;     // formula or block diagram index; -1 for the kind's default
    int filterType = 0; // 0 low pass, 1 band pass, 2 high pass
};

// Stands in for the filter design window: keeps what the model sends.
class FilterWindow : public GVRFilterDesignView, public MagPhaseArraySource {
public:
    void displayNoteField(const QString& text, double, bool) override
    {
        if (!text.isEmpty())
            std::fprintf(stderr, "filter note: %s\n", qPrintable(text));
    }
    void displayFilterDesignResults(const QVariantMap& r) override { results = r; }
    void plotMagnitudeAndPhaseWithArray(const std::vector<double>& a) override { array = a; }
    void clearFilterDesignResults() override { results.clear(); }
    void restoreFilterParameters(const QVariantMap&) override {}
    std::vector<double> theMagPhaseArray() const override { return array; }

    QVariantMap results;
    std::vector<double> array;
};

// Stands in for the signal design window.
class SignalWindow : public SignalDesignView, public TimeArraySource, public FreqArraySource {
public:
    void displayNoteField(const QString& text, double, bool) override
    {
        if (!text.isEmpty())
            std::fprintf(stderr, "signal note: %s\n", qPrintable(text));
    }
    void plotTimeWithArray(const std::vector<double>& a) override { time = a; }
    void plotFreqWithArray(const std::vector<double>& a) override { freq = a; }
    void restoreSignalParameters(const QVariantMap&) override {}
    std::vector<double> theTimeArray() const override { return time; }
    std::vector<double> theFreqArray() const override { return freq; }

    std::vector<double> time;
    std::vector<double> freq;
};

// Holds finished project arrays.
struct ProjectArrays : TimeArraySource, FreqArraySource {
    std::vector<double> time;
    std::vector<double> freq;
    std::vector<double> theTimeArray() const override { return time; }
    std::vector<double> theFreqArray() const override { return freq; }
};

// A 51-tap Hamming filter at fs 100 KHz: low pass at 6 KHz, band pass 20 ± 6
// KHz or high pass above 30 KHz.
void designFilter(GVRFilterDesignerModel& model, int filterType)
{
    const double cutoff = filterType == 2 ? 30.0 : 6.0;
    model.designFilterWithParameters({
        {KEYFP_UNITS, 1},
        {KEYFP_FILTER_TYPE, filterType},
        {KEYFP_SAMPLING_FREQ, 100.0},
        {KEYFP_CUTOFF_FREQ, cutoff},
        {KEYFP_CENTER_FREQ, 20.0},
        {KEYFP_FILTER_LENGTH, 51.0},
        {KEYFP_FILTER_WIDTH, 0},
        {KEYFP_WINDOW_TYPE, 2},
        {KEYFP_BETA_UPSILON, 0.0},
    });
}

// Two cosines, 1 V at 2 KHz and 0.5 V at 20 KHz, fs 100 KHz, light noise.
void designSignal(GVRSignalDesignerModel& model)
{
    model.designSignalWithParameters(
        GVRSignalDesignerModel::parameterDictionary(1, 0, 100.0, 1.0, {1.0, 2.0, 0.5, 20.0, 0.02, 0.0}));
}

// The signal through the filter, laid out as the project window's two arrays.
ProjectArrays sumAndFilter(const std::vector<double>& signalTime, const std::vector<double>& signalFreq,
                           const std::vector<double>& h)
{
    constexpr std::size_t n = 16384;
    ProjectArrays p;
    if (signalTime.size() < 8 + n || signalFreq.size() < 8 || h.empty())
        return p;
    const std::span<const double> x(signalTime.data() + 8, n);
    std::vector<double> y(n);
    convolutionSysOut(x, h, y);

    p.time.assign(16 + 2 * n, 0.0);
    p.freq.assign(16 + n, 0.0);
    std::copy(x.begin(), x.end(), p.time.begin() + 16);
    std::copy(y.begin(), y.end(), p.time.begin() + 16 + n);

    std::vector<double> magX(n);
    std::vector<double> magY(n);
    const SignalExtremes sx = magSpectrum(x, magX);
    const SignalExtremes sy = magSpectrum(y, magY);
    std::copy(magX.begin(), magX.begin() + n / 2, p.freq.begin() + 16);
    std::copy(magY.begin(), magY.begin() + n / 2, p.freq.begin() + 16 + n / 2);

    const SignalExtremes tx = measureSignal(x);
    const SignalExtremes ty = measureSignal(y);
    for (int half = 0; half < 2; ++half) {
        for (std::vector<double>* a : {&p.time, &p.freq}) {
            (*a)[8 * half + 0] = signalTime[0];
            (*a)[8 * half + 1] = signalTime[1];
            (*a)[8 * half + 2] = signalTime[2];
            (*a)[8 * half + 3] = signalTime[3];
        }
    }
    p.time[4] = tx.max;
    p.time[5] = tx.min;
    p.time[12] = ty.max;
    p.time[13] = ty.min;
    p.freq[4] = sx.max;
    p.freq[5] = sx.min;
    p.freq[12] = sy.max;
    p.freq[13] = sy.min;
    return p;
}

const char* const kKinds =
    "filter-magnitude filter-phase results signal-time signal-spectrum project-time-input\n"
    "project-time-output project-spectrum-input project-spectrum-output formula block-diagram empty";

// Reads KIND OUTPUT.png and the options; false (with a message) on anything unusable.
bool parseOptions(QCommandLineParser& parser, Options& o, QString& kind, QString& output)
{
    const QCommandLineOption width(QStringLiteral("width"), QStringLiteral("View width (16 to 8000)."),
                                   QStringLiteral("W"), QStringLiteral("800"));
    const QCommandLineOption height(QStringLiteral("height"), QStringLiteral("View height (16 to 8000)."),
                                    QStringLiteral("H"), QStringLiteral("300"));
    const QCommandLineOption zoom(QStringLiteral("zoom"), QStringLiteral("Time-chart zoom (1 to 256)."),
                                  QStringLiteral("Z"), QStringLiteral("16"));
    const QCommandLineOption index(QStringLiteral("index"),
                                   QStringLiteral("Formula (0-10) or block diagram (1, 2) index."),
                                   QStringLiteral("I"), QStringLiteral("-1"));
    const QCommandLineOption filterType(QStringLiteral("filter-type"),
                                        QStringLiteral("0 low pass, 1 band pass, 2 high pass."),
                                        QStringLiteral("T"), QStringLiteral("0"));
    parser.setApplicationDescription(QStringLiteral("Draws one chart or panel view into a PNG.\nKIND: ") +
                                     QString::fromLatin1(kKinds));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("KIND"), QStringLiteral("The view to draw."));
    parser.addPositionalArgument(QStringLiteral("OUTPUT"), QStringLiteral("The PNG file to write."));
    parser.addOptions({width, height, zoom, index, filterType});
    parser.process(QCoreApplication::arguments());
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2)
        return false;
    kind = positional[0];
    output = positional[1];
    bool ok[5] = {};
    o.width = parser.value(width).toInt(&ok[0]);
    o.height = parser.value(height).toInt(&ok[1]);
    o.zoom = parser.value(zoom).toDouble(&ok[2]);
    o.index = parser.value(index).toInt(&ok[3]);
    o.filterType = parser.value(filterType).toInt(&ok[4]);
    return std::all_of(std::begin(ok), std::end(ok), [](bool b) { return b; }) && o.width >= 16 &&
           o.width <= 8000 && o.height >= 16 && o.height <= 8000 && std::isfinite(o.zoom) && o.zoom >= 1.0 &&
           o.zoom <= 256.0 && o.filterType >= 0 && o.filterType <= 2;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCommandLineParser parser;
    Options o;
    QString kind;
    QString output;
    if (!parseOptions(parser, o, kind, output)) {
        std::fprintf(stderr, "%s", qPrintable(parser.helpText()));
        return 2;
    }

    // Nothing is saved; the models still need a library, an empty scratch one.
    QTemporaryDir scratch;
    DesignLibrary library(scratch.path());
    FilterWindow filterWindow;
    GVRFilterDesignerModel filterModel(library);
    filterModel.setWindow(&filterWindow);
    designFilter(filterModel, o.filterType);

    SignalWindow signalWindow;
    GVRSignalDesignerModel signalModel(library);
    signalModel.setWinSignalDesign(&signalWindow);
    designSignal(signalModel);

    // The project filter is always the low pass so the output shows the slow tone alone.
    FilterWindow projectFilterWindow;
    GVRFilterDesignerModel projectFilter(library);
    projectFilter.setWindow(&projectFilterWindow);
    designFilter(projectFilter, 0);
    const ProjectArrays project =
        sumAndFilter(signalWindow.time, signalWindow.freq, projectFilter.filterCoefficients());

    std::unique_ptr<QWidget> view;
    if (kind == QLatin1String("filter-magnitude") || kind == QLatin1String("filter-phase") ||
        kind == QLatin1String("empty")) {
        auto v = std::make_unique<GVRViewFiltDesign>();
        if (kind != QLatin1String("empty"))
            v->setMagPhaseSource(&filterWindow);
        v->newChartOfType(kind == QLatin1String("filter-phase") ? 1 : 0, QStringLiteral("KHz"));
        view = std::move(v);
    } else if (kind == QLatin1String("results")) {
        auto v = std::make_unique<GVRViewResults>();
        v->setFilterType(o.filterType);
        v->setFreqUnits(1);
        v->displayFilterDesignResults(filterWindow.results);
        view = std::move(v);
    } else if (kind == QLatin1String("signal-time")) {
        auto v = std::make_unique<GVRViewTimeSignalDesign>();
        v->setTimeSource(&signalWindow);
        v->setZoomLevel(o.zoom);
        view = std::move(v);
    } else if (kind == QLatin1String("signal-spectrum")) {
        auto v = std::make_unique<GVRViewFreqSignalDesign>();
        v->setFreqSource(&signalWindow);
        view = std::move(v);
    } else if (kind.startsWith(QLatin1String("project-time-"))) {
        auto v = std::make_unique<GVRViewProjTime>();
        v->setTimeSource(&project);
        v->setZoomLevel(int(o.zoom));
        v->selectChartOne(kind.endsWith(QLatin1String("input")));
        view = std::move(v);
    } else if (kind.startsWith(QLatin1String("project-spectrum-"))) {
        auto v = std::make_unique<GVRViewProjFreq>();
        v->setFreqSource(&project);
        v->selectChartOne(kind.endsWith(QLatin1String("input")));
        view = std::move(v);
    } else if (kind == QLatin1String("formula")) {
        auto v = std::make_unique<GVRViewFuncSignalDesign>();
        v->newFunctionWithIndex(o.index < 0 ? 2 : o.index);
        view = std::move(v);
    } else if (kind == QLatin1String("block-diagram")) {
        auto v = std::make_unique<GVRViewBlockDiagram>();
        v->newBlockDiagramWithIndex(o.index < 0 ? 1 : o.index);
        view = std::move(v);
    } else {
        std::fprintf(stderr, "unknown KIND %s\n%s", qPrintable(kind), qPrintable(parser.helpText()));
        return 2;
    }

    view->resize(o.width, o.height);
    QImage image(o.width, o.height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    view->render(&image);
    if (!image.save(output, "PNG")) {
        std::fprintf(stderr, "could not write %s\n", qPrintable(output));
        return 1;
    }
    return 0;
}
