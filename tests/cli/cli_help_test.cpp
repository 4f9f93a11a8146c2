// Help and version of orvana-cli as help2man and users read them: on
// standard output with status 0, each usage line naming its verb; tune-fft
// writes wisdom that FFTW takes back.
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "cli_test_support.h"

namespace {

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
