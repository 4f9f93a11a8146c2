// OrvanaShell: the long-lived controllers of the desktop program, one of
// each: the filter and signal designers, the two inspectors, the project
// window, the export window, the preferences and the menus. Every window
// gets the shared menu bar and remembers its place; the preferences open the
// launch windows; design files named by path open in their designer.
#pragma once

#include <memory>
#include <vector>

#include <QList>
#include <QObject>
#include <QPointer>

#include "shell/launch_preferences.h"

class DesignLibrary;
class GVRMenuController;
class GVRPrefController;
class GVRWinFiltInspector;
class GVRWinFilterDesign;
class GVRWinFirExport;
class GVRWinProject;
class GVRWinSigInspector;
class GVRWinSignalDesign;
class QMainWindow;
class QSettings;
class RecentFiles;
class WindowPlaces;

class OrvanaShell : public QObject {
    Q_OBJECT
public:
    // `library` and `settings` (null: the application's own store) must
    // outlive the shell. No window is shown yet.
    explicit OrvanaShell(DesignLibrary& library, QSettings* settings = nullptr, QObject* parent = nullptr);
    ~OrvanaShell() override;

    // Shows the windows the show-at-launch preferences ask for, in launch order.
    std::vector<LaunchWindow> showLaunchWindows();

    GVRWinFilterDesign* filterDesign() const { return filterDesign_.get(); }
    GVRWinSignalDesign* signalDesign() const { return signalDesign_.get(); }
    GVRWinFiltInspector* filtInspector() const { return filtInspector_.get(); }
    GVRWinSigInspector* sigInspector() const { return sigInspector_.get(); }
    GVRWinProject* project() const { return project_.get(); }
    GVRWinFirExport* firExport() const { return firExport_.get(); }
    GVRPrefController* prefController() const { return prefController_.get(); }
    GVRMenuController* menuController() const { return menuController_.get(); }

    // The six windows, in menu order (the preferences panel is not one of them).
    QList<QMainWindow*> windows() const;

    RecentFiles* recentFiles() const { return recentFiles_.get(); }

    // Opens the design file at `path` in its designer (a project in the
    // project window with its block diagram); a file outside the library is
    // first copied into it. A file that cannot be read gives an alert naming
    // it and the reason. Returns whether the design was opened.
    bool openDesignFile(const QString& path);
    // Each in turn; one that fails does not stop the others. Returns how many opened.
    int openDesignFiles(const QStringList& paths);
    // The alert of the last file that could not be opened, while it is up.
    QWidget* openFileAlert() const;

private:
    DesignLibrary& library_;
    std::unique_ptr<GVRWinFilterDesign> filterDesign_;
    std::unique_ptr<GVRWinSignalDesign> signalDesign_;
    std::unique_ptr<GVRWinFiltInspector> filtInspector_;
    std::unique_ptr<GVRWinSigInspector> sigInspector_;
    std::unique_ptr<GVRWinProject> project_;
    std::unique_ptr<GVRWinFirExport> firExport_;
    std::unique_ptr<GVRPrefController> prefController_;
    std::unique_ptr<GVRMenuController> menuController_;
    std::unique_ptr<RecentFiles> recentFiles_;
    std::unique_ptr<WindowPlaces> windowPlaces_;
    QList<QPointer<QWidget>> openFileAlerts_;
};
