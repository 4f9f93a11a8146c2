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

// A library that cannot be made (a plain file in the way) is reported and the
// program still comes up; a fresh one is filled with the thirteen samples.
TEST(Startup, ComesUpWhetherOrNotTheLibraryCanBeMade)
{
    QTemporaryDir home;
    QFile blocker(home.filePath("blocker"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    for (const auto& [library, samples] :
         {std::pair{home.filePath("blocker/lib"), 0}, {home.filePath("fresh/lib"), 13}}) {
        const ProgramRun run =
            runProgram({"--launch", "-", "--library", library}, home, ORVANA_SELFTEST_PATH);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_TRUE(run.out.startsWith("launched")) << run.out.toStdString();
        int count = 0;
        for (const char* folder : {"filter", "signal", "projectOne", "projectTwo"})
            count += QDir(library + "/" + folder).entryList(QDir::Files).size();
        EXPECT_EQ(count, samples) << library.toStdString();
    }
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
