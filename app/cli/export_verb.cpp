// orvana-cli export: a saved filter's coefficients written exactly to the
// path given: one line of comma-separated integers by default, or a C header,
// CMSIS-DSP table, FPGA memory file, HDL ROM, script or JSON.
#include "cli/cli_options.h"
#include "cli/verbs.h"

#include "archive/filter_archive.h"
#include "library/design_library.h"
#include "library/library_design_source.h"
#include "project/coefficient_formats.h"
#include "project/fir_export_model.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <optional>

namespace cli {

int runExport(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(describeVerb(
        QStringLiteral(
            "Write the coefficients of a saved filter design to OUT.\n"
            "\n"
            "Formats (without --format, OUT's extension chooses; any other extension means csv):\n"
            "  csv      .csv   one line of comma-separated integers, no line break\n"
            "  c        .h     C header: int16_t, int32_t above 16 bits, double for a Double design\n"
            "  cmsis    (.h)   CMSIS-DSP q15_t (up to 16 bits) or q31_t table, time-reversed;\n"
            "                  only by --format, as .h means c\n"
            "  coe      .coe   Xilinx COE (radix=10; coefdata=...;)\n"
            "  mif      .mif   Intel memory initialisation file\n"
            "  verilog  .v     Verilog-2001 ROM module NAME_rom\n"
            "  vhdl     .vhd   VHDL package NAME_pkg\n"
            "  matlab   .m     MATLAB/Octave script: q, scale, b = q / scale\n"
            "  python   .py    Python module: TAPS, SCALE, COEFFICIENTS\n"
            "  json     .json  integers, coefficients, scale and the design parameters\n"
            "\n"
            "cmsis, coe, mif, verilog and vhdl need an integer width (20 to 8 bits) that holds\n"
            "every integer; c, matlab, python and json also take Double designs (17 digits).\n"
            "Identifiers come from NAME: letters, digits and _."),
        false));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption library = libraryOption();
    const QCommandLineOption format(QStringLiteral("format"),
                                    QStringLiteral("Output format (default: from OUT's extension)."),
                                    QStringLiteral("csv|c|cmsis|coe|mif|verilog|vhdl|matlab|python|json"));
    const QCommandLineOption blockSize(
        QStringLiteral("block-size"),
        QStringLiteral("cmsis: the block size the state-buffer comment is worked out for (default 32)."),
        QStringLiteral("N"));
    parser.addOptions({help, format, blockSize, library});
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

    CoefficientFormat chosen = coefficientFormatForPath(out);
    if (parser.isSet(format)) {
        const std::optional<CoefficientFormat> named = coefficientFormatNamed(parser.value(format));
        if (!named) {
            printErr(QStringLiteral("orvana-cli export: --format takes csv, c, cmsis, coe, mif, verilog, "
                                    "vhdl, matlab, python or json, not \"%1\".")
                         .arg(parser.value(format)));
            return Usage;
        }
        chosen = *named;
    }
    CoefficientExportOptions options;
    if (parser.isSet(blockSize)) {
        bool ok = false;
        options.cmsisBlockSize = parser.value(blockSize).toInt(&ok);
        if (!ok || options.cmsisBlockSize < 1 || options.cmsisBlockSize > 65536) {
            printErr(QStringLiteral("orvana-cli export: --block-size takes a whole number from 1 to 65536."));
            return Usage;
        }
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
    if (!model.openFilterFileAndSaveCoefficientsToFile(name + extension, out, &error, chosen, options)) {
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
