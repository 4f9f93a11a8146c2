// `orvana FILE` on a real X server (Xvfb), as the desktop entry's %F starts
// it: the Filter Designer comes up with the design's name in its title.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(OpenFileXvfb, FilterDesignerShowsTheFileGiven)
{
    const QString xvfbRun = QStandardPaths::findExecutable(QStringLiteral("xvfb-run"));
    const QString xwininfo = QStandardPaths::findExecutable(QStringLiteral("xwininfo"));
    if (xvfbRun.isEmpty() || xwininfo.isEmpty())
        GTEST_SKIP() << "xvfb-run or xwininfo is not installed";

    QTemporaryDir home;
    ASSERT_TRUE(home.isValid());
    // A design from outside the library, under a name no sample has.
    const QString program = QStringLiteral(ORVANA_GUI_PATH);
    const QString samples = QFileInfo(program).dir().filePath("../share/orvana/samples");
    const QString design = home.filePath("course-bandpass.filt");
    ASSERT_TRUE(QFile::copy(samples + "/bp50fc3fcntr15.filt", design));

    // The program runs until its title shows up in the window tree, then stops.
    const QString script =
        QStringLiteral("\"$1\" --library \"$2\" \"$3\" >\"$4\" 2>&1 & pid=$!\n"
                       "for i in $(seq 1 120); do\n"
                       "  if xwininfo -root -tree | grep -q 'course-bandpass'; then xwininfo -root -tree | "
                       "grep 'course-bandpass'; kill $pid; exit 0; fi\n"
                       "  sleep 0.5\n"
                       "done\n"
                       "kill $pid; cat \"$4\"; exit 1\n");
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "xcb");
    env.insert("XDG_CONFIG_HOME", home.filePath("config"));
    env.insert("XDG_CACHE_HOME", home.filePath("cache"));
    env.remove("ORVANA_LIBRARY");
    QProcess run;
    run.setProcessEnvironment(env);
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(xvfbRun, {"-a", "-s", "-screen 0 1600x1000x24", "sh", "-c", script, "sh", program,
                        home.filePath("library"), design, home.filePath("orvana.log")});
    ASSERT_TRUE(run.waitForStarted(10000));
    const bool finished = run.waitForFinished(120000);
    const QString output = QString::fromLocal8Bit(run.readAll());
    if (!finished)
        run.kill();
    ASSERT_TRUE(finished) << output.toStdString();
    EXPECT_EQ(run.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(QFile::exists(home.filePath("library/filter/course-bandpass.filt")));
}
