// orvana-cli open: the keys and values of a saved filter, signal or project
// record, as the readers see it (the last record of the file), in archive
// key order; absent values are null.
#include "cli/cli_options.h"
#include "cli/json_writer.h"
#include "cli/verbs.h"

#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"
#include "library/design_library.h"
#include "library/library_design_source.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <optional>
#include <string>
#include <vector>

namespace cli {

namespace {

// One printer for both outputs: JSON, or "key: value" lines.
class RecordPrinter {
public:
    explicit RecordPrinter(bool json) : json_(json)
    {
        if (json_)
            writer_.beginObject();
    }

    template <typename T> void field(const char* key, const std::optional<T>& v)
    {
        start(key);
        if (!v)
            absent();
        else if (json_)
            write(*v);
        else
            text_ += textOf(*v);
        end();
    }

    QString finish()
    {
        if (!json_)
            return text_;
        writer_.endObject();
        return QString::fromStdString(writer_.text()) + QLatin1Char('\n');
    }

private:
    void start(const char* key)
    {
        if (json_)
            writer_.key(key);
        else
            text_ += QString::fromLatin1(key) + QStringLiteral(": ");
    }
    void write(double v) { writer_.value(v); }
    void write(std::int64_t v) { writer_.value(v); }
    void write(const std::string& v) { writer_.value(std::string_view(v)); }
    template <typename T> void write(const std::vector<T>& v) { writer_.array(std::span<const T>(v)); }

    static QString textOf(double v) { return QString::number(v, 'g', 17); }
    static QString textOf(std::int64_t v) { return QString::number(v); }
    static QString textOf(const std::string& v) { return QString::fromStdString(v); }
    template <typename T> static QString textOf(const std::vector<T>& v)
    {
        QStringList items;
        for (const T& x : v)
            items << textOf(x);
        return QLatin1Char('[') + items.join(QStringLiteral(", ")) + QLatin1Char(']');
    }

    void absent()
    {
        if (json_)
            writer_.null();
        else
            text_ += QStringLiteral("null");
    }
    void end()
    {
        if (!json_)
            text_ += QLatin1Char('\n');
    }

    bool json_;
    JsonWriter writer_;
    QString text_;
};

void print(RecordPrinter& p, const GVRFilter& r)
{
    p.field("filterName", r.filterName);
    p.field("filterType", r.filterType);
    p.field("windowType", r.windowType);
    p.field("filterWidth", r.filterWidth);
    p.field("unitsType", r.unitsType);
    p.field("dfThetaSamplingFreq", r.dfThetaSamplingFreq);
    p.field("dfFilterLengthN", r.dfFilterLengthN);
    p.field("dfBetaUpsilon", r.dfBetaUpsilon);
    p.field("dfThetaCutoffFreqNormalized", r.dfThetaCutoffFreqNormalized);
    p.field("dfThetaCenterFreqNormalized", r.dfThetaCenterFreqNormalized);
    p.field("dfGimeldbLow", r.dfGimeldbLow);
    p.field("dfGimeldbHigh", r.dfGimeldbHigh);
    p.field("dfGimeldbBandwidth", r.dfGimeldbBandwidth);
    p.field("dfPassbandRipple", r.dfPassbandRipple);
    p.field("dfDynamicRange", r.dfDynamicRange);
    p.field("dfDynamicRangeError", r.dfDynamicRangeError);
    p.field("integerCoefficients", r.integerCoefficients);
    p.field("filterCoefficients", r.filterCoefficients);
    p.field("filterPrecisionCoefficients", r.filterPrecisionCoefficients);
}

void print(RecordPrinter& p, const GVRSignal& r)
{
    p.field("samplingFreq", r.samplingFreq);
    p.field("yStepIndex", r.yStepIndex);
    p.field("freqUnits", r.freqUnits);
    p.field("voltUnits", r.voltUnits);
    p.field("parm1", r.parm1);
    p.field("parm2", r.parm2);
    p.field("parm3", r.parm3);
    p.field("parm4", r.parm4);
    p.field("parm5", r.parm5);
    p.field("parm6", r.parm6);
    p.field("maxAmplitude", r.maxAmplitude);
    p.field("minAmplitude", r.minAmplitude);
    p.field("maxFreq", r.maxFreq);
    p.field("sampledSignalArray", r.sampledSignalArray);
}

void print(RecordPrinter& p, const GVRProject& r)
{
    p.field("blockDiagramNumber", r.blockDiagramNumber);
    p.field("signalOneSign", r.signalOneSign);
    p.field("signalTwoSign", r.signalTwoSign);
    p.field("multirateL", r.multirateL);
    p.field("multirateM", r.multirateM);
    p.field("multirateFilterType", r.multirateFilterType);
    p.field("filterName", r.filterName);
    p.field("signalOneName", r.signalOneName);
    p.field("signalTwoName", r.signalTwoName);
}

template <typename Record> int show(const std::optional<Record>& record, const QString& error, bool json)
{
    if (!record) {
        printErr(QStringLiteral("orvana-cli open: %1").arg(error));
        return Refused;
    }
    RecordPrinter printer(json);
    print(printer, *record);
    printOut(printer.finish());
    return Designed;
}

} // namespace

int runOpen(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Print the keys and values of a saved design."));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption diagram(
        QStringLiteral("diagram"),
        QStringLiteral("For a project: the folder of diagram 1 or 2 (default: whichever "
                       "holds NAME)."),
        QStringLiteral("1|2"));
    const QCommandLineOption json = jsonOption();
    const QCommandLineOption library = libraryOption();
    parser.addOptions({help, diagram, json, library});
    parser.addPositionalArgument(QStringLiteral("KIND"), QStringLiteral("filter, signal or project."));
    parser.addPositionalArgument(QStringLiteral("NAME"),
                                 QStringLiteral("Design name in the library, or the path of a design file."));
    if (const auto finished = parseVerbArguments(parser, args, Positionals::Allowed))
        return *finished;
    const QStringList positional = parser.positionalArguments();
    const QString kind = positional.value(0).toLower();
    if (positional.size() != 2 || (kind != QLatin1String("filter") && kind != QLatin1String("signal") &&
                                   kind != QLatin1String("project"))) {
        printErr(
            QStringLiteral("orvana-cli open: give a kind (filter, signal or project) and a design name.\n") +
            helpText(parser));
        return Usage;
    }
    QString name = positional.at(1);
    int diagramNumber = 0;
    if (parser.isSet(diagram)) {
        const QString d = parser.value(diagram).trimmed();
        if (d != QLatin1String("1") && d != QLatin1String("2")) {
            printErr(QStringLiteral("orvana-cli open: --diagram takes 1 or 2."));
            return Usage;
        }
        diagramNumber = d.toInt();
    }

    DesignLibrary designLibrary(cliLibraryRoot(parser.value(library)));
    prepareCliLibrary(designLibrary, QStringLiteral("open"));
    const bool isPath = name.contains(QLatin1Char('/'));
    const bool asJson = parser.isSet(json);
    QString path;
    if (kind == QLatin1String("project")) {
        const QString extension = DesignLibrary::extension(DesignLibrary::Folder::ProjectOne);
        if (!isPath && name.endsWith(extension))
            name.chop(extension.size());
        if (isPath) {
            path = name;
        } else if (diagramNumber != 0) {
            path = designLibrary.projectPath(diagramNumber, name);
        } else {
            const QString one = designLibrary.projectPath(1, name);
            const QString two = designLibrary.projectPath(2, name);
            const bool inOne = QFileInfo(one).isFile();
            const bool inTwo = QFileInfo(two).isFile();
            if (inOne && inTwo) {
                printErr(QStringLiteral("orvana-cli open: both project folders hold \"%1\"; choose one with "
                                        "--diagram 1 or 2.")
                             .arg(name));
                return Usage;
            }
            path = inTwo ? two : one;
        }
    } else {
        const DesignLibrary::Folder folder =
            kind == QLatin1String("filter") ? DesignLibrary::Folder::Filter : DesignLibrary::Folder::Signal;
        const QString extension = DesignLibrary::extension(folder);
        if (!isPath && name.endsWith(extension))
            name.chop(extension.size());
        path = isPath ? name : designLibrary.designPath(folder, name);
    }
    if (!isPath && !LibraryDesignSource::isPlainName(name)) {
        printErr(QStringLiteral("orvana-cli open: \"%1\" is not a design name.").arg(name));
        return Usage;
    }
    if (!QFileInfo(path).isFile()) {
        printErr(QStringLiteral("orvana-cli open: there is no %1 design \"%2\" (%3).").arg(kind, name, path));
        return Refused;
    }

    QString error;
    if (kind == QLatin1String("filter")) {
        const auto record = readFilterFile(path, &error);
        return show(record, error, asJson);
    }
    if (kind == QLatin1String("signal")) {
        const auto record = readSignalFile(path, &error);
        return show(record, error, asJson);
    }
    const auto record = readProjectFile(path, &error);
    return show(record, error, asJson);
}

} // namespace cli
