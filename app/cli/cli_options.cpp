#include "cli/cli_options.h"

#include <QCommandLineParser>
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

bool parseOrComplain(QCommandLineParser& parser, const QStringList& args)
{
    if (parser.parse(args) && parser.positionalArguments().isEmpty())
        return true;
    QString message = parser.errorText();
    if (message.isEmpty())
        message = QStringLiteral("Unexpected argument: %1").arg(parser.positionalArguments().join(' '));
    printErr(message + QLatin1Char('\n') + parser.helpText());
    return false;
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

}  // namespace cli
