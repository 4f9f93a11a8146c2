// Start-up of the desktop program: the command line, the design library
// (folders made, samples copied in), the controllers and the launch windows.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "shell/design_library.h"

class QMessageBox;
class QWidget;

struct StartupOptions {
    QString library;                  // --library DIR; empty: ORVANA_LIBRARY, then the default folder
    bool quitAfterFirstPaint = false; // hidden: print the time to the first paint and quit
    QString screenshotPath;           // hidden: design a filter, save a picture of the screen, quit
    QString tourFolder;               // hidden: design in every window and save a picture of each, quit
};

// "0.1.0".
QString orvanaVersion();

// Reads the options of `arguments` (program name first). --help and
// --version print and end the process, as does an unknown option.
StartupOptions parseStartupOptions(const QStringList& arguments);

// Opens (without waiting) a warning that names each folder the library
// lacks and why; null when there is nothing to report.
QMessageBox* reportLibraryProblems(const QList<LibraryProblem>& problems, QWidget* parent = nullptr);

// Runs the program in the QApplication that exists; returns its exit code.
int runOrvana(const StartupOptions& options);
