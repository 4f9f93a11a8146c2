// The shared menus: every window carries File, Window and Help; New, Open,
// Save and Save As reach the active designer window only (signal designer,
// filter designer, project window), never an inspector or the export window;
// the Window menu opens each window; Help opens the manual and the About box.
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

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
#include "widgets/open_sheet.h"
#include "widgets/save_sheet.h"

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
        window->raise();
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

    // Which designers show a save sheet now; each one found is closed again.
    QStringList windowsWithSaveSheet()
    {
        QStringList found;
        const std::pair<QString, DesignFileCommands*> designers[] = {
            {"signal", shell->signalDesign()->fileCommands()},
            {"filter", shell->filterDesign()->fileCommands()},
            {"project", shell->project()->fileCommands()},
        };
        for (const auto& [name, commands] : designers) {
            if (commands->saveSheet() && commands->saveSheet()->isVisible()) {
                found << name;
                commands->saveSheetCancel();
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

TEST_F(MenuRouting, FileCommandsGoToTheActiveDesigner)
{
    shell->filterDesign()->showGVRWinFilterDesign();
    shell->signalDesign()->showGVRWinSignalDesign();
    shell->project()->showGVRWinProjectOne();
    shell->filtInspector()->showGVRWinFiltInspector();

    activate(shell->signalDesign());
    trigger("saveAsAction");
    EXPECT_EQ(windowsWithSaveSheet(), QStringList{"signal"});

    activate(shell->filterDesign());
    trigger("saveAsAction");
    EXPECT_EQ(windowsWithSaveSheet(), QStringList{"filter"});

    activate(shell->project());
    trigger("saveAsAction");
    EXPECT_EQ(windowsWithSaveSheet(), QStringList{"project"});

    // An inspector or the export window in front: nothing happens.
    activate(shell->filtInspector());
    trigger("saveAction");
    trigger("saveAsAction");
    trigger("openAction");
    EXPECT_TRUE(windowsWithSaveSheet().isEmpty());
    EXPECT_FALSE(shell->filterDesign()->fileCommands()->openSheet() &&
                 shell->filterDesign()->fileCommands()->openSheet()->isVisible());
    shell->firExport()->showGVRWinFirExport();
    activate(shell->firExport());
    trigger("saveAsAction");
    EXPECT_TRUE(windowsWithSaveSheet().isEmpty());
}

TEST_F(MenuRouting, WindowMenuOpensEveryWindow)
{
    trigger("sumAndFilterAction");
    EXPECT_TRUE(shell->project()->isVisible());
    EXPECT_EQ(shell->project()->blockDiagramNumber(), 1);
    trigger("multirateAction");
    EXPECT_EQ(shell->project()->blockDiagramNumber(), 2);
    trigger("filterDesignerAction");
    EXPECT_TRUE(shell->filterDesign()->isVisible());
    trigger("signalDesignerAction");
    EXPECT_TRUE(shell->signalDesign()->isVisible());
    trigger("filterInspectorAction");
    EXPECT_TRUE(shell->filtInspector()->isVisible());
    trigger("signalInspectorAction");
    EXPECT_TRUE(shell->sigInspector()->isVisible());
    trigger("firExportAction");
    EXPECT_TRUE(shell->firExport()->isVisible());
    shell->firExport()->hide();
    trigger("exportAction");
    EXPECT_TRUE(shell->firExport()->isVisible());
}

TEST_F(MenuRouting, HelpOpensTheManualAndTheAboutBox)
{
    trigger("manualAction");
    ASSERT_EQ(opened.size(), 1);
    ASSERT_TRUE(opened.first().isLocalFile());
    const QString page = opened.first().toLocalFile();
    EXPECT_TRUE(page.endsWith("OrvanaUserManual.html"));
    QFile file(page);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll());
    EXPECT_TRUE(html.contains("Orvana User Manual"));
    EXPECT_TRUE(html.contains("Filter Designer"));
    EXPECT_FALSE(html.contains("## ")); // converted, not raw Markdown
    // Every picture the page shows is written beside it.
    const QRegularExpression image(QStringLiteral("<img src=\"([^\"]+)\""));
    int pictures = 0;
    for (auto it = image.globalMatch(html); it.hasNext(); ++pictures)
        EXPECT_TRUE(QFileInfo(QFileInfo(page).dir().filePath(it.next().captured(1))).isFile());
    EXPECT_GE(pictures, 8);

    // Nothing else opens a web address; About names the versions in use.
    EXPECT_EQ(shell->menuController()->action("orvanaWebsiteAction"), nullptr);
    trigger("aboutAction");
    EXPECT_EQ(opened.size(), 1);
    QMessageBox* about = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == "aboutBox" && w->isVisible())
            about = qobject_cast<QMessageBox*>(w);
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->text().contains(orvanaVersion()));
    for (const QString& name :
         {QStringLiteral("Qt ") + qVersion(), QStringLiteral("FFTW 3."), QStringLiteral("libplist 2.")})
        EXPECT_TRUE(about->informativeText().contains(name)) << name.toStdString();
    about->close();
}

} // namespace
