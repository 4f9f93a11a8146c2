// Command line and start-up sequence of the desktop program.
#include "shell/startup.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMainWindow>
#include <QMessageBox>

#include "filter/filter_design_window.h"
#include "library/design_library.h"
#include "library/library_location.h"
#include "shell/orvana_shell.h"
#include "shell/sample_designs.h"

QString orvanaVersion()
{
    return QStringLiteral(ORVANA_VERSION);
}

namespace {

// "~/.local/share/Orvana" rather than one user's home, which the man page would keep.
QString homeAsTilde(const QString& path)
{
    const QString home = QDir::homePath();
    if (home.size() > 1 && (path == home || path.startsWith(home + QLatin1Char('/'))))
        return QLatin1Char('~') + path.mid(home.size());
    return path;
}

} // namespace

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
            .arg(QLatin1String(kLibraryEnvironmentVariable), homeAsTilde(defaultLibraryRoot())),
        QStringLiteral("DIR"));
    parser.addOption(library);
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QCoreApplication::translate("Startup", "Design files to open (.filt, .signal, .orvana)."),
        QStringLiteral("[FILE...]"));

    parser.process(arguments);
    StartupOptions options;
    options.library = parser.value(library);
    options.files = parser.positionalArguments();
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

int runOrvana(const StartupOptions& options, const StartupHooks& hooks)
{
    DesignLibrary library(resolveLibraryRoot(options.library));
    const QList<LibraryProblem> problems =
        prepareLibrary(library, defaultSampleFolder(), StaleCleanUp::InBackground);

    OrvanaShell shell(library);
    if (hooks.beforeWindows)
        hooks.beforeWindows();
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
    if (hooks.reportLibraryProblems)
        reportLibraryProblems(problems, front);
    if (hooks.afterLaunch)
        hooks.afterLaunch(shell);
    return QApplication::exec();
}
