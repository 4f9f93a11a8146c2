// Start-up of the built program: --version and --help, a library that cannot
// be made (reported, and the program still comes up), and the warning that
// names each missing folder with its reason.
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include "shell/startup.h"

namespace {

struct ProgramRun {
    int exitCode = -1;
    QString out;
};

ProgramRun runProgram(const QStringList& arguments, const QTemporaryDir& home,
                      const QString& program = ORVANA_GUI_PATH)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("XDG_CONFIG_HOME", home.filePath("config"));
    env.insert("XDG_CACHE_HOME", home.filePath("cache"));
    env.remove("ORVANA_LIBRARY");
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    ProgramRun run;
    if (!process.waitForFinished(60000)) {
        process.kill();
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    return run;
}

TEST(Startup, VersionAndHelp)
{
    QTemporaryDir home;
    const ProgramRun version = runProgram({"--version"}, home);
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_TRUE(version.out.contains("Orvana " + orvanaVersion())) << version.out.toStdString();

    const ProgramRun help = runProgram({"--help"}, home);
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_TRUE(help.out.contains("--library <DIR>")) << help.out.toStdString();
    EXPECT_TRUE(help.out.contains("ORVANA_LIBRARY"));
}

TEST(Startup, ComesUpOverALibraryThatCannotBeMade)
{
    QTemporaryDir home;
    // A plain file where the library's parent folder should be.
    const QString blocker = home.filePath("blocker");
    QFile file(blocker);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const ProgramRun run =
        runProgram({"--launch", "-", "--library", blocker + "/lib"}, home, ORVANA_SELFTEST_PATH);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.out.startsWith("launched")) << run.out.toStdString();
}

TEST(Startup, FirstLaunchFillsTheLibrary)
{
    QTemporaryDir home;
    const QString library = home.filePath("fresh/library");
    const ProgramRun run = runProgram({"--launch", "-", "--library", library}, home, ORVANA_SELFTEST_PATH);
    ASSERT_EQ(run.exitCode, 0) << run.out.toStdString();
    int count = 0;
    for (const char* folder : {"filter", "signal", "projectOne", "projectTwo"})
        count += QDir(library + "/" + folder).entryList(QDir::Files).size();
    EXPECT_EQ(count, 13);
}

TEST(Startup, ProblemWarningNamesFolderAndReason)
{
    EXPECT_EQ(reportLibraryProblems({}), nullptr);
    QWidget window;
    QMessageBox* box = reportLibraryProblems(
        {{"/somewhere/Orvana/signal", "A file named \"signal\" is in the way of the folder."}}, &window);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_TRUE(box->informativeText().contains("/somewhere/Orvana/signal"));
    EXPECT_TRUE(box->informativeText().contains("in the way"));
    EXPECT_EQ(box->windowModality(), Qt::WindowModal);
    box->close();
}

} // namespace
