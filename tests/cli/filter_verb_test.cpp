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

TEST(FilterVerb, RefusedDesignsExitWithOne)
{
    CliRun r = cli({"--units", "khz", "--fs", "100", "--cutoff", "0.4"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(QString::fromUtf8(r.out).trimmed(), QStringLiteral("VALID RANGE: fcutoff ≥  0.500"));

    r = cli({"--cutoff", "1"}); // MHz with no sampling frequency
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(QString::fromUtf8(r.out).trimmed(), QStringLiteral("VALID RANGE: fsampling > 0"));

    r = cli({"--units", "norm", "--cutoff", "nan", "--json"});
    EXPECT_EQ(r.exitCode, 1);
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(), QStringLiteral("VALID RANGE: fcutoff is not a number"));
    EXPECT_FALSE(o.value("valid").toBool());
    EXPECT_TRUE(o.value("response").toArray().isEmpty());

    r = cli({"--units", "norm", "--cutoff", "0.3", "--taps", "26"});
    EXPECT_EQ(r.exitCode, 1);
}

TEST(FilterVerb, MissingThreeDecibelPointIsADesignWithoutValidResults)
{
    const CliRun r = cli({"--units", "norm", "--cutoff", "0.99", "--json"});
    ASSERT_EQ(r.exitCode, 3);
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(),
              QStringLiteral("WARNING: Increase Filter Length (3dB Point Not Found)"));
    EXPECT_FALSE(o.value("valid").toBool());
    EXPECT_TRUE(o.value("results").toObject().isEmpty());
    EXPECT_TRUE(o.value("filterCoefficients").toArray().isEmpty());
    EXPECT_TRUE(o.value("response").toArray().isEmpty());
}

TEST(FilterVerb, UsageErrorsExitWithTwo)
{
    for (const QStringList& args :
         {QStringList{"--bogus"}, QStringList{"--cutoff", "abc"}, QStringList{"--window", "Triangle"},
          QStringList{"--window", "11"}, QStringList{"--width", "7"}, QStringList{"--units", "hz"},
          QStringList{"--type", "notch"}, QStringList{"stray"}}) {
        const CliRun r = cli(args);
        EXPECT_EQ(r.exitCode, 2) << args.join(' ').toStdString();
        EXPECT_TRUE(r.out.isEmpty());
        EXPECT_FALSE(r.err.isEmpty());
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
