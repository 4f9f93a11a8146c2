// orvana-cli's window and sweep verbs and the filter verb's mask options, run
// as a program: exit statuses and the JSON they print.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

#include "cli/cli_test_support.h"

using clitest::json;
using clitest::runCli;

// The numbers are the analysis functions' (checked beside them); here the
// verbs' JSON shape and exit statuses.
TEST(AnalysisVerbs, WindowAndSweepPrintTheirJson)
{
    auto r = runCli({"window", "hann", "--taps", "255", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    QJsonObject o = json(r);
    EXPECT_EQ(o.value("coefficients").toArray().size(), 255);
    EXPECT_NEAR(o.value("enbwBins").toDouble(), 1.5, 0.01);
    EXPECT_NEAR(o.value("scallopLossDb").toDouble(), 1.42, 0.02);
    EXPECT_EQ(runCli({"window", "nosuch", "--taps", "25"}).exitCode, 2);

    r = runCli(
        {"sweep", "--units", "norm", "--type", "lowpass", "--cutoff", "0.25", "--taps", "51", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonArray rows = json(r).value("rows").toArray();
    ASSERT_EQ(rows.size(), 14); // 8 to 20 bits, then double
    for (int i = 0; i < 14; ++i)
        EXPECT_EQ(rows[i].toObject().value("bits").toInt(-1), i < 13 ? 8 + i : -1);
    EXPECT_TRUE(rows[13].toObject().value("stopbandAttenuationDb").isDouble());
}

TEST(AnalysisVerbs, MaskExitStatusSaysMetMissedOrRefused)
{
    const QStringList base{"filter", "--units", "norm", "--ripple", "0.5", "--attenuation"};
    const struct {
        QStringList args;
        int status;
    } cases[] = {
        {base +
             QStringList{"60", "--method", "equiripple", "--passband-edge", "0.2", "--stopband-edge", "0.25"},
         0},
        {base + QStringList{"40", "--method", "kaiser", "--passband-edge", "0.2", "--stopband-edge", "0.3"},
         0},
        {base + QStringList{"120", "--method", "equiripple", "--passband-edge", "0.2", "--stopband-edge",
                            "0.21"},
         3},
        {base + QStringList{"60", "--method", "kaiser", "--passband-edge", "0.3", "--stopband-edge", "0.2"},
         1},
    };
    for (const auto& c : cases) {
        const auto r = runCli(c.args + QStringList{"--json"});
        EXPECT_EQ(r.exitCode, c.status) << c.args.join(' ').toStdString() << r.err.toStdString();
        if (c.status == 1)
            continue;
        const QJsonObject mask = json(r).value("mask").toObject();
        EXPECT_EQ(mask.value("met").toBool(), c.status == 0);
    }
}
