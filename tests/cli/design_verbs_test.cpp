// orvana-cli run as a program: help and version as help2man and users read
// them (standard output, status 0, each usage line naming its verb); the
// design verbs filter and signal (the JSON object and its array lengths,
// defaults, the note line, the plain report, exit statuses), window and
// sweep, and the filter verb's mask options; tune-fft writing wisdom that
// FFTW takes back.
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cmath>

#include "cli/cli_test_support.h"

namespace {

using clitest::CliRun;
using clitest::json;
using clitest::runCli;

CliRun filterVerb(const QStringList& args)
{
    return runCli(QStringList{QStringLiteral("filter")} + args);
}

CliRun signalVerb(const QStringList& args)
{
    return runCli(QStringList{QStringLiteral("signal")} + args);
}

TEST(DesignVerbs, FilterKaiserBandPassAsJson)
{
    const CliRun r =
        filterVerb({"--units", "norm", "--type", "bandpass", "--cutoff", "0.2", "--center", "0.5", "--taps",
                    "255", "--window", "kaiser", "--param", "5", "--width", "16", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(), QStringLiteral("Filter Coefficients: Negative Symmetry"));
    EXPECT_TRUE(o.value("valid").toBool());
    const QJsonObject results = o.value("results").toObject();
    EXPECT_EQ(results.keys(),
              (QStringList{"KEYFDR_3DB_BANDWIDTH", "KEYFDR_3DB_HIGH", "KEYFDR_3DB_LOW", "KEYFDR_DYNAMIC_RNG",
                           "KEYFDR_DYNAMIC_RNG_ERR", "KEYFDR_PASSBAND_RIPPLE"}));
    for (const char* array : {"filterCoefficients", "filterPrecisionCoefficients", "integerCoefficients"})
        EXPECT_EQ(o.value(array).toArray().size(), 255) << array;
    const QJsonArray response = o.value("response").toArray();
    ASSERT_EQ(response.size(), 4104);
    EXPECT_EQ(std::pair(response.at(0).toDouble(), response.at(3).toDouble()), std::pair(2048.0, 1.0));
    for (const auto& v : response)
        ASSERT_TRUE(v.isDouble());
}

TEST(DesignVerbs, FilterDefaultsAreTheWindowsDefaults)
{
    // MHz, low pass, 25 taps, rectangular, double: fs 10 MHz, cutoff 2 MHz.
    const CliRun r = filterVerb({"--fs", "10", "--cutoff", "2", "--json"});
    ASSERT_EQ(r.exitCode, 0);
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("filterCoefficients").toArray().size(), 25);
    EXPECT_EQ(o.value("response").toArray().at(3).toDouble(), 5.0);
    EXPECT_EQ(o.value("results").toObject().value("KEYFDR_3DB_HIGH").toDouble(), -5.0);
    for (const auto& v : o.value("integerCoefficients").toArray())
        EXPECT_EQ(v.toInt(), 0);
}

// Refused designs exit 1 with the model's note (and empty results in JSON),
// a design without valid results 3 with its warning and nothing else, usage
// errors 2 on standard error only.
TEST(DesignVerbs, ExitStatusesAndNotes)
{
    const struct {
        QStringList args;
        int status;
        const char* note; // the JSON note, or the plain output; null for usage errors
    } cases[] = {
        // clang-format off
        {{"filter", "--units", "khz", "--fs", "100", "--cutoff", "0.4"}, 1, "VALID RANGE: fcutoff ≥  0.500"},
        {{"filter", "--cutoff", "1"}, 1, "VALID RANGE: fsampling > 0"},
        {{"filter", "--units", "norm", "--cutoff", "nan", "--json"}, 1, "VALID RANGE: fcutoff is not a number"},
        {{"filter", "--units", "norm", "--cutoff", "0.3", "--taps", "26"}, 1, "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"},
        {{"filter", "--units", "norm", "--cutoff", "0.99", "--json"}, 3, "WARNING: Increase Filter Length (3dB Point Not Found)"},
        {{"signal", "--fs", "300", "--p1", "1", "--p2", "150"}, 1, "VALID RANGE: fₐ <  150.000"},
        {{"signal", "--fs", "nan", "--p1", "1", "--p2", "10", "--json"}, 1, "VALID RANGE: f samp is not a number"},
        {{"signal", "--function", "6"}, 1, "VALID RANGE: f samp > 0"},
        {{"filter", "--bogus"}, 2, nullptr}, {{"filter", "--cutoff", "abc"}, 2, nullptr},
        {{"filter", "--window", "Triangle"}, 2, nullptr}, {{"filter", "--window", "11"}, 2, nullptr},
        {{"filter", "--width", "7"}, 2, nullptr}, {{"filter", "--units", "hz"}, 2, nullptr},
        {{"filter", "--type", "notch"}, 2, nullptr}, {{"filter", "stray"}, 2, nullptr},
        {{"signal", "--fs", "abc"}, 2, nullptr}, {{"signal", "--function", "11", "--fs", "300"}, 2, nullptr},
        {{"signal", "--freq-units", "ghz"}, 2, nullptr}, {{"signal", "--volt-units", "kv"}, 2, nullptr},
        {{"signal", "--bogus"}, 2, nullptr}, {{"signal", "stray"}, 2, nullptr},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const CliRun r = runCli(c.args);
        EXPECT_EQ(r.exitCode, c.status);
        if (!c.note) {
            EXPECT_TRUE(r.out.isEmpty());
            EXPECT_FALSE(r.err.isEmpty());
        } else if (c.args.contains("--json")) {
            const QJsonObject o = json(r);
            EXPECT_EQ(o.value("note").toString(), QString::fromUtf8(c.note));
            for (const QString& key : o.keys()) { // every result empty, `valid` false
                const QJsonValue v = o.value(key);
                EXPECT_TRUE(key == "note" || (v.toArray().isEmpty() && v.toObject().isEmpty() && !v.toBool()))
                    << key.toStdString();
            }
        } else {
            EXPECT_EQ(QString::fromUtf8(r.out).trimmed(), QString::fromUtf8(c.note));
        }
    }
}

TEST(DesignVerbs, FilterWindowNamesAndPlainReport)
{
    const CliRun r = filterVerb({"--units", "KHz", "--fs", "48", "--cutoff", "6", "--type", "HIGHPASS",
                                 "--window", "blackman-harris", "--taps", "51", "--width", "12"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QString text = QString::fromUtf8(r.out);
    EXPECT_TRUE(text.startsWith(QStringLiteral("Filter Coefficients: Positive Symmetry\n")));
    for (const char* part : {"Blackman-Harris window", " KHz\n", "3dB Point:"})
        EXPECT_TRUE(text.contains(part)) << part;
    // 51 coefficient rows after the heading.
    const QStringList lines = text.split('\n', Qt::SkipEmptyParts);
    const auto heading = lines.indexOf(QRegularExpression(QStringLiteral("^\\s+n\\s+coefficient.*")));
    ASSERT_GE(heading, 0);
    EXPECT_EQ(lines.size() - heading - 1, 51);
}

TEST(DesignVerbs, SignalJsonDesign)
{
    const CliRun r = signalVerb({"--fs", "300", "--function", "0", "--p1", "1", "--p2", "37.5",
                                 "--freq-units", "khz", "--volt-units", "mv", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(), QStringLiteral("OPTIMAL RATE: f samp ≥ 10 fₐ"));
    const QJsonArray time = o.value("time").toArray();
    ASSERT_EQ(time.size(), 16392);
    EXPECT_EQ(o.value("freq").toArray().size(), 8200);
    EXPECT_EQ(std::tuple(time[0].toDouble(), time[2].toDouble(), time[3].toDouble()),
              std::tuple(300.0, 1.0, 1.0));
    EXPECT_NEAR(time[9].toDouble(), std::sqrt(0.5), 1e-15); // 17 digits survive the trip

    // Noise alone with μ left out: mean 0, and no note.
    const QJsonObject noise = json(signalVerb({"--fs", "300", "--function", "noise", "--p1", "1", "--json"}));
    EXPECT_EQ(noise.value("note").toString(), QString());
    EXPECT_NEAR(noise.value("freq").toArray()[8].toDouble(), 0.0, 0.05);
}

TEST(DesignVerbs, SignalPlainOutputForAPerson)
{
    const CliRun r =
        signalVerb({"--fs", "300", "--function", "cosine-sum", "--p1", "1", "--p2", "10", "--p4", "3"});
    ASSERT_EQ(r.exitCode, 0);
    const QString text = QString::fromUtf8(r.out);
    for (const char* part : {"cosine-sum, fs 300 MHz", "Highest frequency: 30 MHz", "x[0] = 3\n"})
        EXPECT_TRUE(text.contains(part)) << part << text.toStdString();
}

// The numbers are the analysis functions' (checked beside them); here the
// verbs' JSON shape and exit statuses.
TEST(DesignVerbs, WindowAndSweepPrintTheirJson)
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

TEST(DesignVerbs, MaskExitStatusSaysMetMissedOrRefused)
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

TEST(CliHelp, GoesToStandardOutputAndNamesTheVerb)
{
    const struct {
        QStringList args;
        const char* firstLine;
    } cases[] = {
        {{"--help"}, "Usage: orvana-cli <verb> [options]"},
        {{"--version"}, "orvana-cli " ORVANA_VERSION_FOR_TESTS},
        {{"filter", "--help"}, "Usage: orvana-cli filter [options]"},
        {{"signal", "--help"}, "Usage: orvana-cli signal [options]"},
        {{"project", "--help"}, "Usage: orvana-cli project [options]"},
        {{"export", "--help"}, "Usage: orvana-cli export [options] NAME OUT"},
        {{"open", "--help"}, "Usage: orvana-cli open [options]"},
        {{"tune-fft", "--help"}, "Usage: orvana-cli tune-fft [options]"},
    };
    for (const auto& c : cases) {
        const clitest::CliRun r = clitest::runCli(c.args);
        EXPECT_EQ(r.exitCode, 0) << c.args.join(' ').toStdString();
        EXPECT_TRUE(r.out.startsWith(c.firstLine)) << r.out.left(80).toStdString();
        EXPECT_TRUE(r.err.isEmpty()) << r.err.toStdString();
    }
    // A wrong verb is a usage error, on standard error.
    const clitest::CliRun wrong = clitest::runCli({"filtre"});
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_TRUE(wrong.out.isEmpty());
}

TEST(CliTuneFft, WritesWisdomFftwReadsBack)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("cache/orvana/fftw-wisdom");
    const clitest::CliRun r = clitest::runCli({"tune-fft", "--output", path});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("(fftw-3.")); // FFTW's own wisdom format
    // A folder that cannot be made (a plain file in its place) is refused.
    QFile blocker(dir.filePath("blocker"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    EXPECT_EQ(clitest::runCli({"tune-fft", "--output", dir.filePath("blocker/fftw-wisdom")}).exitCode, 1);
}

} // namespace
