// Running the built orvana-cli from a test and reading what it printed and wrote.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include "support/temp_library.h"

namespace clitest {

struct CliRun {
    int exitCode = -1; // -1: did not finish in time, -2: crashed
    QByteArray out;
    QByteArray err;
};

// Runs `program` (orvana-cli unless given) with `args`. A non-empty `library`
// is put in ORVANA_LIBRARY so a run never falls back on the user's own library.
inline CliRun runCli(const QStringList& args, const QString& library = QString(),
                     const QString& program = QStringLiteral(ORVANA_CLI_PATH))
{
    QProcess p;
    if (!library.isEmpty()) {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("ORVANA_LIBRARY"), library);
        p.setProcessEnvironment(env);
    }
    p.start(program, args);
    CliRun r;
    if (!p.waitForFinished(120000))
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

inline QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

// The lines of a CSV file, each split into its cells.
inline QList<QList<QByteArray>> csvCells(const QString& path)
{
    QList<QList<QByteArray>> rows;
    for (const QByteArray& line : readAll(path).split('\n'))
        if (!line.isEmpty())
            rows << line.split(',');
    return rows;
}

// A temporary library the verbs are run over, given by --library and by the
// environment (so a verb that ignores the option still never finds the user's).
class LibraryCli : public ::testing::Test {
protected:
    CliRun cli(const QStringList& args)
    {
        return runCli(args, temp.root() + QStringLiteral("/fromEnvironment"));
    }
    CliRun verb(const QString& name, const QStringList& rest)
    {
        return cli(QStringList{name, QStringLiteral("--library"), lib()} + rest);
    }
    QString lib() const { return temp.root() + QStringLiteral("/lib"); }

    TempLibrary temp;
};

} // namespace clitest
