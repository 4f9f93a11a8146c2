// The shared menus: every window carries File, Window and Help; New, Open,
// Save and Save As reach the active designer window only, never an
// inspector or the export window; the Window menu opens each window without
// wiping what it shows; Help opens the manual and the About box.
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

#include "designer_test_support.h"
#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "project/fir_export_window.h"
#include "project/project_window.h"
#include "seeded_library.h"
#include "shell/menu_controller.h"
#include "shell/orvana_shell.h"
#include "shell/startup.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "widgets/design_file_commands.h"
#include "widgets/number_field.h"

using designer_test::shownName;

namespace {

class MenuRouting : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(seeded.problems.isEmpty());
        shell = std::make_unique<OrvanaShell>(seeded.library, &settings);
        shell->menuController()->setUrlOpener([this](const QUrl& url) {
            opened << url;
            return true;
        });
    }
    void TearDown() override
    {
        shell.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static void activate(QWidget* window)
    {
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        window->activateWindow();
        QApplication::setActiveWindow(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    }
    void trigger(const char* name)
    {
        QAction* action = shell->menuController()->action(QLatin1String(name));
        ASSERT_NE(action, nullptr) << name;
        action->trigger();
    }
    // Which designers show their open sheet (closing them again).
    QStringList windowsWithOpenSheet()
    {
        QStringList found;
        const std::pair<QString, DesignFileCommands*> designers[] = {
            {"signal", shell->signalDesign()->fileCommands()},
            {"filter", shell->filterDesign()->fileCommands()},
            {"project", shell->project()->fileCommands()},
        };
        for (const auto& [name, commands] : designers) {
            if (commands->openSheet() && commands->openSheet()->isVisible()) {
                found << name;
                commands->openSheetCancel();
            }
        }
        return found;
    }

    SeededLibrary seeded;
    QTemporaryDir dir;
    QSettings settings{dir.filePath("prefs.ini"), QSettings::IniFormat};
    std::unique_ptr<OrvanaShell> shell;
    QList<QUrl> opened;
};

TEST_F(MenuRouting, EveryWindowCarriesTheThreeMenusAndEachKeyHasOneOwner)
{
    for (QMainWindow* window : shell->windows()) {
        QStringList titles;
        for (QAction* a : window->menuBar()->actions())
            titles << a->text().remove('&');
        EXPECT_EQ(titles, QStringList({"File", "Window", "Help"})) << window->objectName().toStdString();
        // The designers' own window shortcuts gave theirs up to the menus.
        for (QAction* a : window->actions())
            if (a->parent() != shell->menuController()) {
                EXPECT_NE(a->shortcut(), QKeySequence("Ctrl+S")) << window->objectName().toStdString();
            }
    }
    for (const auto& [name, keys] : {std::pair{"newAction", "Ctrl+N"},
                                     {"openAction", "Ctrl+O"},
                                     {"saveAction", "Ctrl+S"},
                                     {"saveAsAction", "Ctrl+Shift+S"}})
        EXPECT_EQ(shell->menuController()->action(name)->shortcut(), QKeySequence(keys)) << name;
}

TEST_F(MenuRouting, FileCommandsGoToTheActiveDesignerOnly)
{
    shell->filterDesign()->showGVRWinFilterDesign();
    shell->signalDesign()->showGVRWinSignalDesign();
    shell->project()->showGVRWinProjectOne();
    shell->filtInspector()->showGVRWinFiltInspector();
    shell->firExport()->showGVRWinFirExport();
    const struct {
        QWidget* front;
        QStringList sheets;
    } cases[] = {
        {shell->signalDesign(), {"signal"}},
        {shell->filterDesign(), {"filter"}},
        {shell->project(), {"project"}},
        {shell->filtInspector(), {}},
        {shell->firExport(), {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.front->objectName().toStdString());
        activate(c.front);
        for (const char* action : {"saveAction", "saveAsAction", "openAction"})
            trigger(action);
        EXPECT_EQ(windowsWithOpenSheet(), c.sheets);
        QTest::keyClick(c.front, Qt::Key_O, Qt::ControlModifier); // the key, as the menu
        EXPECT_EQ(windowsWithOpenSheet(), c.sheets);
    }
}

TEST_F(MenuRouting, NewOnTheProjectWindowClearsOnlyIt)
{
    shell->project()->showGVRWinProjectTwo();
    shell->project()->multirateLStepper()->setValue(5);
    shell->project()->fileCommands()->setModified(false);
    shell->filterDesign()->showGVRWinFilterDesign();
    shell->filterDesign()->thetaCutoffField()->setText("0.2");
    activate(shell->project());
    trigger("newAction");
    EXPECT_EQ(shell->project()->multirateLStepper()->value(), 1);
    EXPECT_EQ(shell->filterDesign()->thetaCutoffField()->text(), "0.2");
}

TEST_F(MenuRouting, WindowMenuOpensEveryWindowAndKeepsAnOpenProject)
{
    const std::pair<const char*, QWidget*> cases[] = {
        {"filterDesignerAction", shell->filterDesign()},   {"signalDesignerAction", shell->signalDesign()},
        {"filterInspectorAction", shell->filtInspector()}, {"signalInspectorAction", shell->sigInspector()},
        {"firExportAction", shell->firExport()},           {"sumAndFilterAction", shell->project()},
    };
    for (const auto& [action, window] : cases) {
        trigger(action);
        EXPECT_TRUE(window->isVisible()) << action;
    }
    shell->firExport()->hide();
    trigger("exportAction");
    EXPECT_TRUE(shell->firExport()->isVisible());

    shell->project()->fileCommands()->openDesignNamed("Cos10M3andCos35");
    ASSERT_EQ(shownName(*shell->project()), "Cos10M3andCos35");
    trigger("sumAndFilterAction");
    EXPECT_EQ(shownName(*shell->project()), "Cos10M3andCos35");
    EXPECT_FALSE(shell->project()->theTimeArray().empty());
    trigger("multirateAction");
    EXPECT_EQ(shell->project()->blockDiagramNumber(), 2);
}

TEST_F(MenuRouting, HelpOpensTheManualAndTheAboutBox)
{
    trigger("manualAction");
    ASSERT_EQ(opened.size(), 1);
    const QString page = opened.first().toLocalFile();
    EXPECT_TRUE(page.endsWith("OrvanaUserManual.html"));
    QFile file(page);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(html.contains("Orvana User Manual"));
    EXPECT_FALSE(html.contains("## ")); // converted, not raw Markdown
    // Every picture the page shows is written beside it.
    const QRegularExpression image(QStringLiteral("<img src=\"([^\"]+)\""));
    int pictures = 0;
    for (auto it = image.globalMatch(html); it.hasNext(); ++pictures)
        EXPECT_TRUE(QFileInfo(QFileInfo(page).dir().filePath(it.next().captured(1))).isFile());
    EXPECT_GE(pictures, 8);

    // Nothing else opens a web address; About names the versions in use.
    trigger("aboutAction");
    EXPECT_EQ(opened.size(), 1);
    QMessageBox* about = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == "aboutBox" && w->isVisible())
            about = qobject_cast<QMessageBox*>(w);
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->text().contains(orvanaVersion()));
    for (const QString& name : {"Qt " + QString(qVersion()), QString("FFTW 3."), QString("libplist 2.")})
        EXPECT_TRUE(about->informativeText().contains(name)) << name.toStdString();
    about->close();
}

} // namespace
