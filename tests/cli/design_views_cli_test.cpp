// --plot charts of the further design views: the Multirate stages of the
// project verb, and their CSV row counts and refusals.
#include <QFile>
#include <QTemporaryDir>

#include "cli_test_support.h"
#include "support/temp_library.h"

namespace {

QList<QList<QByteArray>> csvRows(const QString& path)
{
    QFile file(path);
    QList<QList<QByteArray>> rows;
    if (file.open(QIODevice::ReadOnly))
        for (const QByteArray& line : file.readAll().split('\n'))
            if (!line.isEmpty())
                rows << line.split(',');
    return rows;
}

} // namespace

// Each stage chart: a header and 16384 time rows or 8192 spectrum rows, the
// time axis at L·fs (300 KHz · 3); the Sum & Filter model has no stages.
TEST(DesignViewsCli, MultirateStageCharts)
{
    TempLibrary temp;
    const QStringList project{"project", "--diagram",  "2",      "--filter",     "lp300fc25",
                              "--sig1",  "Cos35Fs300", "--sig2", "Cos10M3Fs300", "-L",
                              "3",       "-M",         "2",      "--auto",       "1"};
    const struct {
        const char* chart;
        int rows;
    } cases[] = {{"upsampled-time", 16384},
                 {"upsampled-spectrum", 8192},
                 {"filtered-time", 16384},
                 {"filtered-spectrum", 8192}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.chart);
        const QString path = temp.root() + "/" + c.chart + ".csv";
        const auto r =
            clitest::runCli(project + QStringList{"--plot", path, "--chart", c.chart}, temp.root());
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        const auto rows = csvRows(path);
        ASSERT_EQ(rows.size(), c.rows + 1);
        if (QByteArray(c.chart).endsWith("time"))
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
