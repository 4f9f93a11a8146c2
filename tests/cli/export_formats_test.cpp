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
    // A 12-bit band pass, and a high pass whose 17-bit integers need 18 bits.
    ASSERT_EQ(verb("filter", {"--units", "norm", "--type", "bandpass", "--center", "0.4", "--cutoff", "0.1",
                              "--taps", "43", "--width", "12", "--save", "bp"})
                  .exitCode,
              0);
    ASSERT_EQ(verb("filter", {"--units", "norm", "--type", "highpass", "--cutoff", "0.5", "--taps", "41",
                              "--width", "17", "--window", "0", "--save", "hp"})
                  .exitCode,
              0);
    ASSERT_TRUE(QDir(temp.root()).mkpath("sub/dir"));
    const struct {
        QStringList args;
        int exitCode;
        const char* out;   // file under the temporary folder
        const char* found; // in the file, or in stderr when refused
    } table[] = {
        {{"bp", "bp.h"}, 0, "bp.h", "static const int16_t bp_taps[BP_TAPS]"},
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
