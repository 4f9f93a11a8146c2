// orvana-cli filter run as a program: exit codes, the JSON object and its
// array lengths, the note line, and the plain report.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStringList>

#include <cmath>

#include "cli/cli_test_support.h"

namespace {

using clitest::CliRun;
using clitest::json;

CliRun cli(const QStringList& args)
{
    return clitest::runCli(QStringList{QStringLiteral("filter")} + args);
}

} // namespace

TEST(FilterVerb, KaiserBandPassAsJson)
{
    const CliRun r = cli({"--units", "norm", "--type", "bandpass", "--cutoff", "0.2", "--center", "0.5",
                          "--taps", "255", "--window", "kaiser", "--param", "5", "--width", "16", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = json(r);
    // Centred on 0.5 with 254 = 2·127 intervals: the modulation makes it antisymmetric.
    EXPECT_EQ(o.value("note").toString(), QStringLiteral("Filter Coefficients: Negative Symmetry"));
    EXPECT_TRUE(o.value("valid").toBool());
    const QJsonObject results = o.value("results").toObject();
    EXPECT_EQ(results.keys(),
              (QStringList{"KEYFDR_3DB_BANDWIDTH", "KEYFDR_3DB_HIGH", "KEYFDR_3DB_LOW", "KEYFDR_DYNAMIC_RNG",
                           "KEYFDR_DYNAMIC_RNG_ERR", "KEYFDR_PASSBAND_RIPPLE"}));
    const double low = results.value("KEYFDR_3DB_LOW").toDouble();
    const double high = results.value("KEYFDR_3DB_HIGH").toDouble();
    EXPECT_NEAR((low + high) / 2.0, 0.5, 1e-12);
    EXPECT_NEAR(low, 0.3, 0.02);
    EXPECT_EQ(o.value("filterCoefficients").toArray().size(), 255);
    EXPECT_EQ(o.value("filterPrecisionCoefficients").toArray().size(), 255);
    const QJsonArray q = o.value("integerCoefficients").toArray();
    ASSERT_EQ(q.size(), 255);
    int largest = 0;
    for (const auto& v : q)
        largest = std::max(largest, v.toInt());
    EXPECT_EQ(largest, 32767);
    const QJsonArray response = o.value("response").toArray();
    ASSERT_EQ(response.size(), 4104);
    EXPECT_EQ(response.at(0).toDouble(), 2048.0);
    EXPECT_EQ(response.at(3).toDouble(), 1.0);
    for (const auto& v : response)
        ASSERT_TRUE(v.isDouble());
    EXPECT_NEAR(o.value("dynamicRange").toDouble(), 1.0, 1e-12); // largest = −smallest
}

TEST(FilterVerb, DefaultsAreTheWindowsDefaults)
{
    // MHz, low pass, 25 taps, rectangular, double: fs 10 MHz, cutoff 2 MHz.
    const CliRun r = cli({"--fs", "10", "--cutoff", "2", "--json"});
    ASSERT_EQ(r.exitCode, 0);
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("filterCoefficients").toArray().size(), 25);
    EXPECT_EQ(o.value("response").toArray().at(3).toDouble(), 5.0);
    EXPECT_EQ(o.value("results").toObject().value("KEYFDR_3DB_HIGH").toDouble(), -5.0);
    for (const auto& v : o.value("integerCoefficients").toArray())
        EXPECT_EQ(v.toInt(), 0);
}

// Refused designs exit 1 with the model's note, a design without valid results
// 3 with its warning and nothing else, usage errors 2 on standard error only.
TEST(FilterVerb, ExitStatusesAndNotes)
{
    const struct {
        QStringList args;
        int status;
        const char* note; // the JSON note, or the plain output; null for usage errors
    } cases[] = {
        // clang-format off
        {{"--units", "khz", "--fs", "100", "--cutoff", "0.4"}, 1, "VALID RANGE: fcutoff ≥  0.500"},
        {{"--cutoff", "1"}, 1, "VALID RANGE: fsampling > 0"},
        {{"--units", "norm", "--cutoff", "nan", "--json"}, 1, "VALID RANGE: fcutoff is not a number"},
        {{"--units", "norm", "--cutoff", "0.3", "--taps", "26"}, 1, "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"},
        {{"--units", "norm", "--cutoff", "0.99", "--json"}, 3, "WARNING: Increase Filter Length (3dB Point Not Found)"},
        {{"--bogus"}, 2, nullptr}, {{"--cutoff", "abc"}, 2, nullptr}, {{"--window", "Triangle"}, 2, nullptr},
        {{"--window", "11"}, 2, nullptr}, {{"--width", "7"}, 2, nullptr}, {{"--units", "hz"}, 2, nullptr},
        {{"--type", "notch"}, 2, nullptr}, {{"stray"}, 2, nullptr},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const CliRun r = cli(c.args);
        EXPECT_EQ(r.exitCode, c.status);
        if (!c.note) {
            EXPECT_TRUE(r.out.isEmpty());
            EXPECT_FALSE(r.err.isEmpty());
        } else if (c.args.contains("--json")) {
            const QJsonObject o = json(r);
            EXPECT_EQ(o.value("note").toString(), QString::fromUtf8(c.note));
            EXPECT_FALSE(o.value("valid").toBool());
            EXPECT_TRUE(o.value("results").toObject().isEmpty());
            EXPECT_TRUE(o.value("filterCoefficients").toArray().isEmpty());
            EXPECT_TRUE(o.value("response").toArray().isEmpty());
        } else {
            EXPECT_EQ(QString::fromUtf8(r.out).trimmed(), QString::fromUtf8(c.note));
        }
    }
}

TEST(FilterVerb, WindowNamesAndPlainReport)
{
    const CliRun r = cli({"--units", "KHz", "--fs", "48", "--cutoff", "6", "--type", "HIGHPASS", "--window",
                          "blackman-harris", "--taps", "51", "--width", "12"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QString text = QString::fromUtf8(r.out);
    EXPECT_TRUE(text.startsWith(QStringLiteral("Filter Coefficients: Positive Symmetry\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("Blackman-Harris window")));
    EXPECT_TRUE(text.contains(QStringLiteral(" KHz\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("3dB Point:")));
    // 51 coefficient rows after the heading.
    const QStringList lines = text.split('\n', Qt::SkipEmptyParts);
    const auto heading = lines.indexOf(QRegularExpression(QStringLiteral("^\\s+n\\s+coefficient.*")));
    ASSERT_GE(heading, 0);
    EXPECT_EQ(lines.size() - heading - 1, 51);
}
