// The show-at-launch preferences: the panel's six checkboxes written to a
// fresh settings store, the two project choices excluding each other, and the
// windows the next launch opens, in their order.
#include <QCheckBox>
#include <QDialog>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "project/project_window.h"
#include "seeded_library.h"
#include "shell/orvana_shell.h"
#include "shell/pref_controller.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"

namespace {

using W = LaunchWindow;

class Preferences : public ::testing::Test {
protected:
    std::unique_ptr<GVRPrefController> makeController()
    {
        auto controller = std::make_unique<GVRPrefController>(&settings);
        for (W window : LaunchPreferences::kShowOrder)
            controller->setShowAction(window, [this, window] { shown.push_back(window); });
        return controller;
    }

    void click(GVRPrefController& controller, W window)
    {
        QCheckBox* box = controller.checkbox(window);
        ASSERT_NE(box, nullptr);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    }

    QTemporaryDir dir;
    QSettings settings{dir.filePath("prefs.ini"), QSettings::IniFormat};
    std::vector<W> shown;
};

TEST_F(Preferences, FirstLaunchOpensTheFilterDesignerAndBothInspectors)
{
    auto controller = makeController();
    const std::vector<W> expected{W::FilterDesign, W::FilterInspector, W::SignalInspector};
    EXPECT_EQ(controller->showLaunchWindows(), expected);
    EXPECT_EQ(shown, expected);
    EXPECT_TRUE(controller->filterDesignPref());
    EXPECT_FALSE(controller->signalDesignPref());
    EXPECT_FALSE(controller->projectOnePref());
    EXPECT_FALSE(controller->projectTwoPref());
    // Nothing is written until the user changes something.
    EXPECT_TRUE(settings.allKeys().isEmpty());
}

TEST_F(Preferences, PanelShowsTheStoreAndWritesAtOnce)
{
    auto controller = makeController();
    EXPECT_EQ(controller->prefControllerWindow(), nullptr);
    controller->setPrefControllerWin();
    QDialog* panel = controller->prefControllerWindow();
    ASSERT_NE(panel, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(panel));
    // Opening the panel brings the launch windows forward again.
    EXPECT_EQ(shown.size(), 3u);
    EXPECT_TRUE(controller->checkbox(W::FilterDesign)->isChecked());
    EXPECT_FALSE(controller->checkbox(W::SignalDesign)->isChecked());
    EXPECT_TRUE(controller->checkbox(W::FilterInspector)->isChecked());
    EXPECT_TRUE(controller->checkbox(W::SignalInspector)->isChecked());

    click(*controller, W::SignalDesign);
    click(*controller, W::FilterInspector);
    EXPECT_TRUE(settings.value("GVRWinSignalDesignKey").toBool());
    EXPECT_FALSE(settings.value("GVRWinFilterInspectorKey").toBool());

    // The next launch: signal designer after the filter designer, no filter inspector.
    shown.clear();
    auto next = makeController();
    const std::vector<W> expected{W::FilterDesign, W::SignalDesign, W::SignalInspector};
    EXPECT_EQ(next->showLaunchWindows(), expected);
    EXPECT_EQ(shown, expected);

    // A second Preferences… reuses the panel without showing the windows again.
    shown.clear();
    controller->setPrefControllerWin();
    EXPECT_EQ(controller->prefControllerWindow(), panel);
    EXPECT_TRUE(shown.empty());
}

TEST_F(Preferences, TheWholeProgramOpensWhatTheStoreSays)
{
    SeededLibrary seeded;
    ASSERT_TRUE(seeded.problems.isEmpty());
    {
        OrvanaShell shell(seeded.library, &settings);
        shell.showLaunchWindows();
        for (QMainWindow* w : shell.windows())
            EXPECT_EQ(w->isVisible(), w == static_cast<QMainWindow*>(shell.filterDesign()) ||
                                          w == static_cast<QMainWindow*>(shell.filtInspector()) ||
                                          w == static_cast<QMainWindow*>(shell.sigInspector()))
                << w->objectName().toStdString();
        // The user asks for the Multirate Model and no filter designer.
        shell.prefController()->setPrefControllerWin();
        click(*shell.prefController(), W::ProjectTwo);
        click(*shell.prefController(), W::FilterDesign);
    }
    OrvanaShell next(seeded.library, &settings);
    next.showLaunchWindows();
    EXPECT_FALSE(next.filterDesign()->isVisible());
    EXPECT_TRUE(next.project()->isVisible());
    EXPECT_EQ(next.project()->blockDiagramNumber(), 2);
    EXPECT_TRUE(next.filtInspector()->isVisible());
}

} // namespace
