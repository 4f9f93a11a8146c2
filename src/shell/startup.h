// Start-up of the desktop program: the command line, the design library
// (folders made, samples copied in), the controllers and the launch windows.
#pragma once

#include <functional>

#include <QList>
#include <QString>
#include <QStringList>

#include "library/design_library.h"

class OrvanaShell;
class QMessageBox;
class QWidget;

struct StartupOptions {
    QString library;   // --library DIR; empty: ORVANA_LIBRARY, then the default folder
    QStringList files; // design files to open, as given (.filt, .signal, .orvana)
};

// Seams for programs built around the same start-up (the window tour of the
// tests, the first-paint benchmark); the shipped program passes none.
struct StartupHooks {
    std::function<void()> beforeWindows;           // the shell exists, no window is shown yet
    std::function<void(OrvanaShell&)> afterLaunch; // the launch windows are up
    bool reportLibraryProblems = true;
};

// "0.1.0".
QString orvanaVersion();

// Reads the options of `arguments` (program name first). --help and
// --version print to standard output and end the process with 0; an unknown
// option prints to standard error and ends it with 1. Needs only a
// QCoreApplication.
StartupOptions parseStartupOptions(const QStringList& arguments);

// Opens (without waiting) a warning that names each folder the library
// lacks and why; null when there is nothing to report.
QMessageBox* reportLibraryProblems(const QList<LibraryProblem>& problems, QWidget* parent = nullptr);

// Runs the program in the QApplication that exists; returns its exit code.
int runOrvana(const StartupOptions& options, const StartupHooks& hooks = {});
