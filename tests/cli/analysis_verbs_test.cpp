// orvana-cli's window and sweep verbs and the filter verb's mask options, run
// as a program: exit statuses and the JSON they print.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

#include "cli/cli_test_support.h"

using clitest::json;
using clitest::runCli;

TEST(AnalysisVerbs, WindowPropertiesOfClosedFormWindows)
{
    // Rectangular: ENBW 1 and scallop loss 20·log10(N·sin(π/2N)) → 3.92 dB; Hann: ENBW 1.5.
    const struct {
        const char* window;
        double enbw, scallop;
    } cases[] = {{"rectangular", 1.0, 3.92}, {"hann", 1.5, 1.42}};
    for (const auto& c : cases) {
        const auto r = runCli({"window", c.window, "--taps", "255", "--json"});
        ASSERT_EQ(r.exitCode, 0) << c.window << r.err.toStdString();
        const QJsonObject o = json(r);
        EXPECT_EQ(o.value("coefficients").toArray().size(), 255);
        EXPECT_NEAR(o.value("enbwBins").toDouble(), c.enbw, 0.01) << c.window;
        EXPECT_NEAR(o.value("scallopLossDb").toDouble(), c.scallop, 0.02) << c.window;
    }
    EXPECT_EQ(runCli({"window", "nosuch", "--taps", "25"}).exitCode, 2);
}

TEST(AnalysisVerbs, SweepHasEveryWidthAndDouble)
{
    const auto r = runCli({"sweep", "--units", "norm", "--type", "lowpass", "--cutoff", "0.25", "--taps", "51",
                           "--window", "hamming", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonArray rows = json(r).value("rows").toArray();
    ASSERT_EQ(rows.size(), 14);
    for (int i = 0; i < 13; ++i)
        EXPECT_EQ(rows[i].toObject().value("bits").toInt(), 8 + i);
    EXPECT_TRUE(rows[13].toObject().value("bits").isNull());
    // 20 bits is within 0.5 dB of the double design.
    EXPECT_NEAR(rows[12].toObject().value("stopbandAttenuationDb").toDouble(),
                rows[13].toObject().value("stopbandAttenuationDb").toDouble(), 0.5);
}

TEST(AnalysisVerbs, MaskExitStatusSaysMetMissedOrRefused)
{
    const QStringList base{"filter", "--units", "norm", "--ripple", "0.5", "--attenuation"};
    const struct {
        QStringList args;
        int status;
    } cases[] = {
        {base + QStringList{"60", "--method", "equiripple", "--passband-edge", "0.2", "--stopband-edge", "0.25"}, 0},
        {base + QStringList{"40", "--method", "kaiser", "--passband-edge", "0.2", "--stopband-edge", "0.3"}, 0},
        {base + QStringList{"120", "--method", "equiripple", "--passband-edge", "0.2", "--stopband-edge", "0.21"},
         3},
        {base + QStringList{"60", "--method", "kaiser", "--passband-edge", "0.3", "--stopband-edge", "0.2"}, 1},
    };
    for (const auto& c : cases) {
        const auto r = runCli(c.args + QStringList{"--json"});
        EXPECT_EQ(r.exitCode, c.status) << c.args.join(' ').toStdString() << r.err.toStdString();
        if (c.status == 1)
            continue;
        const QJsonObject mask = json(r).value("mask").toObject();
        EXPECT_EQ(mask.value("met").toBool(), c.status == 0);
        const int taps = mask.value("taps").toInt();
        EXPECT_TRUE(taps >= 25 && taps <= 255 && taps % 2 == 1) << taps;
    }
}
