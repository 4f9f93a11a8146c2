// orvana-cli export: a saved filter's integer coefficients written as one
// line of comma-separated text, exactly to the path given.
#include "cli/cli_options.h"
#include "cli/verbs.h"

#include "archive/filter_archive.h"
#include "library/design_library.h"
#include "library/library_design_source.h"
#include "project/fir_export_model.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace cli {

int runExport(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Write the integer coefficients of a saved filter design to OUT as comma-separated text."));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption library = libraryOption();
    parser.addOptions({help, library});
    parser.addPositionalArgument(QStringLiteral("NAME"),
                                 QStringLiteral("Filter design name (\".filt\" optional)."));
    parser.addPositionalArgument(QStringLiteral("OUT"),
                                 QStringLiteral("Text file to write (replaced if present)."));
    if (const auto finished = parseVerbArguments(parser, args, Positionals::Allowed))
        return *finished;
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2) {
        printErr(QStringLiteral("orvana-cli export: give a filter design name and an output file.\n") +
                 helpText(parser));
        return Usage;
    }
    QString name = positional.at(0);
    const QString out = positional.at(1);
    const QString extension = DesignLibrary::extension(DesignLibrary::Folder::Filter);
    if (name.endsWith(extension))
        name.chop(extension.size());
    if (!LibraryDesignSource::isPlainName(name) || out.isEmpty()) {
        printErr(
            QStringLiteral("orvana-cli export: \"%1\" is not a filter design name.").arg(positional.at(0)));
        return Usage;
    }

    DesignLibrary designLibrary(cliLibraryRoot(parser.value(library)));
    prepareCliLibrary(designLibrary, QStringLiteral("export"));
    const QString path = designLibrary.filterPath(name);
    if (!QFileInfo(path).isFile()) {
        printErr(QStringLiteral("orvana-cli export: there is no filter design \"%1\" in the library (%2).")
                     .arg(name, designLibrary.filterFolder()));
        return Refused;
    }
    GVRFirExportModel model(designLibrary);
    QString error;
    if (!model.openFilterFileAndSaveCoefficientsToFile(name + extension, out, &error)) {
        // The double-width refusal is the window's own alert text, word for word.
        if (error == GVRFirExportModel::integerWidthAlert())
            printErr(error);
        else
            printErr(QStringLiteral("orvana-cli export: %1").arg(error));
        return Refused;
    }
    return Designed;
}

} // namespace cli
