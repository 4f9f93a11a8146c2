// --plot charts of the further design views: the Multirate stages of the
// project verb, and their CSV row counts and refusals.
#include <QJsonArray>
#include <QTemporaryDir>

#include "cli_test_support.h"
#include "support/temp_library.h"

using clitest::csvCells;

// Each stage chart: a header and 16384 time rows or 8192 spectrum rows, the
// time axis at L·fs (300 KHz · 3); the Sum & Filter model has no stages.
TEST(DesignViewsCli, MultirateStageCharts)
{
    TempLibrary temp;
    const QStringList project{"project", "--diagram",  "2",      "--filter",     "lp300fc25",
                              "--sig1",  "Cos35Fs300", "--sig2", "Cos10M3Fs300", "-L",
                              "3",       "-M",         "2",      "--auto",       "1"};
    for (const char* chart : {"upsampled-time", "upsampled-spectrum", "filtered-time", "filtered-spectrum"}) {
        SCOPED_TRACE(chart);
        const bool time = QByteArray(chart).endsWith("time");
        const QString path = temp.root() + "/" + chart + ".csv";
        const auto r = clitest::runCli(project + QStringList{"--plot", path, "--chart", chart}, temp.root());
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        const auto rows = csvCells(path);
        ASSERT_EQ(rows.size(), (time ? 16384 : 8192) + 1);
        if (time)
            EXPECT_NEAR(rows[2][0].toDouble(), 1.0 / 900.0, 1e-9); // mS per sample at 900 KHz
        else
            EXPECT_NEAR(rows.last()[0].toDouble(), 450.0 * 8191 / 8192, 1e-6); // up to L·fs/2
    }
    QStringList sumAndFilter = project;
    sumAndFilter[2] = "1";
    const auto r = clitest::runCli(
        sumAndFilter + QStringList{"--plot", temp.root() + "/x.csv", "--chart", "filtered-time"},
        temp.root());
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_TRUE(r.err.contains("--diagram 2")) << r.err.toStdString();
}

// word-length: 14 rows, 8 to 20 bits and then Double, spelt "double"; the
// rows are those `sweep --json` measures for the same design.
TEST(DesignViewsCli, WordLengthCsvHasTheFourteenSweepRows)
{
    QTemporaryDir dir;
    const QStringList design{"--units", "norm",     "--cutoff", "0.3",     "--taps",
                             "51",      "--window", "kaiser",   "--param", "6"};
    const QString path = dir.filePath("wl.csv");
    const auto r = clitest::runCli(QStringList{"filter"} + design +
                                   QStringList{"--plot", path, "--chart", "word-length"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const auto sweep = clitest::runCli(QStringList{"sweep"} + design + QStringList{"--json"});
    const QJsonArray expected = clitest::json(sweep).value("rows").toArray();
    const auto rows = csvCells(path);
    ASSERT_EQ(rows.size(), 15);
    ASSERT_EQ(expected.size(), 14);
    EXPECT_EQ(rows[0].size(), 3);
    for (int i = 0; i < 14; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(rows[i + 1][0], i < 13 ? QByteArray::number(8 + i) : QByteArray("double"));
        EXPECT_DOUBLE_EQ(rows[i + 1][1].toDouble(),
                         expected[i].toObject().value("stopbandAttenuationDb").toDouble());
        EXPECT_DOUBLE_EQ(rows[i + 1][2].toDouble(),
                         expected[i].toObject().value("passbandRippleDb").toDouble());
    }
}

// zeros: always N − 1 rows. An 8-bit design quantises its outer taps to
// 0: each leading zero is a zero at infinity ("inf"), each trailing one a
// zero at the origin; the rest are the roots of the shortened polynomial.
TEST(DesignViewsCli, ZerosCsvHasNMinusOneRowsWithLeadingZeroCoefficients)
{
    QTemporaryDir dir;
    for (const char* width : {"8", "double"}) {
        SCOPED_TRACE(width);
        const QString path = dir.filePath(QStringLiteral("z%1.csv").arg(width));
        const auto r = clitest::runCli({"filter", "--units", "norm", "--cutoff", "0.1", "--taps", "51",
                                        "--window", "blackman-harris", "--width", width, "--json", "--plot",
                                        path, "--chart", "zeros"});
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        const QJsonArray cp = clitest::json(r).value("filterPrecisionCoefficients").toArray();
        int leading = 0;
        while (leading < cp.size() && cp[leading].toDouble() == 0.0)
            ++leading;
        const auto rows = csvCells(path);
        ASSERT_EQ(rows.size(), 1 + 50);
        int infinite = 0;
        int origin = 0;
        for (const auto& row : rows.mid(1)) {
            infinite += row[0] == "inf" && row[1] == "0";
            origin += row[0].toDouble() == 0.0 && row[1].toDouble() == 0.0;
        }
        EXPECT_EQ(infinite, leading);
        EXPECT_GE(origin, leading); // symmetric: as many trailing zeros
        EXPECT_TRUE(leading > 0 || QByteArray(width) == "double");
    }
}

// compare: column k + 1 of the CSV is design k's own magnitude chart (the
// response array its design printed), whatever its units and width; the
// first column is k/2048. Too few or too many names is a usage error, a
// missing design a refusal that names it.
TEST(DesignViewsCli, CompareCsvEqualsEachDesignsMagnitudeChart)
{
    TempLibrary temp;
    const QList<QStringList> designs{
        {"--units", "norm", "--cutoff", "0.3", "--taps", "41", "--window", "hann", "--save", "a"},
        {"--units", "khz", "--fs", "48", "--cutoff", "6", "--taps", "61", "--window", "kaiser", "--param",
         "5", "--width", "12", "--save", "b"},
        {"--units", "mhz", "--fs", "10", "--type", "highpass", "--cutoff", "2", "--taps", "25", "--width",
         "8", "--save", "c"}};
    QList<QJsonArray> responses;
    for (const QStringList& d : designs) {
        const auto r = clitest::runCli(QStringList{"filter", "--json"} + d, temp.root());
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        responses << clitest::json(r).value("response").toArray();
    }
    const QString path = temp.root() + "/compare.csv";
    const auto r = clitest::runCli({"compare", "a", "b.filt", "c", "--plot", path}, temp.root());
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const auto rows = csvCells(path);
    ASSERT_EQ(rows.size(), 2049);
    EXPECT_EQ(rows[0].size(), 4);
    for (int k = 0; k < 2048; ++k) {
        ASSERT_EQ(rows[k + 1][0].toDouble(), k / 2048.0);
        for (int d = 0; d < 3; ++d)
            ASSERT_EQ(rows[k + 1][d + 1].toDouble(), responses[d][8 + k].toDouble()) << k << " " << d;
    }

    const struct {
        QStringList names;
        int status;
    } refusals[] = {{{"a"}, 2}, {{"a", "b", "c", "a", "b"}, 2}, {{"a", "gone"}, 1}};
    for (const auto& c : refusals) {
        const auto refused =
            clitest::runCli(QStringList{"compare"} + c.names + QStringList{"--plot", path}, temp.root());
        EXPECT_EQ(refused.exitCode, c.status) << c.names.join(' ').toStdString();
        EXPECT_TRUE(c.status != 1 || refused.err.contains("gone")) << refused.err.toStdString();
    }
}
