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
    EXPECT_EQ(prefs.windowsToShow(),
              (std::vector<W>{W::FilterDesign, W::FilterInspector, W::SignalInspector}));
    // Defaults answer for unset keys but are never written.
    EXPECT_TRUE(store.allKeys().isEmpty());
}

TEST_F(LaunchPreferencesTest, ChoicesPersistToTheNextLaunchInShowOrder)
{
    prefs.setSignalDesignPref(true);
    prefs.setFilterDesignPref(false);
    prefs.setFilterDesignPref(true);
    prefs.setSignalInspectorPref(false);
    prefs.setProjectOnePref(true);
    QSettings nextStore(path, QSettings::IniFormat);
    const LaunchPreferences next(nextStore);
    // The signal design window right after the filter design window; projects last.
    EXPECT_EQ(next.windowsToShow(),
              (std::vector<W>{W::FilterDesign, W::SignalDesign, W::FilterInspector, W::ProjectOne}));
}

// Turning one project window on turns the other off, in the store too;
// turning one off leaves the other as it is.
TEST_F(LaunchPreferencesTest, ProjectWindowsExcludeEachOther)
{
    const struct {
        void (LaunchPreferences::*set)(bool);
        bool on, one, two;
    } steps[] = {
        {&LaunchPreferences::setProjectTwoPref, true, false, true},
        {&LaunchPreferences::setProjectOnePref, true, true, false},
        {&LaunchPreferences::setProjectTwoPref, true, false, true},
        {&LaunchPreferences::setProjectOnePref, false, false, true},
        {&LaunchPreferences::setProjectTwoPref, false, false, false},
    };
    for (const auto& s : steps) {
        (prefs.*s.set)(s.on);
        EXPECT_EQ(std::pair(prefs.projectOnePref(), prefs.projectTwoPref()), std::pair(s.one, s.two));
        QSettings stored(path, QSettings::IniFormat);
        EXPECT_EQ(std::pair(stored.value("GVRWinProjectOneKey", false).toBool(),
                            stored.value("GVRWinProjectTwoKey", false).toBool()),
                  std::pair(s.one, s.two));
    }
}

TEST_F(LaunchPreferencesTest, HandEditedValuesThatAreNotYesOrNoFallBackToDefaults)
{
    store.setValue("GVRWinFilterDesignKey", "banana"); // default: on
    store.setValue("GVRWinSignalDesignKey", 7);        // default: off
    store.setValue("GVRWinFilterInspectorKey", "false");
    store.setValue("GVRWinProjectTwoKey", "1");
    EXPECT_EQ(prefs.windowsToShow(), (std::vector<W>{W::FilterDesign, W::SignalInspector, W::ProjectTwo}));
}

} // namespace
