// --plot --chart impulse|step|group-delay|zeros: the CSV columns and rows
// against the coefficients the same run prints, and the images written.
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <cmath>

#include "cli_test_support.h"

namespace {

QList<QList<QByteArray>> csvCells(const QString& path)
{
    QFile file(path);
    QList<QList<QByteArray>> rows;
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (!line.isEmpty())
            rows << line.split(',');
    return rows;
}

} // namespace

TEST(DesignChartPlot, CsvColumnsFollowTheCoefficients)
{
    QTemporaryDir dir;
    const QStringList design{"filter", "--units",  "norm",    "--cutoff", "0.3", "--taps",
                             "31",     "--window", "hamming", "--width",  "12",  "--json"};
    auto run = [&](const QString& chart) {
        const QString path = dir.filePath(chart + ".csv");
        const auto r = clitest::runCli(design + QStringList{"--plot", path, "--chart", chart});
        EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
        return std::make_pair(clitest::json(r), csvCells(path));
    };
    const auto [json, impulse] = run("impulse");
    const QJsonArray c = json.value("filterCoefficients").toArray();
    const QJsonArray cp = json.value("filterPrecisionCoefficients").toArray();
    ASSERT_EQ(impulse.size(), 32);
    EXPECT_EQ(impulse[0], (QList<QByteArray>{"n", "c[n]", "cp[n]"}));
    double sum = 0.0;
    const auto step = run("step").second;
    ASSERT_EQ(step.size(), 32);
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
    EXPECT_EQ(delay[2049 - 1][0].toDouble(), 2047.0 / 2048); // normalised: 1 is fs/2
    const auto zeros = run("zeros").second;
    EXPECT_EQ(zeros.size(), 31); // N − 1 zeros and the header
    EXPECT_EQ(zeros[0], (QList<QByteArray>{"real", "imaginary"}));

    for (const QString chart : {"impulse", "zeros"}) {
        const QString svg = dir.filePath(chart + ".svg");
        EXPECT_EQ(clitest::runCli(design + QStringList{"--plot", svg, "--chart", chart}).exitCode, 0);
        QFile file(svg);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(file.readAll().contains("<path"));
    }
}
