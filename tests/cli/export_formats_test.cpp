// orvana-cli export in the other coefficient formats: the format chosen by
// --format or OUT's extension, and the refusals that write nothing.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "cli/cli_test_support.h"
#include "support/temp_library.h"

namespace {

using clitest::CliRun;

class ExportFormats : public ::testing::Test {
protected:
    CliRun verb(const QString& name, const QStringList& rest)
    {
        return clitest::runCli(QStringList{name, QStringLiteral("--library"), lib()} + rest, lib(), 120000);
    }
    QString lib() const { return temp.root() + QStringLiteral("/lib"); }
    QByteArray read(const QString& path) const
    {
        QFile f(temp.root() + u'/' + path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    TempLibrary temp;
};

} // namespace

TEST_F(ExportFormats, ExtensionOrFormatChoosesAndRefusalsWriteNothing)
{
    // The saved band pass (12-bit, 43 taps) and high pass (17-bit, integers needing 18 bits)
    // of the format tests.
    const QString golden = QStringLiteral(ORVANA_TESTS_DIR "/project/golden/");
    ASSERT_TRUE(QDir(lib()).mkpath("filter"));
    ASSERT_TRUE(QFile::copy(golden + "bp_anti.filt", lib() + "/filter/bp.filt"));
    ASSERT_TRUE(QFile::copy(golden + "hp17.filt", lib() + "/filter/hp.filt"));
    ASSERT_TRUE(QDir(temp.root()).mkpath("sub/dir"));
    const struct {
        QStringList args;
        int exitCode;
        const char* out;   // file under the temporary folder
        const char* found; // in the file, or in stderr when refused
    } table[] = {
        {{"bp", "bp.h"}, 0, "bp.h", "static const int16_t bp_taps[BP_TAPS] = {\n    15, 0, -24,"},
        {{"bp", "bp2.h", "--format", "CMSIS", "--block-size", "64"}, 0, "bp2.h", "44 + 64 - 1 = 107 q15_t"},
        {{"bp", "sub/dir/bp.VHD"}, 0, "sub/dir/bp.VHD", "package bp_pkg is"},
        {{"bp", "bp.txt"}, 0, "bp.txt", ",-"},
        {{"bp", "bp.m", "--format", "json"}, 0, "bp.m", "\"bits\": 12"},
        {{"bp", "x.v", "--format", "fortran"}, 2, "x.v", "fortran"},
        {{"bp", "x.v", "--format", "cmsis", "--block-size", "0"}, 2, "x.v", "--block-size"},
        {{"hp", "x.v"}, 1, "x.v", "need 18 bits, more than its 17-bit width"},
        {{"hp", "hp.py"}, 0, "hp.py", "need 18 bits, more than the 17-bit width: int holds them"},
        {{"bpNormFcp5Fcutp025", "x.coe"}, 1, "x.coe", "Double coefficients and no integers"},
        {{"bpNormFcp5Fcutp025", "d.h"}, 0, "d.h", "static const double bpNormFcp5Fcutp025_taps["},
    };
    for (const auto& row : table) {
        QStringList args = row.args;
        args[1] = temp.root() + u'/' + args[1];
        const CliRun r = verb("export", args);
        SCOPED_TRACE(args.join(u' ').toStdString());
        EXPECT_EQ(r.exitCode, row.exitCode) << r.err.toStdString();
        EXPECT_EQ(QFileInfo::exists(temp.root() + u'/' + row.out), row.exitCode == 0);
        EXPECT_TRUE((row.exitCode ? r.err : read(row.out)).contains(row.found));
    }
    const CliRun help = verb("export", {"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains("--format") && help.out.contains("verilog  .v"));
}
