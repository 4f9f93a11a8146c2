// orvana-cli with a library: saving from the filter and signal verbs, the
// project, export and open verbs, the export formats chosen by --format or
// OUT's extension, and their refusals, run as a program.
#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include "cli/cli_test_support.h"

namespace {

using clitest::CliRun;
using clitest::json;

class DesignFilesVerbs : public clitest::LibraryCli {};

TEST_F(DesignFilesVerbs, FilterAndSignalSaveIntoTheLibrary)
{
    CliRun r = verb("filter", {"--units", "khz", "--fs", "48", "--cutoff", "6", "--taps", "25", "--width",
                               "8", "--save", "mine"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    // The library was made and seeded.
    for (const char* file :
         {"filter/mine.filt", "filter/lp300fc25.filt", "projectTwo/multirateUser300to450.orvana"})
        EXPECT_TRUE(QFileInfo::exists(lib() + '/' + file)) << file;

    r = verb("open", {"filter", "mine", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    QJsonObject o = json(r);
    EXPECT_EQ(o.keys().size(), 19);
    EXPECT_TRUE(o.value("filterName").isNull());
    EXPECT_DOUBLE_EQ(o.value("dfThetaCutoffFreqNormalized").toDouble(), 0.25);
    EXPECT_EQ(o.value("integerCoefficients").toArray().size(), 25);

    r = verb("signal", {"--freq-units", "khz", "--volt-units", "mv", "--fs", "300", "--function", "cosine",
                        "--p1", "500", "--p2", "35", "--save", "sig", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    json(r); // stdout stays one JSON object with --save
    r = verb("open", {"signal", "sig.signal"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    for (const char* line : {"samplingFreq: 300\n", "voltUnits: 1\n", "parm1: 500\n"})
        EXPECT_TRUE(r.out.contains(line)) << line;
}

TEST_F(DesignFilesVerbs, ProjectRunsFromSavedDesignsAndSaves)
{
    CliRun r = verb("project", {"--diagram", "2", "--filter", "lpNormfcp333", "--sig1", "Cos35Fs300",
                                "--sig2", "Cos10M3Fs300", "--L", "3", "--M", "2", "--save", "mr", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("note").toString(), QString());
    const QJsonArray time = o.value("time").toArray();
    ASSERT_EQ(time.size(), 32784);
    EXPECT_EQ(o.value("freq").toArray().size(), 16400);
    EXPECT_DOUBLE_EQ(time.at(8).toDouble(), 450.0);

    r = verb("open", {"project", "mr", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject p = json(r);
    EXPECT_EQ(std::pair(p.value("multirateL").toInt(), p.value("multirateM").toInt()), std::pair(3, 2));
    EXPECT_EQ(p.value("signalOneName").toString(), QStringLiteral("Cos35Fs300"));

    // Without --library the environment's library is used.
    r = cli({"open", "project", "Cos10M3andCos35", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(json(r).value("filterName").toString(), QStringLiteral("lp300fc25"));
    EXPECT_TRUE(QFileInfo::exists(temp.root() + "/fromEnvironment/projectOne/Cos10M3andCos35.orvana"));
}

// Refusals: exit 1 for a design or file refused, 2 for usage; nothing written.
TEST_F(DesignFilesVerbs, RefusalsWriteNothing)
{
    ASSERT_EQ(verb("open", {"signal", "Cos1MHz"}).exitCode, 0); // seeds the library
    clitest::writeFile(lib() + "/filter/corrupt.filt", "bplist00 this is not an archive");
    const QString out = temp.root() + "/never.csv";
    const QStringList sigs{"--sig1", "Cos35Fs300", "--sig2", "Cos35Fs300"};
    const struct {
        const char* verb;
        QStringList args;
        int status;
        const char* err;    // in stderr, when given
        const char* unmade; // a file under the library that must not exist
    } cases[] = {
        // clang-format off
        {"filter", {"--units", "norm", "--cutoff", "2", "--save", "bad"}, 1, "not saved", "filter/bad.filt"},
        {"signal", {"--fs", "20", "--p1", "1", "--p2", "1", "--save", "../out"}, 1, "must not contain", "out.signal"},
        {"signal", {"--fs", "20", "--p1", "1", "--p2", "1", "--save", ""}, 1, "needs a name", nullptr},
        {"project", {"--filter", "lp300fc25", "--sig1", "nothing", "--sig2", "Cos35Fs300"}, 1, "nothing.signal", nullptr},
        {"project", QStringList{"--filter", "lp300fc25"} + sigs + QStringList{"--L", "13"}, 2, nullptr, nullptr},
        {"project", sigs, 2, nullptr, nullptr},
        {"export", {"bpNormFcp5Fcutp025", out}, 1,
         "Filter Coefficient Width must be an Integer Value\n(Not Floating Point)\n", nullptr},
        {"export", {"noSuchFilter", out}, 1, "noSuchFilter", nullptr},
        {"export", {"lp300fc25"}, 2, nullptr, nullptr},
        {"open", {"filter", "corrupt"}, 1, "is not an Orvana filter design", nullptr},
        {"open", {"filter", "absent"}, 1, "absent", nullptr},
        {"open", {"filter", lib() + "/signal/Cos1MHz.signal"}, 1, "GVRSignal", nullptr},
        {"open", {"table", "x"}, 2, nullptr, nullptr},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(' ').toStdString());
        const CliRun r = verb(c.verb, c.args);
        EXPECT_EQ(r.exitCode, c.status);
        EXPECT_FALSE(r.err.isEmpty());
        if (c.err) {
            EXPECT_TRUE(r.err.contains(c.err)) << r.err.toStdString();
        }
        if (c.unmade) {
            EXPECT_FALSE(QFileInfo::exists(lib() + '/' + c.unmade));
        }
    }
    EXPECT_FALSE(QFileInfo::exists(out));
    // Rates that disagree: the model's note, exit 1, nothing saved.
    const CliRun r = verb("project", QStringList{"--filter", "lp300fc25", "--sig1", "Cos1MHz", "--sig2",
                                                 "Cos35Fs300", "--json", "--save", "bad"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(json(r).value("note").toString(),
              QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]"));
    EXPECT_FALSE(QFileInfo::exists(lib() + "/projectOne/bad.orvana"));
}

TEST_F(DesignFilesVerbs, ExportWritesExactlyTheGivenFile)
{
    const QString out = temp.root() + "/lp.txt";
    ASSERT_EQ(verb("export", {"lp300fc25", out}).exitCode, 0);
    EXPECT_FALSE(QFileInfo::exists(out + ".csv"));
    // The integers of the saved record, comma-separated, without a final newline.
    QStringList fromRecord;
    for (const QJsonValue& v :
         json(verb("open", {"filter", "lp300fc25", "--json"})).value("integerCoefficients").toArray())
        fromRecord << QString::number(v.toInteger());
    EXPECT_EQ(fromRecord.size(), 51);
    EXPECT_EQ(clitest::readAll(out), fromRecord.join(u',').toUtf8());
}

TEST_F(DesignFilesVerbs, ExtensionOrFormatChoosesAndRefusalsWriteNothing)
{
    // A saved band pass (12-bit, 43 taps) and high pass (17-bit, integers needing 18 bits).
    const QString golden = QStringLiteral(ORVANA_TESTS_DIR "/project/golden/");
    ASSERT_TRUE(QDir(lib()).mkpath("filter") && QDir(temp.root()).mkpath("sub/dir"));
    ASSERT_TRUE(QFile::copy(golden + "bp_anti.filt", lib() + "/filter/bp.filt"));
    ASSERT_TRUE(QFile::copy(golden + "hp17.filt", lib() + "/filter/hp.filt"));
    const struct {
        QStringList args; // design and file under the temporary folder, then options
        int exitCode;
        const char* found; // in the file, or in stderr when refused
    } table[] = {
        // clang-format off
        {{"bp", "bp.h"}, 0, "static const int16_t bp_taps[BP_TAPS] = {\n    15, 0, -24,"},
        {{"bp", "bp2.h", "--format", "CMSIS", "--block-size", "64"}, 0, "44 + 64 - 1 = 107 q15_t"},
        {{"bp", "sub/dir/bp.VHD"}, 0, "package bp_pkg is"},
        {{"bp", "bp.txt"}, 0, ",-"},
        {{"bp", "bp.m", "--format", "json"}, 0, "\"bits\": 12"},
        {{"bp", "x.v", "--format", "fortran"}, 2, "fortran"},
        {{"bp", "x.v", "--format", "cmsis", "--block-size", "0"}, 2, "--block-size"},
        {{"hp", "x.v"}, 1, "need 18 bits, more than its 17-bit width"},
        {{"hp", "hp.py"}, 0, "need 18 bits, more than the 17-bit width: int holds them"},
        {{"bpNormFcp5Fcutp025", "x.coe"}, 1, "Double coefficients and no integers"},
        {{"bpNormFcp5Fcutp025", "d.h"}, 0, "static const double bpNormFcp5Fcutp025_taps["},
        // clang-format on
    };
    for (const auto& row : table) {
        QStringList args = row.args;
        const QString path = args[1] = temp.root() + u'/' + args[1];
        SCOPED_TRACE(args.join(u' ').toStdString());
        const CliRun r = verb("export", args);
        EXPECT_EQ(r.exitCode, row.exitCode) << r.err.toStdString();
        EXPECT_EQ(QFileInfo::exists(path), row.exitCode == 0);
        EXPECT_TRUE((row.exitCode ? r.err : clitest::readAll(path)).contains(row.found));
    }
    const CliRun help = verb("export", {"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains("--format") && help.out.contains("verilog  .v"));
}

} // namespace
