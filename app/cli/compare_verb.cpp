// orvana-cli compare: two to four saved filters' magnitude responses side by
// side against normalised frequency, as a chart with a legend or as CSV.
#include "cli/cli_options.h"
#include "cli/plot_output.h"
#include "cli/verbs.h"

#include "charts/compare_overlay.h"
#include "filter/filter_comparison.h"
#include "library/design_library.h"
#include "library/library_design_source.h"

#include <QCommandLineParser>

namespace cli {

namespace {

constexpr int kFewest = 2;
constexpr int kMost = 4;

} // namespace

int runCompare(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(describeVerb(
        QStringLiteral("Compare the magnitude responses of 2 to 4 saved filter designs against normalised\n"
                       "frequency (1 = fs/2), each the dB of its quantised coefficients on the grid of its\n"
                       "own magnitude chart. The CSV has 2048 rows: k/2048, then one column per design."),
        false));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption library = libraryOption();
    parser.addOptions({help, library});
    PlotRequest plot({QStringLiteral("compare")}, false);
    plot.addOptionsTo(parser);
    parser.addPositionalArgument(QStringLiteral("NAME"),
                                 QStringLiteral("Filter design names (\".filt\" optional), 2 to 4 of them."),
                                 QStringLiteral("NAME NAME [NAME [NAME]]"));
    if (const auto finished = parseVerbArguments(parser, args, Positionals::Allowed))
        return *finished;
    QStringList names = parser.positionalArguments();
    if (names.size() < kFewest || names.size() > kMost) {
        printErr(QStringLiteral("orvana-cli compare: give 2 to 4 filter design names, not %1.\n")
                     .arg(names.size()) +
                 helpText(parser));
        return Usage;
    }
    const QString extension = DesignLibrary::extension(DesignLibrary::Folder::Filter);
    for (QString& name : names) {
        if (name.endsWith(extension))
            name.chop(extension.size());
        if (!LibraryDesignSource::isPlainName(name)) {
            printErr(QStringLiteral("orvana-cli compare: \"%1\" is not a filter design name.").arg(name));
            return Usage;
        }
    }
    if (const auto refusedPlot = plot.read(parser, QStringLiteral("compare")))
        return *refusedPlot;
    if (!plot.wanted()) {
        printErr(QStringLiteral("orvana-cli compare: --plot FILE is needed (.png, .svg, .pdf or .csv).\n") +
                 helpText(parser));
        return Usage;
    }

    DesignLibrary designLibrary(cliLibraryRoot(parser.value(library)));
    prepareCliLibrary(designLibrary, QStringLiteral("compare"));
    const LibraryDesignSource source(designLibrary);
    std::vector<ComparedCurve> curves;
    for (const QString& name : names) {
        QString error;
        const std::optional<ComparedFilter> filter = comparedFilter(source, name, &error);
        if (!filter) {
            const QString why = source.lastError().isEmpty()
                                    ? error
                                    : error + QStringLiteral(" (") + source.lastError() + QLatin1Char(')');
            printErr(QStringLiteral("orvana-cli compare: cannot use %1: %2")
                         .arg(designLibrary.filterPath(name), why));
            return Refused;
        }
        ComparedCurve curve{filter->name, std::vector<double>(filter->dB.size()), filter->dB};
        for (std::size_t k = 0; k < curve.xs.size(); ++k)
            curve.xs[k] = double(k) / double(curve.xs.size());
        curves.push_back(std::move(curve));
    }
    return plot.write([&](float w, float h) { return comparechart::layoutCompareChart(curves, w, h); },
                      comparechart::compareSeries(curves), QStringLiteral("Compare"),
                      QStringLiteral("compare"));
}

} // namespace cli
