// Option parsing, output and library set-up shared by the verbs of orvana-cli.
#include "cli/cli_options.h"

#include "library/design_library.h"
#include "library/library_location.h"
#include "shell/sample_designs.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLocale>

#include <cmath>
#include <cstdio>
#include <limits>

namespace cli {

std::optional<double> parseNumber(const QString& text)
{
    const QString t = text.trimmed().toLower();
    if (t == QLatin1String("nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (t == QLatin1String("inf") || t == QLatin1String("+inf"))
        return std::numeric_limits<double>::infinity();
    if (t == QLatin1String("-inf"))
        return -std::numeric_limits<double>::infinity();
    bool ok = false;
    const double v = QLocale::c().toDouble(t, &ok);
    if (!ok)
        return std::nullopt;
    return v;
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
