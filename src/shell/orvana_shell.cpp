// Making and wiring the desktop program's controllers.
#include "shell/orvana_shell.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>

#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "project/fir_export_window.h"
#include "project/project_window.h"
#include "shell/menu_controller.h"
#include "shell/pref_controller.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"

OrvanaShell::OrvanaShell(DesignLibrary& library, QSettings* settings, QObject* parent)
    : QObject(parent), filterDesign_(std::make_unique<GVRWinFilterDesign>(library)),
      signalDesign_(std::make_unique<GVRWinSignalDesign>(library)),
      filtInspector_(std::make_unique<GVRWinFiltInspector>(library)),
      sigInspector_(std::make_unique<GVRWinSigInspector>(library)),
      project_(std::make_unique<GVRWinProject>(library)),
      firExport_(std::make_unique<GVRWinFirExport>(library)),
      prefController_(std::make_unique<GVRPrefController>(settings))
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
        ++step;
    }
}

// The menus go first: their actions point at the windows.
OrvanaShell::~OrvanaShell()
{
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
