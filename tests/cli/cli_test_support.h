// Running the built orvana-cli from a test and reading what it printed.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace clitest {

struct CliRun {
    int exitCode = -1; // -1: did not finish in time, -2: crashed
    QByteArray out;
    QByteArray err;
};

// Runs orvana-cli with `args` (the verb first). A non-empty `library` is put
// in ORVANA_LIBRARY so a run never falls back on the user's own library.
inline CliRun runCli(const QStringList& args, const QString& library = QString(), int timeoutMs = 60000)
{
    QProcess p;
    if (!library.isEmpty()) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("ORVANA_LIBRARY"), library);
        p.setProcessEnvironment(env);
    }
    p.start(QStringLiteral(ORVANA_CLI_PATH), args);
    CliRun r;
    if (!p.waitForFinished(timeoutMs))
        return r;
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    r.out = p.readAllStandardOutput();
    r.err = p.readAllStandardError();
    return r;
}

// The one JSON object a --json run prints; a parse failure fails the test.
inline QJsonObject json(const CliRun& r)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(r.out, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << r.out.left(300).toStdString();
    return doc.object();
}

} // namespace clitest
