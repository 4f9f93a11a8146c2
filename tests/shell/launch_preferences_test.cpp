// Show-at-launch preferences: defaults, persistence, the project exclusion.
#include "shell/launch_preferences.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using W = LaunchWindow;

class LaunchPreferencesTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    QString path = dir.path() + "/prefs.ini";
    // One launch's view of the store.
    QSettings store{path, QSettings::IniFormat};
    LaunchPreferences prefs{store};
};

TEST_F(LaunchPreferencesTest, FirstLaunchDefaults)
{
    EXPECT_TRUE(prefs.filterDesignPref());
    EXPECT_FALSE(prefs.signalDesignPref());
    EXPECT_FALSE(prefs.projectOnePref());
    EXPECT_FALSE(prefs.projectTwoPref());
    EXPECT_TRUE(prefs.filterInspectorPref());
    EXPECT_TRUE(prefs.signalInspectorPref());
    EXPECT_EQ(prefs.windowsToShow(), (std::vector<W>{W::FilterDesign, W::FilterInspector, W::SignalInspector}));
    // Defaults answer for unset keys but are never written.
    EXPECT_TRUE(store.allKeys().isEmpty());
}

TEST_F(LaunchPreferencesTest, ChoicesPersistToTheNextLaunch)
{
    prefs.setSignalDesignPref(true);
    prefs.setFilterDesignPref(false);
    prefs.setFilterDesignPref(true);
    prefs.setSignalInspectorPref(false);

    QSettings nextStore(path, QSettings::IniFormat);
    const LaunchPreferences next(nextStore);
    EXPECT_TRUE(next.signalDesignPref());
    EXPECT_FALSE(next.signalInspectorPref());
    // The signal design window opens right after the filter design window.
    EXPECT_EQ(next.windowsToShow(), (std::vector<W>{W::FilterDesign, W::SignalDesign, W::FilterInspector}));
}

TEST_F(LaunchPreferencesTest, ProjectWindowsExcludeEachOther)
{
    prefs.setProjectTwoPref(true);
    prefs.setProjectOnePref(true);
    EXPECT_TRUE(prefs.projectOnePref());
    EXPECT_FALSE(prefs.projectTwoPref());
    // Both keys changed in the store.
    EXPECT_EQ(store.value("GVRWinProjectOneKey").toBool(), true);
    EXPECT_TRUE(store.contains("GVRWinProjectTwoKey"));
    EXPECT_EQ(store.value("GVRWinProjectTwoKey").toBool(), false);

    prefs.setProjectTwoPref(true);
    EXPECT_FALSE(prefs.projectOnePref());
    EXPECT_TRUE(prefs.projectTwoPref());

    // Turning one off leaves the other as it is.
    prefs.setProjectOnePref(false);
    EXPECT_TRUE(prefs.projectTwoPref());
    prefs.setProjectTwoPref(false);
    EXPECT_FALSE(prefs.projectOnePref());
    EXPECT_FALSE(prefs.projectTwoPref());
    EXPECT_EQ(prefs.windowsToShow(), (std::vector<W>{W::FilterDesign, W::FilterInspector, W::SignalInspector}));
}

TEST_F(LaunchPreferencesTest, ProjectWindowsComeLastInShowOrder)
{
    prefs.setProjectOnePref(true);
    prefs.setSignalDesignPref(true);
    EXPECT_EQ(prefs.windowsToShow(), (std::vector<W>{W::FilterDesign, W::SignalDesign, W::FilterInspector,
                                                     W::SignalInspector, W::ProjectOne}));
}

TEST_F(LaunchPreferencesTest, HandEditedValuesThatAreNotYesOrNoFallBackToDefaults)
{
    store.setValue("GVRWinFilterDesignKey", "banana");
    store.setValue("GVRWinSignalDesignKey", 7);
    store.setValue("GVRWinFilterInspectorKey", "false");
    store.setValue("GVRWinProjectTwoKey", "1");
    EXPECT_TRUE(prefs.filterDesignPref());
    EXPECT_FALSE(prefs.signalDesignPref());
    EXPECT_FALSE(prefs.filterInspectorPref());
    EXPECT_TRUE(prefs.projectTwoPref());
}

}  // namespace
