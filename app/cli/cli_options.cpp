// Option parsing, output and library set-up shared by the verbs of orvana-cli.
#include "cli/cli_options.h"

#include "library/design_library.h"
#include "library/library_location.h"
#include "shell/sample_designs.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLocale>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace cli {

std::optional<double> parseNumber(const QString& text)
{
    // from_chars reads every spelling alike and ignores the user's locale:
    // "inf", "Infinity" and "nan" in any case, and a number too large for a
    // double ("1e400") becomes an infinity, so all of them reach the checks as
    // the non-finite values they are.
    const QByteArray latin = text.trimmed().toLatin1();
    if (latin.isEmpty() || text.trimmed().size() != latin.size())
        return std::nullopt;
    const char* first = latin.constData();
    const char* last = first + latin.size();
    const bool negative = *first == '-';
    if (*first == '+' || *first == '-')
        ++first;
    if (first == last || *first == '+' || *first == '-')
        return std::nullopt;
    double value = 0.0;
    const auto [end, status] = std::from_chars(first, last, value);
    if (end != last)
        return std::nullopt;
    if (status == std::errc::result_out_of_range) {
        // Too large or too small: the exponent's sign tells which.
        const qsizetype e = latin.toLower().lastIndexOf('e');
        const bool tooLarge = e < 0 || latin.at(e + 1) != '-';
        value = tooLarge ? std::numeric_limits<double>::infinity() : 0.0;
    } else if (status != std::errc()) {
        return std::nullopt;
    }
    return negative ? -value : value;
}

std::optional<QString> nonFiniteRefusal(const QString& verb, const QString& option, const QString& what,
                                        const QString& text, double value)
{
    if (!std::isinf(value))
        return std::nullopt;
    return QStringLiteral("orvana-cli %1: %2 (--%3) must be a finite number, not %4.")
        .arg(verb, what, option, text.trimmed());
}

namespace {
QString& commandName()
{
    static QString name = QStringLiteral("orvana-cli");
    return name;
}
} // namespace

void setCommandName(const QString& name)
{
    commandName() = name;
}

QString helpText(const QCommandLineParser& parser)
{
    QString text = parser.helpText();
    // Qt names the program by argv[0], which may be a long path.
    const QString program = QCoreApplication::arguments().value(0);
    const QString usage = QStringLiteral("Usage: ");
    if (!program.isEmpty() && text.startsWith(usage + program))
        text.replace(usage.size(), program.size(), commandName());
    return text;
}

int exitStatusOf(DesignOutcome outcome)
{
    switch (outcome) {
    case DesignOutcome::Designed:
        return Designed;
    case DesignOutcome::DesignedInvalid:
        return DesignedInvalid;
    case DesignOutcome::Refused:
        break;
    }
    return Refused;
}

QString describeVerb(const QString& summary, bool designs)
{
    QString text =
        summary +
        QStringLiteral("\n\nExit status:\n"
                       "  0  done\n"
                       "  1  refused (the message says why) or a file could not be read or written\n"
                       "  2  usage error in the command line\n");
    if (designs)
        text += QStringLiteral("  3  designed, but the results are not valid (e.g. 3dB Point Not Found)\n");
    return text;
}

std::optional<int> parseVerbArguments(QCommandLineParser& parser, const QStringList& args,
                                      Positionals positionals)
{
    const bool parsed = parser.parse(args);
    if (!parsed || (positionals == Positionals::None && !parser.positionalArguments().isEmpty())) {
        QString message = parser.errorText();
        if (parsed)
            message = QStringLiteral("Unexpected argument: %1").arg(parser.positionalArguments().join(' '));
        printErr(message + QLatin1Char('\n') + helpText(parser));
        return Usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        printOut(helpText(parser));
        return Designed;
    }
    return std::nullopt;
}

QCommandLineOption helpOption()
{
    return QCommandLineOption({QStringLiteral("h"), QStringLiteral("help")},
                              QStringLiteral("Show this help."));
}

QCommandLineOption jsonOption()
{
    return QCommandLineOption(QStringLiteral("json"), QStringLiteral("Print one JSON object."));
}

QCommandLineOption libraryOption()
{
    return QCommandLineOption(
        QStringLiteral("library"),
        QStringLiteral("Design library folder (default: $%1, else the per-user folder).")
            .arg(QString::fromLatin1(kLibraryEnvironmentVariable)),
        QStringLiteral("dir"));
}

QString cliLibraryRoot(const QString& optionValue)
{
    return resolveLibraryRoot(optionValue);
}

void prepareCliLibrary(DesignLibrary& library, const QString& verb)
{
    for (const LibraryProblem& problem : prepareLibrary(library))
        printErr(QStringLiteral("orvana-cli %1: warning: %2").arg(verb, problem.message));
}

void printOut(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    std::fwrite(utf8.constData(), 1, static_cast<size_t>(utf8.size()), stdout);
}

void printOut(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void printErr(const QString& text)
{
    const QByteArray utf8 = text.toUtf8();
    std::fwrite(utf8.constData(), 1, static_cast<size_t>(utf8.size()), stderr);
    if (!text.endsWith(QLatin1Char('\n')))
        std::fputc('\n', stderr);
}

} // namespace cli
