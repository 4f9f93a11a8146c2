// The built desktop program run as a process over a fresh home: start-up
// with a library that cannot be made (reported, and the program still comes
// up) and the warning naming each missing folder; and on a real X server
// (Xvfb) the filter designed and drawn on screen, and `orvana FILE` as the
// desktop entry's %F starts it.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMessageBox>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

#include "charts/chart_colors.h"
#include "gui/designer_test_support.h"
#include "shell/startup.h"

namespace {

struct ProgramRun {
    int exitCode = -1; // -1: did not finish in time, -2: crashed
    QString out;       // standard output, then standard error
};

// `program` with fresh settings and cache under `home` and no ORVANA_LIBRARY.
ProgramRun runProgram(const QString& program, const QStringList& arguments, const QTemporaryDir& home,
                      const char* platform = "offscreen")
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", platform);
    env.insert("XDG_CONFIG_HOME", home.filePath("config"));
    env.insert("XDG_CACHE_HOME", home.filePath("cache"));
    env.remove("ORVANA_LIBRARY");
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(program, arguments);
    ProgramRun run;
    if (!process.waitForFinished(120000)) {
        process.kill();
        process.waitForFinished();
    } else {
        run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    }
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput() + process.readAllStandardError());
    return run;
}

// A fresh library is filled with the thirteen samples; one that cannot be
// made (a plain file in the way) is left empty and the program still comes up.
TEST(Startup, ComesUpWhetherOrNotTheLibraryCanBeMade)
{
    QTemporaryDir home;
    QFile blocker(home.filePath("blocker"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    for (const auto& [library, samples] :
         {std::pair{home.filePath("blocker/lib"), 0}, {home.filePath("fresh/lib"), 13}}) {
        const ProgramRun run =
            runProgram(ORVANA_SELFTEST_PATH, {"--launch", "-", "--library", library}, home);
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

// The first of `tools` that is not installed, or null.
const char* missing(std::initializer_list<const char*> tools)
{
    for (const char* tool : tools)
        if (QStandardPaths::findExecutable(tool).isEmpty())
            return tool;
    return nullptr;
}

const QStringList kScreen{"-a", "-s", "-screen 0 1600x1000x24"};

// The self-test program opens a sample filter through its sheet, designs it,
// and saves a picture of the X screen, which must show the response curve.
TEST(EndToEndXvfb, FilterDesignedOnARealScreen)
{
    if (const char* tool = missing({"xvfb-run"}))
        GTEST_SKIP() << tool << " is not installed";
    QTemporaryDir home;
    const QString library = home.filePath("library");
    const QString png = home.filePath("screen.png");
    const ProgramRun run = runProgram(
        "xvfb-run", kScreen + QStringList{ORVANA_SELFTEST_PATH, "--screenshot", png, "--library", library},
        home, "xcb"); // the test runner itself is offscreen
    ASSERT_EQ(run.exitCode, 0) << run.out.toStdString();
    // The first launch filled the library with the samples.
    EXPECT_EQ(QDir(library + "/filter").entryList({"*.filt"}).size(), 6);
    EXPECT_EQ(QDir(library + "/signal").entryList({"*.signal"}).size(), 5);

    const QImage shot(png);
    ASSERT_EQ(shot.size(), QSize(1600, 1000)) << run.out.toStdString();
    // Not blank: many distinct colours, the response curve among them.
    QSet<QRgb> colours;
    for (int y = 0; y < shot.height(); y += 7)
        for (int x = 0; x < shot.width(); x += 7)
            colours.insert(shot.pixel(x, y));
    EXPECT_GT(colours.size(), 20);
    EXPECT_GT(designer_test::countPixels(shot, chartcolors::dBMagGraph()), 100);
    const QString artifacts = QStringLiteral(ORVANA_TEST_ARTIFACTS);
    QDir().mkpath(artifacts);
    QFile::remove(artifacts + "/e2e_xvfb_screen.png");
    QFile::copy(png, artifacts + "/e2e_xvfb_screen.png");
}

// A design from outside the library, under a name no sample has: the program
// runs until its title shows up in the window tree, then stops.
TEST(OpenFileXvfb, FilterDesignerShowsTheFileGiven)
{
    if (const char* tool = missing({"xvfb-run", "xwininfo"}))
        GTEST_SKIP() << tool << " is not installed";
    QTemporaryDir home;
    const QString program = QStringLiteral(ORVANA_GUI_PATH);
    const QString design = home.filePath("course-bandpass.filt");
    ASSERT_TRUE(QFile::copy(QFileInfo(program).dir().filePath("../share/orvana/samples/bp50fc3fcntr15.filt"),
                            design));
    const QString script =
        QStringLiteral("\"$1\" --library \"$2\" \"$3\" >\"$4\" 2>&1 & pid=$!\n"
                       "for i in $(seq 1 120); do\n"
                       "  if xwininfo -root -tree | grep 'course-bandpass'; then kill $pid; exit 0; fi\n"
                       "  sleep 0.5\n"
                       "done\n"
                       "kill $pid; cat \"$4\"; exit 1\n");
    const ProgramRun run =
        runProgram("xvfb-run",
                   kScreen + QStringList{"sh", "-c", script, "sh", program, home.filePath("library"), design,
                                         home.filePath("orvana.log")},
                   home, "xcb");
    EXPECT_EQ(run.exitCode, 0) << run.out.toStdString();
    EXPECT_TRUE(QFile::exists(home.filePath("library/filter/course-bandpass.filt")));
}

} // namespace
