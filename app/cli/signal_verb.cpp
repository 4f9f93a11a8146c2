// orvana-cli signal: one test-signal design through GVRSignalDesignerModel,
// printed for a person or as JSON. Options mirror the signal design
// window's form; a missing number reads as 0, as an empty field does.
#include "cli/cli_options.h"
#include "cli/cli_output.h"
#include "cli/plot_output.h"
#include "cli/verbs.h"

#include "charts/chart_series.h"
#include "charts/spectrum_chart_layout.h"
#include "charts/time_chart_layout.h"
#include "dsp/signal_spectrum.h"
#include "library/design_library.h"
#include "signal/signal_design_view.h"
#include "signal/signal_designer_model.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace cli {

namespace {

const QStringList kFunctions{
    QStringLiteral("cosine"), QStringLiteral("two-cosines"), QStringLiteral("cosine-sum"),
    QStringLiteral("sine"),   QStringLiteral("two-sines"),   QStringLiteral("sine-sum"),
    QStringLiteral("noise"),  QStringLiteral("mixer"),       QStringLiteral("rectangle"),
    QStringLiteral("sinc"),   QStringLiteral("sinc-squared")};
// Parameter symbols per function, as the window labels them.
const QStringList kSymbols[6] = {
    QStringLiteral("A,A₁,A,A,A₁,A,σ,A₁,A,β,β").split(QLatin1Char(',')),
    QStringLiteral("fₐ,fₐ₁,fₐ,fₐ,fₐ₁,fₐ,μ,fₐ₁,τ,σ,σ").split(QLatin1Char(',')),
    QStringLiteral("ϕ,A₂,ϕ,ϕ,A₂,ϕ, ,A₂,σ,μ,μ").split(QLatin1Char(',')),
    QStringLiteral("σ,fₐ₂,M,σ,fₐ₂,M, ,fₐ₂,μ, , ").split(QLatin1Char(',')),
    QStringLiteral("μ,σ,σ,μ,σ,σ, ,σ, , , ").split(QLatin1Char(',')),
    QStringLiteral(" ,μ,μ, ,μ,μ, ,μ, , , ").split(QLatin1Char(',')),
};

// Everything the model tells its window, kept for printing.
class CollectingView : public NoteAndChartsView<SignalDesignView> {
public:
    void restoreSignalParameters(const QVariantMap&) override {}
};

// A function index 0..10 or its name.
std::optional<int> functionChoice(const QString& text)
{
    const QString t = text.trimmed();
    for (int i = 0; i < kFunctions.size(); ++i)
        if (t.compare(kFunctions[i], Qt::CaseInsensitive) == 0)
            return i;
    bool ok = false;
    const int index = t.toInt(&ok);
    if (ok && index >= 0 && index < kFunctions.size())
        return index;
    return std::nullopt;
}

void writeText(const GVRSignalDesignerModel& model, const CollectingView& view, bool designed)
{
    QString out = noteLine(view.note);
    if (!designed) {
        printOut(out);
        return;
    }
    const int index = static_cast<int>(model.yStepIndex());
    const QString freqUnit = model.freqUnits() == 0 ? QStringLiteral("MHz") : QStringLiteral("KHz");
    const QString timeUnit = model.freqUnits() == 0 ? QStringLiteral("μS") : QStringLiteral("mS");
    const QString voltUnit = model.voltUnits() == 0 ? QStringLiteral("V") : QStringLiteral("mV");
    const auto& t = view.time;
    const auto& f = view.freq;
    const double fs = t[0];

    out += QStringLiteral("\n%1, fs %2 %3\n").arg(kFunctions[index]).arg(fs, 0, 'g', 10).arg(freqUnit);
    QStringList parms;
    for (int slot = 0; slot < 6; ++slot) {
        const QString symbol = kSymbols[slot].value(index).trimmed();
        if (!symbol.isEmpty())
            parms << QStringLiteral("%1 = %2").arg(symbol).arg(model.parms()[static_cast<std::size_t>(slot)],
                                                               0, 'g', 10);
    }
    out += parms.join(QStringLiteral(", ")) + QLatin1Char('\n');
    out += QStringLiteral("Highest frequency: %1 %2\n").arg(t[1], 0, 'g', 10).arg(freqUnit);
    out += QStringLiteral("Largest sample:    %1 %2\n").arg(t[4], 0, 'g', 10).arg(voltUnit);
    out += QStringLiteral("Smallest sample:   %1 %2\n").arg(t[5], 0, 'g', 10).arg(voltUnit);

    out += QStringLiteral("\nFirst samples (of 16384, T = %1 %2):\n").arg(1.0 / fs, 0, 'g', 6).arg(timeUnit);
    for (std::size_t k = 0; k < 8; ++k)
        out += QStringLiteral("  x[%1] = %2\n").arg(k).arg(t[8 + k], 0, 'g', 12);

    // The strongest bins of the one-sided spectrum.
    std::vector<std::size_t> bins(f.size() - 8);
    std::iota(bins.begin(), bins.end(), 0);
    const std::size_t shown = std::min<std::size_t>(5, bins.size());
    std::partial_sort(bins.begin(), bins.begin() + static_cast<std::ptrdiff_t>(shown), bins.end(),
                      [&](std::size_t a, std::size_t b) { return f[8 + a] > f[8 + b]; });
    out += QStringLiteral("\nStrongest spectrum bins (|X[k]|/16384, bin width %1 %2):\n")
               .arg(fs / static_cast<double>(kSpectrumLength), 0, 'g', 6)
               .arg(freqUnit);
    for (std::size_t i = 0; i < shown; ++i) {
        const std::size_t k = bins[i];
        out += QStringLiteral("  bin %1  %2 %3  %4 %5\n")
                   .arg(k, 4)
                   .arg(static_cast<double>(k) * fs / static_cast<double>(kSpectrumLength), 0, 'g', 8)
                   .arg(freqUnit)
                   .arg(f[8 + k], 0, 'g', 8)
                   .arg(voltUnit);
    }
    printOut(out);
}

} // namespace

int runSignal(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        describeVerb(QStringLiteral("Design a 16384-sample test signal."), true));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption freqUnits(QStringLiteral("freq-units"),
                                       QStringLiteral("mhz or khz (default mhz)."), QStringLiteral("units"),
                                       QStringLiteral("mhz"));
    const QCommandLineOption voltUnits(QStringLiteral("volt-units"), QStringLiteral("v or mv (default v)."),
                                       QStringLiteral("units"), QStringLiteral("v"));
    const QCommandLineOption fs(QStringLiteral("fs"), QStringLiteral("Sampling frequency."),
                                QStringLiteral("number"));
    const QCommandLineOption function(QStringLiteral("function"),
                                      QStringLiteral("0..10 or a name: ") +
                                          kFunctions.join(QStringLiteral(", ")),
                                      QStringLiteral("function"), QStringLiteral("0"));
    QList<QCommandLineOption> parms;
    for (int slot = 0; slot < 6; ++slot) {
        QStringList uses;
        for (int i = 0; i < kFunctions.size(); ++i)
            if (!kSymbols[slot][i].trimmed().isEmpty())
                uses << QStringLiteral("%1 %2").arg(i).arg(kSymbols[slot][i]);
        parms << QCommandLineOption(
            QStringLiteral("p%1").arg(slot + 1),
            QStringLiteral("Parameter %1 (%2).").arg(slot + 1).arg(uses.join(QStringLiteral(", "))),
            QStringLiteral("number"));
    }
    const QCommandLineOption json = jsonOption();
    const QCommandLineOption save(QStringLiteral("save"),
                                  QStringLiteral("Save the design in the library as NAME."),
                                  QStringLiteral("name"));
    const QCommandLineOption library = libraryOption();
    parser.addOptions({help, freqUnits, voltUnits, fs, function, json, save, library});
    parser.addOptions(parms);
    PlotRequest plot({QStringLiteral("time"), QStringLiteral("spectrum")}, true);
    plot.addOptionsTo(parser);
    if (const auto finished = parseVerbArguments(parser, args, Positionals::None))
        return *finished;
    if (const auto refusedPlot = plot.read(parser, QStringLiteral("signal")))
        return *refusedPlot;

    const QString freqText = parser.value(freqUnits).trimmed().toLower();
    const QString voltText = parser.value(voltUnits).trimmed().toLower();
    const auto index = functionChoice(parser.value(function));
    if ((freqText != QLatin1String("mhz") && freqText != QLatin1String("khz")) ||
        (voltText != QLatin1String("v") && voltText != QLatin1String("mv")) || !index) {
        printErr(QStringLiteral("orvana-cli signal: unknown units or function.\n") + helpText(parser));
        return Usage;
    }
    std::array<double, 6> values{};
    std::optional<double> fsValue;
    for (int slot = -1; slot < 6; ++slot) {
        const QCommandLineOption& option = slot < 0 ? fs : parms[slot];
        const QString text = parser.value(option);
        const auto v = text.isEmpty() ? std::optional<double>(0.0) : parseNumber(text);
        if (!v) {
            printErr(QStringLiteral("orvana-cli signal: --%1 takes a number, not %2.")
                         .arg(option.names().first(), text));
            return Usage;
        }
        const QString what = slot < 0 ? QStringLiteral("the sampling frequency")
                                      : QStringLiteral("parameter %1").arg(slot + 1);
        if (const auto refusal =
                nonFiniteRefusal(QStringLiteral("signal"), option.names().first(), what, text, *v)) {
            printErr(*refusal);
            return Refused;
        }
        if (slot < 0)
            fsValue = *v;
        else
            values[static_cast<std::size_t>(slot)] = *v;
    }
    // The spectrum's bin frequencies are k × fs / 16384; a rate whose
    // products overflow would list bins at "inf".
    if (std::isfinite(*fsValue) && !std::isfinite(*fsValue * static_cast<double>(kSpectrumLength))) {
        printErr(QStringLiteral("orvana-cli signal: the sampling frequency (--fs) %1 is too large: the "
                                "spectrum's frequencies derived from it overflow.")
                     .arg(parser.value(fs).trimmed()));
        return Refused;
    }

    // The library is touched only when the design is to be saved there.
    DesignLibrary designLibrary(cliLibraryRoot(parser.value(library)));
    if (parser.isSet(save))
        prepareCliLibrary(designLibrary, QStringLiteral("signal"));
    CollectingView view;
    GVRSignalDesignerModel model(designLibrary);
    model.setWinSignalDesign(&view);
    const DesignOutcome outcome =
        model.designSignalWithParameters(GVRSignalDesignerModel::parameterDictionary(
            freqText == QLatin1String("khz") ? 1 : 0, voltText == QLatin1String("mv") ? 1 : 0, *fsValue,
            *index, values));
    // Values derived from finite parameters can still overflow; such a design
    // is refused like one with non-finite samples, and not saved.
    const auto finite = [](const std::vector<double>& values) {
        return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
    };
    if (!view.time.empty() && (!finite(view.time) || !finite(view.freq))) {
        printErr(QStringLiteral("orvana-cli signal: the design was refused: values derived from its "
                                "parameters overflow (are not finite)."));
        return Refused;
    }
    const bool designed = outcome == DesignOutcome::Designed;
    if (parser.isSet(json))
        printNoteAndChartsJson(view.note, view.time, view.freq, designed);
    else
        writeText(model, view, designed);
    if (parser.isSet(save)) {
        const QString name = parser.value(save);
        const bool saved = model.saveSignalDesignWithFileName(name);
        if (!reportSave(QStringLiteral("signal"), QStringLiteral("design"), saved, model.lastFileError(),
                        designLibrary.signalPath(name), parser.isSet(json)))
            return Refused;
    }
    if (designed && plot.wanted()) {
        const std::vector<double>& time = view.time;
        const std::vector<double>& freq = view.freq;
        const float zoom = plot.zoom();
        const int written =
            plot.chart() == QLatin1String("time")
                ? plot.write([&](float w, float h) { return layoutTimeChart(time, 0, 8, zoom, w, h); },
                             chartseries::timeSeries(time, 0, 8, zoom), QStringLiteral("Time Domain"),
                             QStringLiteral("signal"))
                : plot.write([&](float w, float h) { return layoutSpectrumChart(freq, 0, 8, w, h); },
                             chartseries::spectrumSeries(freq, 0, 8), QStringLiteral("Spectrum"),
                             QStringLiteral("signal"));
        if (written != Designed)
            return written;
    }
    return exitStatusOf(outcome);
}

} // namespace cli
