// The shell as a desktop program: design files opened by path (the command
// line, Open Recent), the recent list, windows that remember their place, the
// open sheet's rename, duplicate and move to trash, which the inspectors
// follow at once; and the shared menus: every window carries File, Window and
// Help; New, Open, Save and Save As reach the active designer window only,
// never an inspector or the export window; the Window menu opens each window
// without wiping what it shows; Help opens the manual and the About box.
#include <QAction>
#include <QFileInfo>
#include <QInputDialog>
#include <QListWidget>
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
#include "shell/menu_controller.h"
#include "shell/orvana_shell.h"
#include "shell/recent_files.h"
#include "shell/startup.h"
#include "shell/window_places.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "widgets/design_file_commands.h"
#include "widgets/number_field.h"
#include "widgets/window_parts.h"

using designer_test::SeededLibrary;
using designer_test::shownName;

namespace {

class DesktopShell : public ::testing::Test {
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
    QStringList inspectorNames() const
    {
        QAbstractItemModel* model = shell->filtInspector()->table()->model();
        QStringList names;
        for (int row = 0; row < model->rowCount(); ++row)
            names << model->index(row, 0).data().toString();
        return names;
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
        for (const auto& [name, commands] : {std::pair{"signal", shell->signalDesign()->fileCommands()},
                                             {"filter", shell->filterDesign()->fileCommands()},
                                             {"project", shell->project()->fileCommands()}})
            if (commands->openSheet() && commands->openSheet()->isVisible()) {
                found << name;
                commands->openSheetCancel();
            }
        return found;
    }

    SeededLibrary seeded;
    QTemporaryDir dir;
    QSettings settings{dir.filePath("prefs.ini"), QSettings::IniFormat};
    std::unique_ptr<OrvanaShell> shell;
    QList<QUrl> opened;
};

TEST_F(DesktopShell, DesignFilesOpenByPathInTheirDesigners)
{
    const QString outside = dir.filePath("mine.filt");
    ASSERT_TRUE(QFile::copy(seeded.library.filterPath("bp50fc3fcntr15"), outside));
    const QString broken = dir.filePath("broken.signal");
    QFile(broken).open(QIODevice::WriteOnly);
    const QString project = seeded.library.projectPath(2, "multirateUser300to450");

    EXPECT_EQ(shell->openDesignFiles({outside, broken, dir.filePath("notes.txt"), project}), 2);
    // The outside filter was copied into the library once, and the inspector lists it.
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("mine")));
    EXPECT_EQ(shownName(*shell->filterDesign()), "mine");
    EXPECT_TRUE(inspectorNames().contains("mine"));
    EXPECT_EQ(shownName(*shell->project()), "multirateUser300to450");
    EXPECT_NE(shell->openFileAlert(), nullptr);
    EXPECT_TRUE(shell->openDesignFile(outside));
    EXPECT_FALSE(QFile::exists(seeded.library.filterPath("mine 2")));

    // Both are recent, newest first; Open Recent brings them back.
    const QStringList recent = shell->recentFiles()->paths();
    ASSERT_EQ(recent.size(), 2);
    EXPECT_TRUE(recent.first().endsWith("/filter/mine.filt"));
    EXPECT_TRUE(recent.at(1).endsWith("/projectTwo/multirateUser300to450.orvana"));
}

// The recent list keeps the last ten, once each, newest first; a window's
// kept place is clamped to the screen present, and reopens there.
TEST_F(DesktopShell, RecentFilesAndWindowPlaces)
{
    QSettings recentSettings{dir.filePath("recent.ini"), QSettings::IniFormat};
    RecentFiles recent(&recentSettings);
    for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 5})
        recent.add(QStringLiteral("/f%1").arg(i));
    EXPECT_EQ(RecentFiles(&recentSettings).paths(),
              QStringList({"/f5", "/f11", "/f10", "/f9", "/f8", "/f7", "/f6", "/f4", "/f3", "/f2"}));

    const QRect screen(0, 0, 1280, 800);
    const std::pair<QRect, QRect> places[] = {
        {{100, 100, 600, 400}, {100, 100, 600, 400}},  // fits: unchanged
        {{2000, 900, 600, 400}, {680, 400, 600, 400}}, // on a screen now gone
        {{-300, -50, 600, 400}, {0, 0, 600, 400}},     // partly off the left and top
        {{10, 10, 2000, 1200}, {0, 0, 1280, 800}},     // larger than the screen
    };
    for (const auto& [kept, expected] : places)
        EXPECT_EQ(clampToScreen(kept, screen), expected) << kept.x() << "," << kept.y();

    shell->filtInspector()->show();
    shell->filtInspector()->move(37, 23);
    shell->filtInspector()->resize(420, 310);
    shell.reset();
    shell = std::make_unique<OrvanaShell>(seeded.library, &settings);
    EXPECT_EQ(shell->filtInspector()->pos(), QPoint(37, 23));
    EXPECT_EQ(shell->filtInspector()->size(), QSize(420, 310));
}

TEST_F(DesktopShell, OpenSheetRenamesDuplicatesAndTrashes)
{
    GVRWinFilterDesign* window = shell->filterDesign();
    DesignFileCommands* commands = window->fileCommands();
    commands->openDesignNamed("lp300fc25");
    window->openMenuItem();
    GVROpenSheet* sheet = commands->openSheet();
    ASSERT_NE(sheet, nullptr);
    auto select = [sheet](const QString& name) {
        for (int row = 0; row < sheet->files().size(); ++row)
            if (sheet->files().at(row).fileName() == name + ".filt")
                sheet->selectRow(row);
    };

    // Rename: the sheet asks, the file moves, the title and inspector follow.
    select("lp300fc25");
    sheet->renameButton()->click();
    auto* ask = sheet->findChild<QInputDialog*>("renameDesignDialog");
    ASSERT_NE(ask, nullptr);
    ask->setTextValue("lowpass300");
    ask->accept();
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("lowpass300")));
    EXPECT_FALSE(QFile::exists(seeded.library.filterPath("lp300fc25")));
    EXPECT_EQ(shownName(*window), "lowpass300");
    EXPECT_TRUE(inspectorNames().contains("lowpass300"));
    EXPECT_FALSE(inspectorNames().contains("lp300fc25"));
    // A taken name is refused and nothing moves.
    EXPECT_FALSE(commands->renameDesign("lowpass300", "lp20fc2cheby4").isEmpty());
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("lowpass300")));

    sheet->duplicateButton()->click();
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("lowpass300 copy")));
    EXPECT_TRUE(inspectorNames().contains("lowpass300 copy"));

    // Move to Trash asks first; Cancel keeps the file.
    select("lowpass300");
    for (bool confirm : {false, true}) {
        sheet->deleteButton()->click();
        auto* box = qobject_cast<QMessageBox*>(commands->currentAlert());
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons())
            if ((box->buttonRole(button) == QMessageBox::DestructiveRole) == confirm)
                button->click();
        EXPECT_EQ(QFile::exists(seeded.library.filterPath("lowpass300")), !confirm);
    }
    EXPECT_FALSE(inspectorNames().contains("lowpass300"));
    EXPECT_EQ(shownName(*window), DesignFileCommands::untitledTitle());
}

TEST_F(DesktopShell, EveryWindowCarriesTheThreeMenusAndNoOwnSaveKey)
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
}

TEST_F(DesktopShell, FileCommandsGoToTheActiveDesignerOnly)
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

TEST_F(DesktopShell, WindowMenuOpensEveryWindowAndKeepsAnOpenProject)
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
    EXPECT_EQ(shell->project()->noteField()->text(), ""); // the sample designs without a rate error
    trigger("multirateAction");
    EXPECT_EQ(shell->project()->blockDiagramNumber(), 2);

    shell->filterDesign()->hide();
    trigger("compareFiltersAction"); // the designer, with its list of saved filters
    EXPECT_TRUE(shell->filterDesign()->isVisible());
    auto* list = shell->filterDesign()->findChild<QListWidget*>("compareList");
    ASSERT_TRUE(list);
    EXPECT_EQ(list->count(), 6);
}

TEST_F(DesktopShell, HelpOpensTheManualAndTheAboutBox)
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
    auto* about = designer_test::topModal<QMessageBox>();
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->objectName(), "aboutBox");
    EXPECT_TRUE(about->text().contains(orvanaVersion()));
    for (const QString& name : {"Qt " + QString(qVersion()), QString("FFTW 3."), QString("libplist 2.")})
        EXPECT_TRUE(about->informativeText().contains(name)) << name.toStdString();
    about->close();
}

} // namespace
