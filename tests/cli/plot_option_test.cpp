// --plot of the filter and signal verbs: CSV rows equal the arrays the same
// run prints (impulse, step, group delay, zeros, time, spectrum), images have
// the asked size and hold curves, and bad files or sizes are refused unwritten.
#include <QImage>
#include <QJsonArray>
#include <QTemporaryDir>

#include "cli_test_support.h"

namespace {

using clitest::csvCells;
using clitest::runCli;

const QStringList kFilter{"filter", "--units",  "norm",    "--cutoff", "0.3", "--taps",
                          "31",     "--window", "hamming", "--width",  "12"};
const QStringList kSignal{"signal", "--fs", "44.1", "--freq-units", "khz", "--function",
                          "cosine", "--p1", "1.5",  "--p2",         "2"};

TEST(PlotOption, FilterChartCsvFollowsTheCoefficients)
{
    QTemporaryDir dir;
    auto run = [&](const QString& chart) {
        const QString path = dir.filePath(chart + ".csv");
        const auto r = runCli(kFilter + QStringList{"--json", "--plot", path, "--chart", chart});
        EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
        return std::make_pair(clitest::json(r), csvCells(path));
    };
    const auto [json, impulse] = run("impulse");
    const QJsonArray c = json.value("filterCoefficients").toArray();
    const QJsonArray cp = json.value("filterPrecisionCoefficients").toArray();
    const auto step = run("step").second;
    ASSERT_EQ(impulse.size(), 32);
    ASSERT_EQ(step.size(), 32);
    EXPECT_EQ(impulse[0], (QList<QByteArray>{"n", "c[n]", "cp[n]"}));
    double sum = 0.0;
    for (int n = 0; n < 31; ++n) {
        EXPECT_EQ(impulse[n + 1][0].toInt(), n);
        EXPECT_EQ(impulse[n + 1][1].toDouble(), c[n].toDouble());
        EXPECT_EQ(impulse[n + 1][2].toDouble(), cp[n].toDouble());
        sum += cp[n].toDouble();
        EXPECT_NEAR(step[n + 1][1].toDouble(), sum, 1e-15);
    }
    const auto delay = run("group-delay").second;
    ASSERT_EQ(delay.size(), 2049);
    EXPECT_NEAR(delay[1][1].toDouble(), 15.0, 1e-6);
    EXPECT_EQ(delay[2048][0].toDouble(), 2047.0 / 2048); // normalised: 1 is fs/2
    const auto zeros = run("zeros").second;
    EXPECT_EQ(zeros.size(), 31); // N − 1 zeros and the header
    EXPECT_EQ(zeros[0], (QList<QByteArray>{"real", "imaginary"}));
    EXPECT_EQ(run("phase").second.size(), 2049);
    for (const QString chart : {"impulse", "zeros"}) {
        const QString svg = dir.filePath(chart + ".svg");
        EXPECT_EQ(runCli(kFilter + QStringList{"--plot", svg, "--chart", chart}).exitCode, 0);
        EXPECT_TRUE(clitest::readAll(svg).contains("<path"));
    }
}

TEST(PlotOption, SignalCsvEqualsTheJsonArrays)
{
    QTemporaryDir dir;
    for (const QString chart : {"time", "spectrum"}) {
        const QString path = dir.filePath(chart + ".csv");
        const auto run = runCli(kSignal + QStringList{"--json", "--plot", path, "--chart", chart});
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        const QJsonArray array = clitest::json(run).value(chart == "time" ? "time" : "freq").toArray();
        const auto lines = csvCells(path);
        const int rows = chart == "time" ? 16384 : 8192;
        ASSERT_EQ(lines.size(), rows + 1);
        EXPECT_TRUE(
            lines[0].join(',').startsWith(chart == "time" ? "time (" : "frequency (KHz),magnitude ("));
        for (const int i : {0, 7, 123, rows - 1})
            EXPECT_EQ(lines[i + 1][1].toDouble(), array[8 + i].toDouble()) << chart.toStdString() << i;
    }
}

TEST(PlotOption, ImagesHaveTheAskedSizeAndBadRequestsWriteNothing)
{
    QTemporaryDir dir;
    const QString png = dir.filePath("m.png");
    ASSERT_EQ(runCli(kFilter + QStringList{"--plot", png, "--size", "640x240"}).exitCode, 0);
    EXPECT_EQ(QImage(png).size(), QSize(640, 240));
    const struct {
        QStringList args;
        int exit;
    } bad[] = {
        {kFilter + QStringList{"--plot", dir.filePath("m.gif")}, 1},
        {kFilter + QStringList{"--plot", dir.filePath("m.svg"), "--size", "199x400"}, 1},
        {kFilter + QStringList{"--plot", dir.filePath("m.svg"), "--size", "8001x400"}, 1},
        {kFilter + QStringList{"--plot", dir.filePath("m.svg"), "--chart", "bode"}, 2},
        {kSignal + QStringList{"--plot", dir.filePath("t.png"), "--zoom", "3"}, 2},
    };
    for (const auto& b : bad) {
        SCOPED_TRACE(b.args.join(' ').toStdString());
        const auto run = runCli(b.args);
        EXPECT_EQ(run.exitCode, b.exit);
        EXPECT_FALSE(run.err.isEmpty());
        EXPECT_FALSE(QFile::exists(b.args.at(b.args.indexOf("--plot") + 1)));
    }
}

} // namespace
