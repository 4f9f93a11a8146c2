// The shared menus and the routing of the file commands.
#include "shell/menu_controller.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "charts/chart_view.h"
#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "project/fir_export_window.h"
#include "project/project_window.h"
#include "shell/about_box.h"
#include "shell/pref_controller.h"
#include "shell/recent_files.h"
#include "shell/user_manual.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "widgets/design_file_commands.h"

namespace {

// The menus by action object name, in order; "" is a separator and the list
// ends at the first null. Naming the items keeps each menu whole whatever
// order the actions are made in.
constexpr const char* kRecentMenu = "openRecentMenu";
struct MenuLayout {
    const char* title;
    const char* items[12];
};
const MenuLayout kMenus[] = {
    {QT_TR_NOOP("&File"),
     {"newAction", "openAction", kRecentMenu, "saveAction", "saveAsAction", "", "exportAction",
      "exportChartAction", "", "preferencesAction", "", "quitAction"}},
    {QT_TR_NOOP("&Window"),
     {"filterDesignerAction", "compareFiltersAction", "signalDesignerAction", "", "sumAndFilterAction",
      "multirateAction", "", "filterInspectorAction", "signalInspectorAction", "firExportAction"}},
    {QT_TR_NOOP("&Help"), {"manualAction", "aboutAction"}},
};

} // namespace

GVRMenuController::GVRMenuController(Targets targets, QObject* parent)
    : QObject(parent), targets_(targets),
      urlOpener_([](const QUrl& url) { return QDesktopServices::openUrl(url); })
{
    createActions();
}

GVRMenuController::~GVRMenuController() = default;

QAction* GVRMenuController::addAction(const char* name, const QString& text, std::function<void()> run)
{
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcutContext(Qt::WindowShortcut);
    connect(action, &QAction::triggered, this, [run = std::move(run)] { run(); });
    return action;
}

void GVRMenuController::createActions()
{
    const Targets t = targets_;
    QAction* newAction = addAction("newAction", tr("&New"), [this] { newMenuItem(); });
    newAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    QAction* openAction = addAction("openAction", tr("&Open…"), [this] { openMenuItem(); });
    openAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    QAction* saveAction = addAction("saveAction", tr("&Save"), [this] { saveMenuItem(); });
    saveAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    QAction* saveAsAction = addAction("saveAsAction", tr("Save &As…"), [this] { saveAsMenuItem(); });
    saveAsAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    addAction("exportAction", tr("&Export Coefficients…"), [t] {
        if (t.firExport)
            t.firExport->showGVRWinFirExport();
    });
    // The chart in front: the focused chart of the active window, else its first visible one.
    addAction("exportChartAction", tr("Export C&hart…"), [] {
        if (GVRChartView* chart = GVRChartView::chartIn(QApplication::activeWindow()))
            chart->exportChartAs();
    });
    QAction* prefAction = addAction("preferencesAction", tr("&Preferences…"), [t] {
        if (t.preferences)
            t.preferences->setPrefControllerWin();
    });
    prefAction->setMenuRole(QAction::PreferencesRole);
    prefAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    // Each edited designer asks Save, Don't Save or Cancel before the program ends.
    QAction* quitAction = addAction("quitAction", tr("&Quit"), [t] {
        QList<QPointer<DesignFileCommands>> designers;
        if (t.filterDesign)
            designers.append(t.filterDesign->fileCommands());
        if (t.signalDesign)
            designers.append(t.signalDesign->fileCommands());
        if (t.project)
            designers.append(t.project->fileCommands());
        DesignFileCommands::quitAfterSaving(designers, [] { QCoreApplication::quit(); });
    });
    quitAction->setMenuRole(QAction::QuitRole);
    quitAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    addAction("filterDesignerAction", tr("Filter Designer"), [t] {
        if (t.filterDesign)
            t.filterDesign->showGVRWinFilterDesign();
    });
    // Up to three saved filters over the designer's magnitude chart.
    addAction("compareFiltersAction", tr("Compare Filters…"), [t] {
        if (t.filterDesign) {
            t.filterDesign->showGVRWinFilterDesign();
            t.filterDesign->pressCompareBut();
        }
    });
    addAction("signalDesignerAction", tr("Signal Designer"), [t] {
        if (t.signalDesign)
            t.signalDesign->showGVRWinSignalDesign();
    });
    addAction("sumAndFilterAction", tr("Sum && Filter Model"), [t] {
        if (t.project)
            t.project->showGVRWinProjectOne();
    });
    addAction("multirateAction", tr("Multirate Model"), [t] {
        if (t.project)
            t.project->showGVRWinProjectTwo();
    });
    addAction("filterInspectorAction", tr("Filter Inspector"), [t] {
        if (t.filtInspector)
            t.filtInspector->showGVRWinFiltInspector();
    });
    addAction("signalInspectorAction", tr("Signal Inspector"), [t] {
        if (t.sigInspector)
            t.sigInspector->showGVRWinSigInspector();
    });
    addAction("firExportAction", tr("FIR Coefficient Export"), [t] {
        if (t.firExport)
            t.firExport->showGVRWinFirExport();
    });
    addAction("manualAction", tr("Orvana User Manual"), [this] {
        viewManual();
    })->setShortcut(QKeySequence::HelpContents);
    addAction("aboutAction", tr("&About Orvana"), [this] { showAbout(); })->setMenuRole(QAction::AboutRole);
}

QAction* GVRMenuController::action(const QString& name) const
{
    return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

void GVRMenuController::installMenus(QMainWindow* window)
{
    if (!window)
        return;
    // Window-level shortcuts the window set up for itself would make the
    // keys ambiguous; the menu's commands reach the same window.
    QList<QKeySequence> taken;
    for (const QAction* a : findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly))
        taken += a->shortcuts();
    const QList<QAction*> own = window->actions();
    for (QAction* a : own) {
        if (a->parent() == this)
            continue;
        QList<QKeySequence> keep;
        for (const QKeySequence& key : a->shortcuts())
            if (!taken.contains(key))
                keep += key;
        if (keep.size() != a->shortcuts().size())
            a->setShortcuts(keep);
    }

    auto* bar = new QMenuBar(window);
    bar->setObjectName(QStringLiteral("orvanaMenuBar"));
    for (const MenuLayout& layout : kMenus) {
        QMenu* menu = bar->addMenu(tr(layout.title));
        for (const char* item : layout.items) {
            if (!item)
                break;
            if (!*item) {
                menu->addSeparator();
            } else if (qstrcmp(item, kRecentMenu) == 0) {
                QMenu* recent = menu->addMenu(tr("Open &Recent"));
                recent->setObjectName(QLatin1String(kRecentMenu));
                fillRecentMenu(recent);
                connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentMenu(recent); });
            } else {
                QAction* shared = action(QLatin1String(item));
                Q_ASSERT(shared); // every name in the layout is made by createActions()
                if (shared)
                    menu->addAction(shared);
            }
        }
    }
    window->setMenuBar(bar);
}

template <typename Command> void GVRMenuController::routeToKeyWindow(Command command)
{
    if (targets_.signalDesign && targets_.signalDesign->windowIsKeyWindow())
        command(*targets_.signalDesign);
    else if (targets_.filterDesign && targets_.filterDesign->windowIsKeyWindow())
        command(*targets_.filterDesign);
    else if (targets_.project && targets_.project->windowIsKeyWindow())
        command(*targets_.project);
}

void GVRMenuController::newMenuItem()
{
    routeToKeyWindow([](auto& window) { window.newMenuItem(); });
}

void GVRMenuController::openMenuItem()
{
    routeToKeyWindow([](auto& window) { window.openMenuItem(); });
}

void GVRMenuController::saveMenuItem()
{
    routeToKeyWindow([](auto& window) { window.saveMenuItem(); });
}

void GVRMenuController::saveAsMenuItem()
{
    routeToKeyWindow([](auto& window) { window.saveAsMenuItem(); });
}

void GVRMenuController::openUrl(const QUrl& url)
{
    if (urlOpener_ && urlOpener_(url))
        return;
    QMessageBox::warning(
        nullptr, tr("Orvana"),
        tr("Orvana could not open %1. Open it in your web browser yourself.").arg(url.toDisplayString()));
}

void GVRMenuController::viewManual()
{
    QString error;
    const QString page = writeUserManualHtml(userManualCacheFolder(), &error);
    if (page.isEmpty()) {
        QMessageBox::warning(nullptr, tr("Orvana User Manual"),
                             tr("The user manual could not be prepared: %1").arg(error));
        return;
    }
    openUrl(QUrl::fromLocalFile(page));
}

void GVRMenuController::showAbout()
{
    showAboutBox(QApplication::activeWindow());
}

void GVRMenuController::fillRecentMenu(QMenu* menu)
{
    menu->clear();
    const QStringList paths = targets_.recentFiles ? targets_.recentFiles->paths() : QStringList();
    for (const QString& path : paths) {
        // A file gone since stays listed, greyed, until the list moves on.
        const QFileInfo info(path);
        QAction* item = menu->addAction(info.fileName());
        item->setToolTip(path);
        item->setData(path);
        item->setEnabled(info.isFile());
        connect(item, &QAction::triggered, this, [this, path] {
            if (targets_.openPath)
                targets_.openPath(path);
        });
    }
    if (!paths.isEmpty())
        menu->addSeparator();
    QAction* clear = menu->addAction(tr("Clear Menu"));
    clear->setObjectName(QStringLiteral("clearRecentAction"));
    clear->setEnabled(!paths.isEmpty());
    connect(clear, &QAction::triggered, this, [this] {
        if (targets_.recentFiles)
            targets_.recentFiles->clear();
    });
}
