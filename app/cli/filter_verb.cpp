// orvana-cli filter: one FIR design through GVRFilterDesignerModel, printed
// for a person or as JSON. Options mirror the filter design window's form;
// a missing number reads as 0, as an empty field does.
#include "cli/cli_options.h"
#include "cli/cli_output.h"
#include "cli/json_writer.h"
#include "cli/verbs.h"

#include "filter/filter_design_view.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "library/design_library.h"
#include "library/note_format.h"

#include <QCommandLineParser>

#include <optional>

namespace cli {

namespace {

const QStringList kUnits{QStringLiteral("norm"), QStringLiteral("khz"), QStringLiteral("mhz")};
const QStringList kUnitLabels{QString(), QStringLiteral("KHz"), QStringLiteral("MHz")};
const QStringList kTypes{QStringLiteral("lowpass"), QStringLiteral("bandpass"), QStringLiteral("highpass")};
const QStringList kWindows = QStringLiteral("Rectangular,Blackman,Hamming,Hann,Blackman-Harris,Cosine,Nutall,"
                                            "Blackman-Nutall,Flat Top,Kaiser,Chebyshev")
                                 .split(QLatin1Char(','));

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
    if (ok && bits >= 8 && bits <= 20)
        return 21 - bits;
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
    const QString unit = kUnitLabels.value(model.unitsType());
    auto frequency = [&](const QString& key) {
        const QString number = QString::number(view.results.value(key).toDouble(), 'f', 6);
        return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
    };
    const bool bandPass = model.filterType() == 1;
    out += QStringLiteral("\n%1 %2, %3 taps, %4 window, %5 coefficients\n")
               .arg(kTypes.value(model.filterType()), unit.isEmpty() ? QStringLiteral("(normalised)") : unit)
               .arg(model.filterLengthN())
               .arg(kWindows.value(model.windowType()),
                    model.filterWidth() == 0 ? QStringLiteral("double")
                                             : QStringLiteral("%1-bit").arg(21 - model.filterWidth()));
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

} // namespace

int runFilter(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(describeVerb(QStringLiteral("Design a window-method FIR filter."), true));
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
    const QCommandLineOption save(QStringLiteral("save"), QStringLiteral("Save the design in the library as NAME."),
                                  QStringLiteral("name"));
    const QCommandLineOption library = libraryOption();
    parser.addOptions({help, units, type, fs, cutoff, center, taps, window, param, width, json, save, library});
    if (const auto finished = parseVerbArguments(parser, args, Positionals::None))
        return *finished;

    QVariantMap parameters;
    auto pickChoice = [&](const QCommandLineOption& option, const QStringList& names, const QString& key) {
        const auto index = choice(parser.value(option), names);
        if (index)
            parameters.insert(key, *index);
        return index.has_value();
    };
    if (!pickChoice(units, kUnits, KEYFP_UNITS) || !pickChoice(type, kTypes, KEYFP_FILTER_TYPE) ||
        !pickChoice(window, kWindows, KEYFP_WINDOW_TYPE)) {
        printErr(QStringLiteral("orvana-cli filter: unknown units, type or window.\n") + parser.helpText());
        return Usage;
    }
    const auto widthIndex = widthChoice(parser.value(width));
    if (!widthIndex) {
        printErr(QStringLiteral("orvana-cli filter: --width takes double or 8 to 20 bits."));
        return Usage;
    }
    parameters.insert(KEYFP_FILTER_WIDTH, *widthIndex);
    const std::pair<const QCommandLineOption*, QString> numbers[] = {
        {&fs, KEYFP_SAMPLING_FREQ},   {&cutoff, KEYFP_CUTOFF_FREQ}, {&center, KEYFP_CENTER_FREQ},
        {&taps, KEYFP_FILTER_LENGTH}, {&param, KEYFP_BETA_UPSILON},
    };
    for (const auto& [option, key] : numbers) {
        const QString text = parser.value(*option);
        const auto number = text.isEmpty() ? std::optional<double>(0.0) : parseNumber(text);
        if (!number) {
            printErr(QStringLiteral("orvana-cli filter: --%1 is not a number: %2")
                         .arg(option->names().first(), text));
            return Usage;
        }
        parameters.insert(key, *number);
    }

    // The library is touched only when the design is to be saved there.
    DesignLibrary* designLibrary =
        parser.isSet(save) ? &prepareCliLibrary(QStringLiteral("filter"), parser.value(library)) : nullptr;
    CollectingView view;
    GVRFilterDesignerModel model;
    model.setWindow(&view);
    model.setLibrary(designLibrary);
    const DesignOutcome outcome = model.designFilterWithParameters(parameters);
    const bool valid = outcome == DesignOutcome::Designed;
    if (parser.isSet(json))
        writeJson(model, view, valid);
    else
        writeText(model, view, valid);
    if (parser.isSet(save)) {
        const QString name = parser.value(save);
        const bool saved = model.saveFilterDesignWithFileName(name);
        if (!reportSave(QStringLiteral("filter"), QStringLiteral("design"), saved, model.lastFileError(),
                        designLibrary->filterPath(name), parser.isSet(json)))
            return Refused;
    }
    return exitStatusOf(outcome);
}

} // namespace cli
