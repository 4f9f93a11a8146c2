// orvana-cli filter: one FIR design through GVRFilterDesignerModel, printed
// for a person or as JSON. Options mirror the filter design window's form;
// a missing number reads as 0, as an empty field does.
#include "cli/cli_options.h"
#include "cli/cli_output.h"
#include "cli/json_writer.h"
#include "cli/measured_output.h"
#include "cli/plot_output.h"
#include "cli/verbs.h"

#include "charts/chart_series.h"
#include "charts/design_view_charts.h"
#include "charts/filter_chart_layout.h"
#include "charts/mask_shading.h"
#include "archive/design_titles.h"
#include "dsp/fir_synthesis.h"
#include "dsp/quantisation.h"
#include "filter/filter_design_view.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "filter/mask_design.h"
#include "library/design_library.h"
#include "library/note_format.h"

#include <QCommandLineParser>

#include <optional>

namespace cli {

namespace {

const QStringList kUnits{QStringLiteral("norm"), QStringLiteral("khz"), QStringLiteral("mhz")};
const QStringList kTypes{QStringLiteral("lowpass"), QStringLiteral("bandpass"), QStringLiteral("highpass")};
const QStringList& kWindows = titles::windowTypes();

// Everything the model tells its window, kept for printing.
class CollectingView : public GVRFilterDesignView {
public:
    void displayNoteField(const QString& text, double value, bool withValue) override
    {
        note = formatNote(text, value, withValue);
    }
    void displayFilterDesignResults(const QVariantMap& r) override { results = r; }
    void plotMagnitudeAndPhaseWithArray(const std::vector<double>& a) override { response = a; }
    void clearFilterDesignResults() override
    {
        results.clear();
        response.clear();
    }
    void restoreFilterParameters(const QVariantMap&) override {}

    QString note;
    QVariantMap results;
    std::vector<double> response;
};

// Index of `text` in `names` (case-insensitive) or a plain index below names.size().
std::optional<int> choice(const QString& text, const QStringList& names)
{
    const QString t = text.trimmed();
    for (int i = 0; i < names.size(); ++i)
        if (t.compare(names[i], Qt::CaseInsensitive) == 0)
            return i;
    bool ok = false;
    const int index = t.toInt(&ok);
    if (ok && index >= 0 && index < names.size())
        return index;
    return std::nullopt;
}

// "double" is index 0; b bits (8..20, "16" or "16-bit") is index 21 − b.
std::optional<int> widthChoice(const QString& text)
{
    QString t = text.trimmed().toLower();
    if (t == QLatin1String("double"))
        return 0;
    if (t.endsWith(QLatin1String("-bit")))
        t.chop(4);
    bool ok = false;
    const int bits = t.toInt(&ok);
    const int index = ok ? widthIndexForBits(bits) : -1;
    if (index > 0)
        return index;
    return std::nullopt;
}

void writeJson(const GVRFilterDesignerModel& model, const CollectingView& view, bool valid)
{
    JsonWriter json;
    json.beginObject();
    json.key("note");
    json.value(view.note.toStdString());
    json.key("valid");
    json.value(valid);
    json.key("results");
    json.beginObject();
    if (valid) {
        for (const QString& key : {KEYFDR_3DB_LOW, KEYFDR_3DB_HIGH, KEYFDR_3DB_BANDWIDTH,
                                   KEYFDR_PASSBAND_RIPPLE, KEYFDR_DYNAMIC_RNG, KEYFDR_DYNAMIC_RNG_ERR}) {
            json.key(key.toStdString());
            json.value(view.results.value(key).toDouble());
        }
    }
    json.endObject();
    static const std::vector<double> noDoubles;
    static const std::vector<std::int64_t> noIntegers;
    json.key("filterCoefficients");
    json.array(valid ? model.filterCoefficients() : noDoubles);
    json.key("filterPrecisionCoefficients");
    json.array(valid ? model.filterPrecisionCoefficients() : noDoubles);
    json.key("integerCoefficients");
    json.array(valid ? model.integerCoefficients() : noIntegers);
    json.key("dynamicRange");
    if (valid)
        json.value(model.dynamicRange());
    else
        json.null();
    json.key("dynamicRangeError");
    if (valid)
        json.value(model.dynamicRangeError());
    else
        json.null();
    json.key("response");
    json.array(valid ? view.response : noDoubles);
    json.key("measured");
    if (valid)
        writeMeasuredJson(json, model);
    else
        json.null();
    if (model.design().mask && valid) {
        json.key("mask");
        writeMaskJson(json, model);
    }
    json.endObject();
    printOut(json.text() + "\n");
}

void writeText(const GVRFilterDesignerModel& model, const CollectingView& view, bool valid)
{
    QString out = noteLine(view.note);
    if (!valid) {
        printOut(out);
        return;
    }
    const QString unit = model.unitsType() == 0 ? QString() : titles::filterUnits().value(model.unitsType());
    auto frequency = [&](const QString& key) {
        const QString number = QString::number(view.results.value(key).toDouble(), 'f', 6);
        return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
    };
    const bool bandPass = model.filterType() == kFilterBandPass;
    out += QStringLiteral("\n%1 %2, %3 taps, %4 window, %5 coefficients\n")
               .arg(kTypes.value(model.filterType()), unit.isEmpty() ? QStringLiteral("(normalised)") : unit)
               .arg(model.filterLengthN())
               .arg(kWindows.value(model.windowType()),
                    model.filterWidth() == 0 ? QStringLiteral("double")
                                             : QStringLiteral("%1-bit").arg(widthBits(model.filterWidth())));
    out += QStringLiteral("%1%2\n").arg(bandPass ? QStringLiteral("3dB Point Low:    ")
                                                 : QStringLiteral("3dB Point:        "),
                                        frequency(KEYFDR_3DB_LOW));
    if (bandPass)
        out += QStringLiteral("3dB Point High:   %1\n").arg(frequency(KEYFDR_3DB_HIGH));
    out += QStringLiteral("3dB Bandwidth:    %1\n").arg(frequency(KEYFDR_3DB_BANDWIDTH));
    out += QStringLiteral("Passband Ripple:  %1 dB\n")
               .arg(view.results.value(KEYFDR_PASSBAND_RIPPLE).toDouble(), 0, 'f', 6);
    out += QStringLiteral("Dynamic Range:    %1\n").arg(model.dynamicRange(), 0, 'g', 10);
    out += QStringLiteral("Dynamic Range Error: %1 %\n").arg(model.dynamicRangeError(), 0, 'g', 10);
    out += measuredText(model);
    out += maskText(model);
    out += QStringLiteral("\n   n  coefficient             quantised               integer\n");
    const auto& c = model.filterCoefficients();
    const auto& cp = model.filterPrecisionCoefficients();
    const auto& q = model.integerCoefficients();
    for (std::size_t n = 0; n < c.size(); ++n)
        out += QStringLiteral("%1  %2  %3  %4\n")
                   .arg(n, 4)
                   .arg(c[n], -22, 'g', 17)
                   .arg(cp[n], -22, 'g', 17)
                   .arg(q[n]);
    printOut(out);
}

// Two comma-separated numbers at most ("0.2" or "0.2,0.4"); nothing when one is not a number.
std::optional<std::pair<double, double>> edgePair(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() > 2)
        return std::nullopt;
    const auto first = parseNumber(parts[0]);
    const auto second = parts.size() == 2 ? parseNumber(parts[1]) : std::optional<double>(0.0);
    if (!first || !second)
        return std::nullopt;
    return std::make_pair(*first, *second);
}

// Writes the --chart the request names from the design and its response array.
int writeFilterPlot(const PlotRequest& plot, const GVRFilterDesignerModel& model,
                    const std::vector<double>& response, int units)
{
    const QString unitLabel =
        QStringList{QStringLiteral("Norm"), QStringLiteral("KHz"), QStringLiteral("MHz")}.value(units);
    const QString& chart = plot.chart();
    const QString verb = QStringLiteral("filter");
    if (chart == QLatin1String("magnitude") || chart == QLatin1String("phase")) {
        const int type = chart == QLatin1String("phase") ? filterchart::kPhase : filterchart::kMagnitude;
        const auto mask = model.design().mask;
        return plot.write(
            [&](float w, float h) {
                ChartScene scene = layoutFilterChart(response, type, unitLabel, w, h);
                // A mask design shades what its response must stay out of, as the window does.
                if (mask && type == filterchart::kMagnitude && response.size() > 3)
                    scene.shading = maskShading(*mask, response[3], scene.viewRange, w, h);
                return scene;
            },
            chartseries::filterSeries(response, type, unitLabel),
            type == filterchart::kPhase ? QStringLiteral("Phase Response")
                                        : QStringLiteral("Magnitude Response"),
            verb);
    }
    const auto& c = model.filterCoefficients();
    const auto& cp = model.filterPrecisionCoefficients();
    ChartSeries series;
    QString title;
    if (chart == QLatin1String("impulse")) {
        series = designcharts::impulseSeries(c, cp);
        title = QStringLiteral("Impulse");
    } else if (chart == QLatin1String("step")) {
        series = designcharts::stepSeries(cp);
        title = QStringLiteral("Step");
    } else if (chart == QLatin1String("group-delay")) {
        series = designcharts::groupDelaySeries(cp, response.size() > 3 ? response[3] : 0.5, unitLabel);
        title = QStringLiteral("Group Delay");
    } else if (chart == QLatin1String("word-length")) {
        const auto rows = model.wordLengthSweep();
        series = designcharts::wordLengthSeries(rows);
        return plot.write([&](float w, float h) { return designcharts::layoutWordLengthChart(series, w, h); },
                          series, QStringLiteral("Word Length"), verb);
    } else {
        series = designcharts::zerosSeries(cp);
        title = QStringLiteral("Zeros");
    }
    return plot.write([&](float w, float h) { return designcharts::layoutDesignChart(series, w, h); }, series,
                      title, verb);
}

// The filter verb, or with `sweep` the sweep verb: the same design options, the word-length sweep printed.
int runFilterDesign(const QStringList& args, bool sweep)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(describeVerb(
        sweep ? QStringLiteral("Quantise a filter design at 8 to 20 bits and in double, and measure each.")
              : QStringLiteral("Design a window-method FIR filter, or the shortest one that meets a mask."),
        true));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption units(QStringLiteral("units"), QStringLiteral("norm, khz or mhz (default mhz)."),
                                   QStringLiteral("units"), QStringLiteral("mhz"));
    const QCommandLineOption type(QStringLiteral("type"),
                                  QStringLiteral("lowpass, bandpass or highpass (default lowpass)."),
                                  QStringLiteral("type"), QStringLiteral("lowpass"));
    const QCommandLineOption fs(QStringLiteral("fs"), QStringLiteral("Sampling frequency (KHz or MHz)."),
                                QStringLiteral("number"));
    const QCommandLineOption cutoff(QStringLiteral("cutoff"),
                                    QStringLiteral("Cutoff; for a band pass the half-width of the band."),
                                    QStringLiteral("number"));
    const QCommandLineOption center(QStringLiteral("center"), QStringLiteral("Centre of a band pass."),
                                    QStringLiteral("number"));
    const QCommandLineOption taps(QStringLiteral("taps"), QStringLiteral("Filter length, odd, 25 to 255."),
                                  QStringLiteral("N"), QStringLiteral("25"));
    const QCommandLineOption window(QStringLiteral("window"),
                                    QStringLiteral("0..10 or a name: ") + kWindows.join(QStringLiteral(", ")),
                                    QStringLiteral("window"), QStringLiteral("Rectangular"));
    const QCommandLineOption param(QStringLiteral("param"), QStringLiteral("β (Kaiser) or ϒ (Chebyshev)."),
                                   QStringLiteral("number"));
    const QCommandLineOption width(QStringLiteral("width"), QStringLiteral("double, or 20 down to 8 bits."),
                                   QStringLiteral("width"), QStringLiteral("double"));
    const QCommandLineOption json = jsonOption();
    const QCommandLineOption save(QStringLiteral("save"),
                                  QStringLiteral("Save the design in the library as NAME."),
                                  QStringLiteral("name"));
    const QCommandLineOption library = libraryOption();
    const QCommandLineOption method(QStringLiteral("method"),
                                    QStringLiteral("Design to a mask: kaiser or equiripple."),
                                    QStringLiteral("method"));
    const QCommandLineOption passEdge(QStringLiteral("passband-edge"),
                                      QStringLiteral("Mask passband edge F, or F1,F2 for a band pass."),
                                      QStringLiteral("F[,F2]"));
    const QCommandLineOption stopEdge(QStringLiteral("stopband-edge"),
                                      QStringLiteral("Mask stopband edge F, or F1,F2 for a band pass."),
                                      QStringLiteral("F[,F2]"));
    const QCommandLineOption ripple(QStringLiteral("ripple"), QStringLiteral("Mask passband ripple Rp, dB."),
                                    QStringLiteral("dB"));
    const QCommandLineOption attenuation(QStringLiteral("attenuation"),
                                         QStringLiteral("Mask stopband attenuation As, dB."),
                                         QStringLiteral("dB"));
    parser.addOptions(
        {help, units, type, fs, cutoff, center, taps, window, param, width, json, save, library});
    PlotRequest plot({QStringLiteral("magnitude"), QStringLiteral("phase"), QStringLiteral("impulse"),
                      QStringLiteral("step"), QStringLiteral("group-delay"), QStringLiteral("zeros"),
                      QStringLiteral("word-length")},
                     false);
    if (!sweep) {
        parser.addOptions({method, passEdge, stopEdge, ripple, attenuation});
        plot.addOptionsTo(parser);
    }
    if (const auto finished = parseVerbArguments(parser, args, Positionals::None))
        return *finished;
    if (const auto refusedPlot = plot.read(parser, QStringLiteral("filter")))
        return *refusedPlot;

    QVariantMap parameters;
    auto pickChoice = [&](const QCommandLineOption& option, const QStringList& names, const QString& key) {
        const auto index = choice(parser.value(option), names);
        if (index)
            parameters.insert(key, *index);
        return index.has_value();
    };
    if (!pickChoice(units, kUnits, KEYFP_UNITS) || !pickChoice(type, kTypes, KEYFP_FILTER_TYPE) ||
        !pickChoice(window, kWindows, KEYFP_WINDOW_TYPE)) {
        printErr(QStringLiteral("orvana-cli filter: unknown units, type or window.\n") + helpText(parser));
        return Usage;
    }
    const auto widthIndex = widthChoice(parser.value(width));
    if (!widthIndex) {
        printErr(QStringLiteral("orvana-cli filter: --width takes double or 8 to 20 bits."));
        return Usage;
    }
    parameters.insert(KEYFP_FILTER_WIDTH, *widthIndex);
    // The sampling frequency comes first: every other frequency is checked
    // against it, so an infinite one would be blamed on them.
    const struct {
        const QCommandLineOption* option;
        QString key;
        QString what;
    } numbers[] = {
        {&fs, KEYFP_SAMPLING_FREQ, QStringLiteral("the sampling frequency")},
        {&cutoff, KEYFP_CUTOFF_FREQ, QStringLiteral("the cutoff frequency")},
        {&center, KEYFP_CENTER_FREQ, QStringLiteral("the center frequency")},
        {&taps, KEYFP_FILTER_LENGTH, QStringLiteral("the filter length")},
        {&param, KEYFP_BETA_UPSILON, QStringLiteral("the window parameter")},
    };
    for (const auto& [option, key, what] : numbers) {
        const QString text = parser.value(*option);
        const auto number = text.isEmpty() ? std::optional<double>(0.0) : parseNumber(text);
        if (!number) {
            printErr(QStringLiteral("orvana-cli filter: --%1 is not a number: %2")
                         .arg(option->names().first(), text));
            return Usage;
        }
        if (const auto refusal =
                nonFiniteRefusal(QStringLiteral("filter"), option->names().first(), what, text, *number)) {
            printErr(*refusal);
            return Refused;
        }
        parameters.insert(key, *number);
    }

    // The library is touched only when the design is to be saved there.
    DesignLibrary designLibrary(cliLibraryRoot(parser.value(library)));
    if (parser.isSet(save))
        prepareCliLibrary(designLibrary, QStringLiteral("filter"));
    CollectingView view;
    GVRFilterDesignerModel model(designLibrary);
    model.setWindow(&view);
    const bool toMask = !sweep && parser.isSet(method);
    DesignOutcome outcome = DesignOutcome::Refused;
    if (toMask) {
        const QString name = parser.value(method).trimmed().toLower();
        const auto pass = edgePair(parser.value(passEdge));
        const auto stop = edgePair(parser.value(stopEdge));
        const auto rp = parseNumber(parser.value(ripple));
        const auto as = parseNumber(parser.value(attenuation));
        if ((name != QLatin1String("kaiser") && name != QLatin1String("equiripple")) || !pass || !stop ||
            !rp || !as) {
            printErr(
                QStringLiteral("orvana-cli filter: --method takes kaiser or equiripple, with "
                               "--passband-edge, --stopband-edge, --ripple and --attenuation as numbers."));
            return Usage;
        }
        ToleranceMask mask;
        mask.passband[0] = pass->first;
        mask.passband[1] = pass->second;
        mask.stopband[0] = stop->first;
        mask.stopband[1] = stop->second;
        mask.rippleDb = *rp;
        mask.attenuationDb = *as;
        std::optional<int> fixedTaps;
        if (parser.isSet(taps))
            fixedTaps = static_cast<int>(parameters.value(KEYFP_FILTER_LENGTH).toDouble());
        const bool accepted = model.designFilterToMask(
            parameters, name == QLatin1String("equiripple") ? kMaskEquiripple : kMaskKaiser, mask, fixedTaps);
        outcome = accepted ? model.lastOutcome() : DesignOutcome::Refused;
        // A valid design that misses its mask is designed, but not what was asked for.
        if (outcome == DesignOutcome::Designed) {
            const auto check = model.maskCheck();
            if (!check || !check->met)
                outcome = DesignOutcome::DesignedInvalid;
        }
    } else {
        outcome = model.designFilterWithParameters(parameters);
    }
    const bool valid = model.validResultsFlag() && outcome != DesignOutcome::Refused;
    if (sweep) {
        if (parser.isSet(json)) {
            JsonWriter out;
            writeSweepJson(out, model);
            printOut(valid ? out.text() + "\n" : std::string("{\"rows\": []}\n"));
        } else {
            printOut(noteLine(view.note) + (valid ? sweepText(model) : QString()));
        }
        return exitStatusOf(outcome);
    }
    if (parser.isSet(json))
        writeJson(model, view, valid);
    else
        writeText(model, view, valid);
    if (parser.isSet(save)) {
        const QString name = parser.value(save);
        const bool saved = model.saveFilterDesignWithFileName(name);
        if (!reportSave(QStringLiteral("filter"), QStringLiteral("design"), saved, model.lastFileError(),
                        designLibrary.filterPath(name), parser.isSet(json)))
            return Refused;
    }
    if (valid && plot.wanted()) {
        const int written =
            writeFilterPlot(plot, model, view.response, parameters.value(KEYFP_UNITS).toInt());
        if (written != Designed)
            return written;
    }
    return exitStatusOf(outcome);
}

} // namespace

int runFilter(const QStringList& args)
{
    return runFilterDesign(args, false);
}

int runSweep(const QStringList& args)
{
    return runFilterDesign(args, true);
}

} // namespace cli
