// Saves and exports that the disk refuses: orvana-cli runs in a child shell
// whose file-size limit (ulimit -f, SIGXFSZ ignored) makes every write past
// it fail with EFBIG, as a full disk fails a write. The old file must stay
// byte for byte, the message must give the reason, and the exit status is 1.
// Also: the refusals of non-finite numbers and of unreadable project designs.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "cli/cli_test_support.h"

namespace {

using clitest::CliRun;

// orvana-cli with `args` under a file-size limit of 0: every write fails.
CliRun runLimited(const QStringList& args, const QString& library)
{
    QStringList quoted;
    for (const QString& arg : args)
        quoted << QStringLiteral("'%1'").arg(arg);
    const QString script =
        QStringLiteral("trap '' XFSZ; ulimit -f 0; exec '%1' %2").arg(ORVANA_CLI_PATH, quoted.join(u' '));
    return clitest::runCli({QStringLiteral("-c"), script}, library, QStringLiteral("bash"));
}

const QStringList kFilterA{"filter", "--units", "norm", "--cutoff", "0.2", "--taps", "55", "--width", "16"};
const QStringList kFilterB{"filter", "--units", "norm", "--cutoff", "0.3", "--taps", "255", "--width", "12"};

} // namespace

TEST(FailingWrites, TheOldFileStaysAndTheReasonIsGiven)
{
    QTemporaryDir dir;
    const QString library = dir.filePath(QStringLiteral("library"));
    const QString csv = dir.filePath(QStringLiteral("FA.csv"));
    for (const QStringList& args : {kFilterA + QStringList{"--save", "FA"},
                                    QStringList{"project", "--filter", "FA", "--sig1", "Cos35Fs300", "--sig2",
                                                "Cos35Fs300", "--save", "PA"},
                                    QStringList{"export", "FA", csv}})
        ASSERT_EQ(clitest::runCli(args, library).exitCode, 0) << args.join(' ').toStdString();
    const struct {
        const char* what;
        QStringList args;
        QString path;
    } cases[] = {
        {"filter save", kFilterB + QStringList{"--save", "FA"}, library + "/filter/FA.filt"},
        {"project save",
         {"project", "--filter", "FA", "--sig1", "Cos1MHz", "--sig2", "Cos1MHz", "--save", "PA"},
         library + "/projectOne/PA.orvana"},
        {"coefficient export", {"export", "FA", csv}, csv},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const QByteArray before = clitest::readAll(c.path);
        ASSERT_GT(before.size(), 0);
        const CliRun r = runLimited(c.args, library);
        EXPECT_EQ(r.exitCode, 1) << r.err.toStdString();
        EXPECT_TRUE(r.err.contains("File too large")) << r.err.toStdString();
        EXPECT_FALSE(r.out.contains("Saved as"));
        EXPECT_EQ(clitest::readAll(c.path), before);
        const QStringList litter =
            QDir(QFileInfo(c.path).absolutePath())
                .entryList({QStringLiteral(".orvana-save-*")}, QDir::Files | QDir::Hidden);
        EXPECT_TRUE(litter.isEmpty()) << litter.join(u' ').toStdString();
    }
}

TEST(CliRefusals, NonFiniteNumbersAndUnreadableDesignsAreNamed)
{
    const struct {
        QStringList args;
        int exitCode;
        const char* message;
    } cases[] = {
        {{"filter", "--units", "khz", "--type", "bandpass", "--fs", "inf", "--cutoff", "10", "--center",
          "50"},
         1,
         "the sampling frequency (--fs) must be a finite number, not inf."},
        {{"filter", "--units", "khz", "--fs", "1e400", "--cutoff", "10"},
         1,
         "(--fs) must be a finite number, not 1e400."},
        {{"filter", "--units", "khz", "--fs", "300", "--cutoff", "-Infinity"},
         1,
         "the cutoff frequency (--cutoff)"},
        {{"signal", "--freq-units", "khz", "--fs", "1e308", "--function", "cosine-sum", "--p1", "1", "--p2",
          "10"},
         1,
         "the sampling frequency (--fs) 1e308 is too large"},
        {{"signal", "--fs", "300", "--p3", "Infinity"}, 1, "parameter 3 (--p3) must be a finite number"},
        {{"signal", "--fs", "300", "--p4", "abc"}, 2, "--p4 takes a number, not abc."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args.join(u' ').toStdString());
        const CliRun r = clitest::runCli(c.args);
        EXPECT_EQ(r.exitCode, c.exitCode);
        EXPECT_TRUE(r.err.contains(c.message)) << r.err.toStdString();
    }

    QTemporaryDir dir;
    const QString library = dir.filePath(QStringLiteral("library"));
    ASSERT_EQ(clitest::runCli(kFilterA + QStringList{"--save", "FA"}, library).exitCode, 0);
    clitest::writeFile(library + QStringLiteral("/signal/broken.signal"), "not a design");
    const CliRun r =
        clitest::runCli({"project", "--filter", "FA", "--sig1", "broken", "--sig2", "Cos1MHz"}, library);
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.out.contains("ERROR - Cannot read the design \"broken\""));
    EXPECT_TRUE(r.err.contains("broken.signal")) << r.err.toStdString();
    EXPECT_TRUE(r.err.contains("is not an Orvana signal design")) << r.err.toStdString();
}
