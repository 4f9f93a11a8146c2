// orvana-cli signal: exit codes, the note, and the JSON arrays.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

#include "cli/cli_test_support.h"

namespace {

using clitest::CliRun;
using clitest::json;

CliRun runCli(const QStringList& args)
{
    return clitest::runCli(QStringList{QStringLiteral("signal")} + args);
}

} // namespace

TEST(SignalVerb, JsonDesign)
{
    const CliRun r = runCli({"--fs", "300", "--function", "0", "--p1", "1", "--p2", "37.5", "--freq-units",
                             "khz", "--volt-units", "mv", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(), QStringLiteral("OPTIMAL RATE: f samp ≥ 10 fₐ"));
    const QJsonArray time = o.value("time").toArray();
    const QJsonArray freq = o.value("freq").toArray();
    ASSERT_EQ(time.size(), 16392);
    ASSERT_EQ(freq.size(), 8200);
    EXPECT_EQ(time[0].toDouble(), 300.0);
    EXPECT_EQ(time[2].toDouble(), 1.0); // mV
    EXPECT_EQ(time[3].toDouble(), 1.0); // KHz
    EXPECT_EQ(time[8].toDouble(), 1.0);
    EXPECT_NEAR(time[9].toDouble(), std::sqrt(0.5), 1e-15); // 17 digits survive the trip
    EXPECT_NEAR(freq[8 + 2048].toDouble(), 0.5, 1e-12);
}

TEST(SignalVerb, EmptyNoteAndMissingParametersReadAsZero)
{
    // Noise alone with μ left out: mean 0.
    const CliRun r = runCli({"--fs", "300", "--function", "noise", "--p1", "1", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(), QString());
    EXPECT_NEAR(o.value("freq").toArray()[8].toDouble(), 0.0, 0.05);
}

TEST(SignalVerb, RefusalsPrintTheNoteAndUsageErrorsExitTwo)
{
    const struct {
        QStringList args;
        int status;
        const char* note; // the JSON note, or the plain output; null for usage errors
    } cases[] = {
        // clang-format off
        {{"--fs", "300", "--p1", "1", "--p2", "150"}, 1, "VALID RANGE: fₐ <  150.000"},
        {{"--fs", "nan", "--p1", "1", "--p2", "10", "--json"}, 1, "VALID RANGE: f samp is not a number"},
        {{"--function", "6"}, 1, "VALID RANGE: f samp > 0"},
        {{"--fs", "abc"}, 2, nullptr}, {{"--function", "11", "--fs", "300"}, 2, nullptr},
        {{"--freq-units", "ghz"}, 2, nullptr}, {{"--volt-units", "kv"}, 2, nullptr},
        {{"--bogus"}, 2, nullptr}, {{"stray"}, 2, nullptr},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const CliRun r = runCli(c.args);
        EXPECT_EQ(r.exitCode, c.status);
        if (!c.note)
            EXPECT_TRUE(r.out.isEmpty());
        else if (c.args.contains("--json"))
            EXPECT_EQ(json(r).value("note").toString(), QString::fromUtf8(c.note));
        else
            EXPECT_EQ(QString::fromUtf8(r.out).trimmed(), QString::fromUtf8(c.note));
    }
}

TEST(SignalVerb, PlainOutputForAPerson)
{
    const CliRun r =
        runCli({"--fs", "300", "--function", "cosine-sum", "--p1", "1", "--p2", "10", "--p4", "3"});
    ASSERT_EQ(r.exitCode, 0);
    const QString text = QString::fromUtf8(r.out);
    EXPECT_TRUE(text.contains(QStringLiteral("cosine-sum, fs 300 MHz"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Highest frequency: 30 MHz")));
    EXPECT_TRUE(text.contains(QStringLiteral("x[0] = 3\n")));
}
