// orvana-cli project: a Sum & Filter or Multirate project run from saved
// designs of the library, printed for a person or as JSON, and saved on request.
#include "cli/cli_options.h"
#include "cli/cli_output.h"
#include "cli/plot_output.h"
#include "cli/project_plot.h"
#include "cli/verbs.h"

#include "library/design_library.h"
#include "library/library_design_source.h"
#include "project/project_model.h"
#include "project/project_view.h"

#include <QCommandLineParser>

namespace cli {

namespace {

class CollectingView : public NoteAndChartsView<ProjectView> {
public:
    void restoreProjectParameters(const QVariantMap&) override {}
};

// A whole number within [lo, hi], or nothing.
std::optional<int> wholeIn(const QString& text, int lo, int hi)
{
    bool ok = false;
    const int v = text.trimmed().toInt(&ok);
    if (!ok || v < lo || v > hi)
        return std::nullopt;
    return v;
}

void writeText(const GVRProjectModel& model, const CollectingView& view, bool designed)
{
    QString out = noteLine(view.note);
    if (!designed) {
        printOut(out);
        return;
    }
    const auto& t = view.time;
    const std::size_t h = GVRProjectModel::kHeaderLength;
    const std::size_t n = GVRProjectModel::kSamples;
    const QString unit = t[3] == 1.0 ? QStringLiteral("KHz") : QStringLiteral("MHz");
    const QString voltIn = t[2] == 1.0 ? QStringLiteral("mV") : QStringLiteral("V");
    const QString voltOut = t[h + 2] == 1.0 ? QStringLiteral("mV") : QStringLiteral("V");
    out += QStringLiteral("\n%1: x₁ %2, x₂ %3, filter %4\n")
               .arg(model.blockDiagramNumber() == 1 ? QStringLiteral("Sum & Filter Model")
                                                    : QStringLiteral("Multirate Model"),
                    model.signalOneName(), model.signalTwoName(),
                    model.blockDiagramNumber() == 2 && model.multirateFilterType() == 1
                        ? QStringLiteral("automatic")
                        : model.filterName());
    out += QStringLiteral("Input  fs %1 %2, samples %3 .. %4 %5\n")
               .arg(t[0], 0, 'g', 10)
               .arg(unit)
               .arg(t[5], 0, 'g', 10)
               .arg(t[4], 0, 'g', 10)
               .arg(voltIn);
    out += QStringLiteral("Output fs %1 %2, samples %3 .. %4 %5\n")
               .arg(t[h], 0, 'g', 10)
               .arg(unit)
               .arg(t[h + 5], 0, 'g', 10)
               .arg(t[h + 4], 0, 'g', 10)
               .arg(voltOut);
    out += QStringLiteral("\n   n  x[n]                    y[n]\n");
    for (std::size_t k = 0; k < 8; ++k)
        out += QStringLiteral("%1  %2  %3\n")
                   .arg(k, 4)
                   .arg(t[2 * h + k], -22, 'g', 12)
                   .arg(t[2 * h + n + k], 0, 'g', 12);
    printOut(out);
}

// Why the design named in the model's "ERROR - Cannot read the design" note
// could not be used, for stderr: which file, and what is wrong with it. The
// model tries the two signals and then the filter; so does this.
void explainUnreadable(const DesignLibrary& library, const QString& note, const QString& filterName,
                       const QString& oneName, const QString& twoName)
{
    const LibraryDesignSource source(library);
    const struct {
        bool isSignal;
        QString name;
    } designs[] = {{true, oneName}, {true, twoName}, {false, filterName}};
    for (const auto& [isSignal, name] : designs) {
        const QString path = isSignal ? library.signalPath(name) : library.filterPath(name);
        const bool read =
            isSignal ? source.signalRecord(name).has_value() : source.filterRecord(name).has_value();
        if (!read) {
            printErr(QStringLiteral("orvana-cli project: cannot use %1: %2").arg(path, source.lastError()));
            return;
        }
        if (note.contains(QStringLiteral("\"%1\"").arg(name))) {
            printErr(
                QStringLiteral("orvana-cli project: cannot use %1: it holds values a project cannot use.")
                    .arg(path));
            return;
        }
    }
}

} // namespace

int runProject(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(describeVerb(
        QStringLiteral("Run a Sum & Filter (diagram 1) or Multirate (diagram 2) project from saved designs."),
        true));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption diagram(QStringLiteral("diagram"),
                                     QStringLiteral("1 Sum & Filter, 2 Multirate (default 1)."),
                                     QStringLiteral("1|2"), QStringLiteral("1"));
    const QCommandLineOption filter(QStringLiteral("filter"), QStringLiteral("Filter design name."),
                                    QStringLiteral("name"));
    const QCommandLineOption sig1(QStringLiteral("sig1"), QStringLiteral("x₁[n] signal design name."),
                                  QStringLiteral("name"));
    const QCommandLineOption sig2(QStringLiteral("sig2"), QStringLiteral("x₂[n] signal design name."),
                                  QStringLiteral("name"));
    const QCommandLineOption sign1(QStringLiteral("sign1"),
                                   QStringLiteral("x₁ multiplier: 0 +1, 1 -1, 2 left out."),
                                   QStringLiteral("0|1|2"), QStringLiteral("0"));
    const QCommandLineOption sign2(QStringLiteral("sign2"),
                                   QStringLiteral("x₂ multiplier: 0 +1, 1 -1, 2 left out."),
                                   QStringLiteral("0|1|2"), QStringLiteral("0"));
    const QCommandLineOption interp(QStringLiteral("L"),
                                    QStringLiteral("Interpolation factor, 1 to 12 (default 1)."),
                                    QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption decim(QStringLiteral("M"),
                                   QStringLiteral("Decimation factor, 1 to 12 (default 1)."),
                                   QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption automatic(
        QStringLiteral("auto"), QStringLiteral("Multirate filter: 0 the named filter, 1 automatic low pass."),
        QStringLiteral("0|1"), QStringLiteral("0"));
    const QCommandLineOption save(QStringLiteral("save"),
                                  QStringLiteral("Save the project in the library as NAME."),
                                  QStringLiteral("name"));
    const QCommandLineOption json = jsonOption();
    const QCommandLineOption library = libraryOption();
    parser.addOptions(
        {help, diagram, filter, sig1, sig2, sign1, sign2, interp, decim, automatic, save, json, library});
    PlotRequest plot(projectChartNames(), true);
    plot.addOptionsTo(parser);
    if (const auto finished = parseVerbArguments(parser, args, Positionals::None))
        return *finished;
    if (const auto refusedPlot = plot.read(parser, QStringLiteral("project")))
        return *refusedPlot;

    const auto diagramValue = wholeIn(parser.value(diagram), 1, 2);
    const auto sign1Value = wholeIn(parser.value(sign1), 0, 2);
    const auto sign2Value = wholeIn(parser.value(sign2), 0, 2);
    const auto lValue = wholeIn(parser.value(interp), 1, 12);
    const auto mValue = wholeIn(parser.value(decim), 1, 12);
    const auto autoValue = wholeIn(parser.value(automatic), 0, 1);
    if (!diagramValue || !sign1Value || !sign2Value || !lValue || !mValue || !autoValue) {
        printErr(QStringLiteral(
            "orvana-cli project: --diagram takes 1 or 2, --sign1 and --sign2 0 to 2, -L and -M "
            "1 to 12, --auto 0 or 1."));
        return Usage;
    }
    if (plot.wanted() && isStageChart(plot.chart()) && *diagramValue != 2) {
        printErr(QStringLiteral("orvana-cli project: --chart %1 is a stage of the Multirate model; it needs "
                                "--diagram 2.")
                     .arg(plot.chart()));
        return Usage;
    }
    const QString filterName = parser.value(filter);
    const QString oneName = parser.value(sig1);
    const QString twoName = parser.value(sig2);
    if (filterName.isEmpty() || oneName.isEmpty() || twoName.isEmpty()) {
        printErr(QStringLiteral(
            "orvana-cli project: --filter, --sig1 and --sig2 name saved designs; all three are "
            "needed (the filter even with --auto 1)."));
        return Usage;
    }

    DesignLibrary designLibrary(cliLibraryRoot(parser.value(library)));
    prepareCliLibrary(designLibrary, QStringLiteral("project"));
    CollectingView view;
    GVRProjectModel model(designLibrary);
    model.setWinProject(&view);
    const DesignOutcome outcome = model.designProjectWithParameters(GVRProjectModel::parameterDictionary(
        *diagramValue, filterName, oneName, twoName, *sign1Value, *sign2Value, *lValue, *mValue, *autoValue));
    const bool designed = outcome == DesignOutcome::Designed;
    if (view.note.startsWith(QStringLiteral("ERROR - Cannot read the design")))
        explainUnreadable(designLibrary, view.note, filterName, oneName, twoName);
    if (parser.isSet(json))
        printNoteAndChartsJson(view.note, view.time, view.freq, designed);
    else
        writeText(model, view, designed);

    if (parser.isSet(save)) {
        const QString name = parser.value(save);
        if (!LibraryDesignSource::isPlainName(name)) {
            printErr(
                QStringLiteral("orvana-cli project: the project was not saved. \"%1\" cannot be used as a "
                               "project name.")
                    .arg(name));
            return Refused;
        }
        const QString path = designLibrary.projectPath(*diagramValue, name);
        const bool saved = model.saveProjectWithFilePath(path);
        if (!reportSave(QStringLiteral("project"), QStringLiteral("project"), saved, model.lastFileError(),
                        path, parser.isSet(json)))
            return Refused;
    }
    if (designed && plot.wanted()) {
        const int written = writeProjectPlot(plot, model, view.time, view.freq);
        if (written != Designed)
            return written;
    }
    return exitStatusOf(outcome);
}

} // namespace cli
