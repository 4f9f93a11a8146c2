// Command line and start-up sequence of the desktop program.
#include "shell/startup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMessageBox>

#include "filter/filter_design_window.h"
#include "shell/design_library.h"
#include "shell/library_location.h"
#include "shell/orvana_shell.h"
#include "shell/sample_designs.h"
#include "shell/self_test.h"

QString orvanaVersion()
{
    return QStringLiteral(ORVANA_VERSION);
}

StartupOptions parseStartupOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::translate("Startup", "Orvana: a workbench for FIR filters, test signals and "
                                               "Sum & Filter and Multirate projects."));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption library(
        QStringLiteral("library"),
        QCoreApplication::translate("Startup", "Design library folder (default: the %1 environment variable, "
                                               "then %2).")
            .arg(QLatin1String(kLibraryEnvironmentVariable), defaultLibraryRoot()),
        QStringLiteral("DIR"));
    parser.addOption(library);

    // Options for automated runs; not shown by --help.
    QCommandLineOption firstPaint(QStringLiteral("quit-after-first-paint"));
    firstPaint.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption screenshot(QStringLiteral("self-test-screenshot"), QString(), QStringLiteral("PNG"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption tour(QStringLiteral("self-test-tour"), QString(), QStringLiteral("DIR"));
    tour.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(firstPaint);
    parser.addOption(screenshot);
    parser.addOption(tour);

    parser.process(arguments);
    StartupOptions options;
    options.library = parser.value(library);
    options.quitAfterFirstPaint = parser.isSet(firstPaint);
    options.screenshotPath = parser.value(screenshot);
    options.tourFolder = parser.value(tour);
    return options;
}

QMessageBox* reportLibraryProblems(const QList<LibraryProblem>& problems, QWidget* parent)
{
    if (problems.isEmpty())
        return nullptr;
    QStringList lines;
    for (const LibraryProblem& problem : problems)
        lines << (problem.path.isEmpty() ? problem.message
                                         : QStringLiteral("%1\n    %2").arg(problem.path, problem.message));
    auto* box = new QMessageBox(QMessageBox::Warning, QCoreApplication::translate("Startup", "Orvana"),
                                QCoreApplication::translate("Startup", "The design library is not complete. "
                                                                       "Designs may fail to save or open."),
                                QMessageBox::Ok, parent);
    box->setObjectName(QStringLiteral("libraryProblemAlert"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(lines.join(QLatin1Char('\n')));
    box->open();
    return box;
}

int runOrvana(const StartupOptions& options)
{
    QElapsedTimer sinceStart;
    sinceStart.start();

    DesignLibrary& library = DesignLibrary::shared();
    library.setRoot(resolveLibraryRoot(options.library));
    const QList<LibraryProblem> problems = prepareLibrary(library);

    OrvanaShell shell(library);
    if (options.quitAfterFirstPaint)
        SelfTest::quitAfterFirstPaint(sinceStart);
    shell.showLaunchWindows();
    // With every preference off there would be no window to reach the
    // menus from, and nothing to quit: the filter designer stands in.
    QMainWindow* front = nullptr;
    for (QMainWindow* window : shell.windows())
        if (!front && window->isVisible())
            front = window;
    if (!front) {
        shell.filterDesign()->showGVRWinFilterDesign();
        front = shell.filterDesign();
    }
    if (!options.quitAfterFirstPaint)
        reportLibraryProblems(problems, front);

    if (!options.screenshotPath.isEmpty())
        SelfTest::runScreenshotScript(shell, options.screenshotPath);
    if (!options.tourFolder.isEmpty())
        SelfTest::runWindowTour(shell, options.tourFolder);
    return QApplication::exec();
}
