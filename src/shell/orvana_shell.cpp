// Making and wiring the desktop program's controllers.
#include "shell/orvana_shell.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "library/design_library.h"
#include "project/fir_export_window.h"
#include "project/project_window.h"
#include "shell/menu_controller.h"
#include "shell/pref_controller.h"
#include "shell/recent_files.h"
#include "shell/window_places.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "widgets/design_file_commands.h"
#include "widgets/window_parts.h"

OrvanaShell::OrvanaShell(DesignLibrary& library, QSettings* settings, QObject* parent)
    : QObject(parent), library_(library), filterDesign_(std::make_unique<GVRWinFilterDesign>(library)),
      signalDesign_(std::make_unique<GVRWinSignalDesign>(library)),
      filtInspector_(std::make_unique<GVRWinFiltInspector>(library)),
      sigInspector_(std::make_unique<GVRWinSigInspector>(library)),
      project_(std::make_unique<GVRWinProject>(library)),
      firExport_(std::make_unique<GVRWinFirExport>(library)),
      prefController_(std::make_unique<GVRPrefController>(settings)),
      recentFiles_(std::make_unique<RecentFiles>(settings)),
      windowPlaces_(std::make_unique<WindowPlaces>(settings))
{
    GVRPrefController& prefs = *prefController_;
    prefs.setShowAction(LaunchWindow::FilterDesign,
                        [w = filterDesign_.get()] { w->showGVRWinFilterDesign(); });
    prefs.setShowAction(LaunchWindow::SignalDesign,
                        [w = signalDesign_.get()] { w->showGVRWinSignalDesign(); });
    prefs.setShowAction(LaunchWindow::FilterInspector,
                        [w = filtInspector_.get()] { w->showGVRWinFiltInspector(); });
    prefs.setShowAction(LaunchWindow::SignalInspector,
                        [w = sigInspector_.get()] { w->showGVRWinSigInspector(); });
    prefs.setShowAction(LaunchWindow::ProjectOne, [w = project_.get()] { w->showGVRWinProjectOne(); });
    prefs.setShowAction(LaunchWindow::ProjectTwo, [w = project_.get()] { w->showGVRWinProjectTwo(); });

    GVRMenuController::Targets targets;
    targets.filterDesign = filterDesign_.get();
    targets.signalDesign = signalDesign_.get();
    targets.project = project_.get();
    targets.filtInspector = filtInspector_.get();
    targets.sigInspector = sigInspector_.get();
    targets.firExport = firExport_.get();
    targets.preferences = prefController_.get();
    targets.recentFiles = recentFiles_.get();
    targets.openPath = [this](const QString& path) { openDesignFile(path); };
    menuController_ = std::make_unique<GVRMenuController>(targets);
    for (QMainWindow* window : windows())
        menuController_->installMenus(window);

    // First places in a cascade, so that windows opened together do not hide
    // one another completely where nothing else places them.
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QPoint origin = screen ? screen->availableGeometry().topLeft() : QPoint();
    int step = 0;
    for (QMainWindow* window : windows()) {
        window->move(origin + QPoint(40 * step, 32 * step));
        keepOnScreen(*window);
        ++step;
        windowPlaces_->track(window);
    }

    // Opened and saved designs become recent; housekeeping in an open sheet
    // reaches every list of filters or signals at once.
    for (DesignFileCommands* commands :
         {filterDesign_->fileCommands(), signalDesign_->fileCommands(), project_->fileCommands()}) {
        connect(commands, &DesignFileCommands::designFileUsed, recentFiles_.get(), &RecentFiles::add);
        connect(commands, &DesignFileCommands::designFilesChanged, this, [this, commands] {
            if (commands->kind().extension == DesignLibrary::extension(DesignLibrary::Folder::Filter))
                library_.announceNewFilterFile();
            else if (commands->kind().extension == DesignLibrary::extension(DesignLibrary::Folder::Signal))
                library_.announceNewSignalFile();
        });
    }
}

// The menus go first: their actions point at the windows.
OrvanaShell::~OrvanaShell()
{
    windowPlaces_->saveVisible();
    menuController_.reset();
    prefController_.reset();
}

std::vector<LaunchWindow> OrvanaShell::showLaunchWindows()
{
    return prefController_->showLaunchWindows();
}

QList<QMainWindow*> OrvanaShell::windows() const
{
    return {filterDesign_.get(),  signalDesign_.get(), project_.get(),
            filtInspector_.get(), sigInspector_.get(), firExport_.get()};
}
