// orvana-cli with a library: saving from the filter and signal verbs, the
// project, export and open verbs, and their refusals, run as a program.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include "cli/cli_test_support.h"
#include "support/temp_library.h"

namespace {

using clitest::CliRun;
using clitest::json;

class DesignFilesVerbs : public ::testing::Test {
protected:
    // Never the user's own library, whatever the arguments say.
    CliRun cli(const QStringList& args)
    {
        return clitest::runCli(args, temp.root() + QStringLiteral("/fromEnvironment"), 120000);
    }
    // The verb followed by --library and the rest.
    CliRun verb(const QString& name, const QStringList& rest)
    {
        return cli(QStringList{name, QStringLiteral("--library"), lib()} + rest);
    }
    QString lib() const { return temp.root() + QStringLiteral("/lib"); }

    TempLibrary temp;
};

} // namespace

TEST_F(DesignFilesVerbs, FilterAndSignalSaveIntoTheLibrary)
{
    CliRun r = verb("filter", {"--units", "khz", "--fs", "48", "--cutoff", "6", "--taps", "25", "--width",
                               "8", "--save", "mine"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_TRUE(QFileInfo::exists(lib() + "/filter/mine.filt"));
    // The library was made and seeded.
    EXPECT_TRUE(QFileInfo::exists(lib() + "/filter/lp300fc25.filt"));
    EXPECT_TRUE(QFileInfo::exists(lib() + "/projectTwo/multirateUser300to450.orvana"));

    r = verb("open", {"filter", "mine", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    QJsonObject o = json(r);
    EXPECT_EQ(o.keys().size(), 19);
    EXPECT_TRUE(o.value("filterName").isNull());
    EXPECT_DOUBLE_EQ(o.value("dfThetaCutoffFreqNormalized").toDouble(), 0.25);
    EXPECT_EQ(o.value("filterWidth").toInt(), 13);
    EXPECT_EQ(o.value("integerCoefficients").toArray().size(), 25);

    r = verb("signal", {"--freq-units", "khz", "--volt-units", "mv", "--fs", "300", "--function", "cosine",
                        "--p1", "500", "--p2", "35", "--save", "sig", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    json(r); // stdout stays one JSON object with --save
    r = verb("open", {"signal", "sig.signal"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_TRUE(r.out.contains("samplingFreq: 300\n"));
    EXPECT_TRUE(r.out.contains("voltUnits: 1\n"));
    EXPECT_TRUE(r.out.contains("parm1: 500\n"));
}

TEST_F(DesignFilesVerbs, SavesAreRefusedLikeTheModelRefusesThem)
{
    // A refused design cannot be saved.
    CliRun r = verb("filter", {"--units", "norm", "--cutoff", "2", "--save", "bad"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.contains("not saved")) << r.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(lib() + "/filter/bad.filt"));
    // Names must stay inside their folder.
    r = verb("signal", {"--fs", "20", "--p1", "1", "--p2", "1", "--save", "../out"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_FALSE(QFileInfo::exists(lib() + "/out.signal"));
    r = verb("signal", {"--fs", "20", "--p1", "1", "--p2", "1", "--save", ""});
    EXPECT_EQ(r.exitCode, 1);
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
    EXPECT_DOUBLE_EQ(time.at(0).toDouble(), 300.0);
    EXPECT_DOUBLE_EQ(time.at(8).toDouble(), 450.0);
    ASSERT_TRUE(QFileInfo::exists(lib() + "/projectTwo/mr.orvana"));

    r = verb("open", {"project", "mr", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject p = json(r);
    EXPECT_EQ(p.value("multirateL").toInt(), 3);
    EXPECT_EQ(p.value("multirateM").toInt(), 2);
    EXPECT_EQ(p.value("signalOneName").toString(), QStringLiteral("Cos35Fs300"));
}

TEST_F(DesignFilesVerbs, ProjectRefusals)
{
    // Rates that disagree: the model's note, exit 1, nothing saved.
    CliRun r = verb("project", {"--filter", "lp300fc25", "--sig1", "Cos1MHz", "--sig2", "Cos35Fs300",
                                "--json", "--save", "bad"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(json(r).value("note").toString(),
              QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]"));
    EXPECT_FALSE(QFileInfo::exists(lib() + "/projectOne/bad.orvana"));
    // A design that is not in the library.
    r = verb("project", {"--filter", "lp300fc25", "--sig1", "nothing", "--sig2", "Cos35Fs300"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.out.contains("nothing"));
    // Out of range choices are a usage error.
    r = verb("project",
             {"--filter", "lp300fc25", "--sig1", "Cos35Fs300", "--sig2", "Cos35Fs300", "--L", "13"});
    EXPECT_EQ(r.exitCode, 2);
    r = verb("project", {"--sig1", "Cos35Fs300", "--sig2", "Cos35Fs300"});
    EXPECT_EQ(r.exitCode, 2);
}

TEST_F(DesignFilesVerbs, ExportWritesExactlyTheGivenFile)
{
    CliRun r = verb("filter",
                    {"--units", "norm", "--cutoff", "0.2", "--taps", "25", "--width", "8", "--save", "f8"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QString out = temp.root() + "/f8.txt";
    r = verb("export", {"f8", out});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    QFile file(out);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_EQ(text.count(','), 24);
    EXPECT_FALSE(text.endsWith('\n'));
    EXPECT_FALSE(QFileInfo::exists(out + ".csv"));

    // The same integers as the saved record.
    r = verb("open", {"filter", "f8", "--json"});
    QStringList fromRecord;
    for (const QJsonValue& v : json(r).value("integerCoefficients").toArray())
        fromRecord << QString::number(v.toInteger());
    EXPECT_EQ(QString::fromUtf8(text), fromRecord.join(u','));
}

TEST_F(DesignFilesVerbs, ExportRefusals)
{
    const QString out = temp.root() + "/never.csv";
    // The double-width sample.
    CliRun r = verb("export", {"bpNormFcp5Fcutp025", out});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, QByteArray("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)\n"));
    r = verb("export", {"noSuchFilter", out});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.contains("noSuchFilter"));
    r = verb("export", {"lp300fc25"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_FALSE(QFileInfo::exists(out));
}

TEST_F(DesignFilesVerbs, OpenRefusesMissingAndCorruptFiles)
{
    CliRun r = verb("open", {"signal", "Cos1MHz"}); // seeds the library
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    QFile bad(lib() + "/filter/corrupt.filt");
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write("bplist00 this is not an archive");
    bad.close();
    r = verb("open", {"filter", "corrupt"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_FALSE(r.err.isEmpty());
    EXPECT_TRUE(r.out.isEmpty());
    r = verb("open", {"filter", "absent"});
    EXPECT_EQ(r.exitCode, 1);
    // A signal file is not a filter.
    r = verb("open", {"filter", lib() + "/signal/Cos1MHz.signal"});
    EXPECT_EQ(r.exitCode, 1);
    r = verb("open", {"table", "x"});
    EXPECT_EQ(r.exitCode, 2);
}

TEST_F(DesignFilesVerbs, LibraryFromTheEnvironmentWithoutTheOption)
{
    const CliRun r = cli({"open", "project", "Cos10M3andCos35", "--json"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(json(r).value("filterName").toString(), QStringLiteral("lp300fc25"));
    EXPECT_TRUE(QFileInfo::exists(temp.root() + "/fromEnvironment/projectOne/Cos10M3andCos35.orvana"));
}
