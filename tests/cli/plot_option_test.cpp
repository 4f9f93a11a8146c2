// --plot of the filter and signal verbs: CSV rows equal the printed arrays,
// images have the asked size, and bad files or sizes are refused unwritten.
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QTemporaryDir>

#include "cli_test_support.h"

namespace {

QList<QByteArray> csvLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lines = file.readAll().split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

const QStringList kSignal{"signal", "--fs", "44.1", "--freq-units", "khz", "--function",
                          "cosine", "--p1", "1.5",  "--p2",         "2"};

} // namespace

TEST(PlotOption, SignalCsvEqualsTheJsonArrays)
{
    QTemporaryDir dir;
    for (const QString chart : {"time", "spectrum"}) {
        const QString path = dir.filePath(chart + ".csv");
        const auto run = clitest::runCli(kSignal + QStringList{"--json", "--plot", path, "--chart", chart});
        ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
        const QJsonArray array = clitest::json(run).value(chart == "time" ? "time" : "freq").toArray();
        const QList<QByteArray> lines = csvLines(path);
        const int rows = chart == "time" ? 16384 : 8192;
        ASSERT_EQ(lines.size(), rows + 1);
        EXPECT_TRUE(lines[0].startsWith(chart == "time" ? "time (" : "frequency (KHz),magnitude ("));
        for (const int i : {0, 7, 123, rows - 1})
            EXPECT_EQ(lines[i + 1].split(',')[1].toDouble(), array[8 + i].toDouble())
                << chart.toStdString() << i;
    }
}

TEST(PlotOption, ImagesHaveTheAskedSizeAndBadRequestsWriteNothing)
{
    QTemporaryDir dir;
    const QStringList filter{"filter", "--units", "norm", "--cutoff", "0.3", "--taps", "51"};
    const QString png = dir.filePath("m.png");
    ASSERT_EQ(clitest::runCli(filter + QStringList{"--plot", png, "--size", "640x240"}).exitCode, 0);
    EXPECT_EQ(QImage(png).size(), QSize(640, 240));
    EXPECT_EQ(csvLines([&] {
                  const QString csv = dir.filePath("p.csv");
                  clitest::runCli(filter + QStringList{"--plot", csv, "--chart", "phase"});
                  return csv;
              }())
                  .size(),
              2049);

    struct Bad {
        QStringList args;
        int exit;
    } bad[] = {
        {{"--plot", dir.filePath("m.gif")}, 1},
        {{"--plot", dir.filePath("m.svg"), "--size", "199x400"}, 1},
        {{"--plot", dir.filePath("m.svg"), "--size", "8001x400"}, 1},
        {{"--plot", dir.filePath("m.svg"), "--chart", "bode"}, 2},
    };
    for (const Bad& b : bad) {
        const auto run = clitest::runCli(filter + b.args);
        EXPECT_EQ(run.exitCode, b.exit) << b.args.join(' ').toStdString();
        EXPECT_FALSE(run.err.isEmpty());
        EXPECT_FALSE(QFile::exists(b.args[1]));
    }
    EXPECT_EQ(clitest::runCli(kSignal + QStringList{"--plot", dir.filePath("t.png"), "--zoom", "3"}).exitCode,
              2);
}
