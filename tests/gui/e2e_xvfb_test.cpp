// End to end on a real X server: the built program starts under Xvfb over a
// fresh library and settings, opens a sample filter in the filter designer
// through its sheet, designs it, and saves a picture of the X screen, which
// must show the response curve.
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "charts/chart_colors.h"
#include "gui/designer_test_support.h"

namespace {

using designer_test::countPixels;

TEST(EndToEndXvfb, FilterDesignedOnARealScreen)
{
    const QString xvfbRun = QStandardPaths::findExecutable(QStringLiteral("xvfb-run"));
    if (xvfbRun.isEmpty())
        GTEST_SKIP() << "xvfb-run is not installed";

    QTemporaryDir home;
    ASSERT_TRUE(home.isValid());
    const QString library = home.filePath("library");
    const QString png = home.filePath("screen.png");

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "xcb");                   // the test runner itself is offscreen
    env.insert("XDG_CONFIG_HOME", home.filePath("config")); // fresh preferences
    env.insert("XDG_CACHE_HOME", home.filePath("cache"));
    env.remove("ORVANA_LIBRARY");
    QProcess program;
    program.setProcessEnvironment(env);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(xvfbRun, {"-a", "-s", "-screen 0 1600x1000x24", ORVANA_SELFTEST_PATH, "--screenshot", png,
                            "--library", library});
    ASSERT_TRUE(program.waitForStarted(10000));
    const bool finished = program.waitForFinished(120000);
    const QString output = QString::fromLocal8Bit(program.readAll());
    if (!finished)
        program.kill();
    ASSERT_TRUE(finished) << output.toStdString();
    ASSERT_EQ(program.exitStatus(), QProcess::NormalExit) << output.toStdString();
    ASSERT_EQ(program.exitCode(), 0) << output.toStdString();

    // The first launch filled the library with the samples.
    EXPECT_EQ(QDir(library + "/filter").entryList({"*.filt"}).size(), 6);
    EXPECT_EQ(QDir(library + "/signal").entryList({"*.signal"}).size(), 5);

    const QImage shot(png);
    ASSERT_FALSE(shot.isNull()) << output.toStdString();
    EXPECT_EQ(shot.width(), 1600);
    EXPECT_EQ(shot.height(), 1000);
    // Not blank: many distinct colours, the response curve among them.
    QSet<QRgb> colours;
    for (int y = 0; y < shot.height(); y += 7)
        for (int x = 0; x < shot.width(); x += 7)
            colours.insert(shot.pixel(x, y));
    EXPECT_GT(colours.size(), 20);
    EXPECT_GT(countPixels(shot, chartcolors::dBMagGraph()), 100);

    const QString artifacts = QStringLiteral(ORVANA_TEST_ARTIFACTS);
    QDir().mkpath(artifacts);
    QFile::remove(artifacts + "/e2e_xvfb_screen.png");
    QFile::copy(png, artifacts + "/e2e_xvfb_screen.png");
}

} // namespace
