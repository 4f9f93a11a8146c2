// GVRMenuController: the one menu layout every window carries (File, Window,
// Help). New, Open, Save and Save As go to whichever designer window is the
// active window: the signal designer, the filter designer or the project
// window, asked in that order; with an inspector or the export window in
// front they do nothing. File ▸ Open Recent lists the recent designs. Help
// opens the built-in user manual in the user's browser and the About box.
#pragma once

#include <functional>

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

class GVRPrefController;
class GVRWinFiltInspector;
class GVRWinFilterDesign;
class GVRWinFirExport;
class GVRWinProject;
class GVRWinSigInspector;
class GVRWinSignalDesign;
class QAction;
class QMainWindow;
class QMenu;
class QMenuBar;
class RecentFiles;

class GVRMenuController : public QObject {
    Q_OBJECT
public:
    // The long-lived controllers the menus reach; none is owned.
    struct Targets {
        GVRWinFilterDesign* filterDesign = nullptr;
        GVRWinSignalDesign* signalDesign = nullptr;
        GVRWinProject* project = nullptr;
        GVRWinFiltInspector* filtInspector = nullptr;
        GVRWinSigInspector* sigInspector = nullptr;
        GVRWinFirExport* firExport = nullptr;
        GVRPrefController* preferences = nullptr;
        RecentFiles* recentFiles = nullptr;
        // Opens a design file by path in its designer (File ▸ Open Recent).
        std::function<void(const QString& path)> openPath;
    };

    explicit GVRMenuController(Targets targets, QObject* parent = nullptr);
    ~GVRMenuController() override;

    // Gives `window` a menu bar with the shared File, Window and Help menus.
    // A shortcut the window already has for one of the menu's commands is
    // handed over to the menu, so each key has one owner.
    void installMenus(QMainWindow* window);

    // What opens a web address or the manual page (the desktop's browser;
    // tests record instead). Returns whether it was opened.
    void setUrlOpener(std::function<bool(const QUrl&)> opener) { urlOpener_ = std::move(opener); }

    // The shared actions, by their object name ("newAction", "filterDesignerAction", …).
    QAction* action(const QString& name) const;

public slots:
    void newMenuItem();
    void openMenuItem();
    void saveMenuItem();
    void saveAsMenuItem();

    void viewManual();
    void showAbout();

private:
    void createActions();
    QAction* addAction(const char* name, const QString& text, std::function<void()> run);
    void openUrl(const QUrl& url);
    // Fills an Open Recent menu from the recent list, just before it shows.
    void fillRecentMenu(QMenu* menu);
    // The first of signal designer, filter designer and project window that is active.
    template <typename Command> void routeToKeyWindow(Command command);

    Targets targets_;
    std::function<bool(const QUrl&)> urlOpener_;
};
