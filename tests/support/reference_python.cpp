#include "support/reference_python.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace reference {

QString scriptPath(const QString& name)
{
    return QStringLiteral(ORVANA_TEST_SCRIPTS_DIR "/") + name;
}

std::optional<QByteArray> runPython(const QString& script, const QStringList& args, const QByteArray& input,
                                    QString* error)
{
    QProcess p;
    p.start(QStringLiteral(ORVANA_REFERENCE_PYTHON), QStringList{scriptPath(script)} + args);
    if (!p.waitForStarted(10000)) {
        if (error)
            *error = QStringLiteral("python3 did not start");
        return std::nullopt;
    }
    if (!input.isEmpty())
        p.write(input);
    p.closeWriteChannel();
    if (!p.waitForFinished(120000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0) {
        if (error)
            *error = QString::fromUtf8(p.readAllStandardError());
        return std::nullopt;
    }
    return p.readAllStandardOutput();
}

QByteArray numbersLine(std::span<const double> values)
{
    QByteArray text;
    for (const double v : values)
        text += QByteArray::number(v, 'g', 17) + ' ';
    return text + '\n';
}

std::vector<double> parseNumbers(const QByteArray& text)
{
    std::vector<double> values;
    for (const QByteArray& word : text.simplified().split(' ')) {
        if (word.isEmpty())
            continue;
        bool ok = false;
        const double v = word.toDouble(&ok);
        if (ok)
            values.push_back(v);
    }
    return values;
}

std::vector<double> numbers(const QString& script, const QStringList& args, const QByteArray& input)
{
    QString error;
    const auto out = runPython(script, args, input, &error);
    if (!out)
        ADD_FAILURE() << script.toStdString() << " failed: " << error.toStdString();
    return out ? parseNumbers(*out) : std::vector<double>{};
}

} // namespace reference
