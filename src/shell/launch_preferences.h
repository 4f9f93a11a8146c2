// The six show-at-launch preferences in the settings store. Their defaults
// are never written: they answer only for keys the user has not set, so the
// user's own choices persist across launches untouched.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include <QSettings>

enum class LaunchWindow {
    FilterDesign,
    SignalDesign,
    ProjectOne,
    ProjectTwo,
    FilterInspector,
    SignalInspector
};

class LaunchPreferences {
public:
    // Order in which the windows are shown at launch.
    static constexpr std::array<LaunchWindow, 6> kShowOrder{
        LaunchWindow::FilterDesign,    LaunchWindow::SignalDesign, LaunchWindow::FilterInspector,
        LaunchWindow::SignalInspector, LaunchWindow::ProjectOne,   LaunchWindow::ProjectTwo};

    // The application's own settings store.
    LaunchPreferences();
    // Another store (tests); it must outlive this object.
    explicit LaunchPreferences(QSettings& settings);

    // "GVRWinFilterDesignKey" and its five siblings.
    static const char* key(LaunchWindow window);
    // True for the filter design window and both inspectors.
    static bool defaultValue(LaunchWindow window);

    // The stored choice, or the default when unset or not a yes/no value.
    bool value(LaunchWindow window) const;
    // Stores at once. Turning one project window on turns the other off, as
    // both name the one project window; turning one off leaves the other.
    void setValue(LaunchWindow window, bool on);

    // Windows whose preference is on, in kShowOrder.
    std::vector<LaunchWindow> windowsToShow() const;

    bool filterDesignPref() const { return value(LaunchWindow::FilterDesign); }
    bool signalDesignPref() const { return value(LaunchWindow::SignalDesign); }
    bool projectOnePref() const { return value(LaunchWindow::ProjectOne); }
    bool projectTwoPref() const { return value(LaunchWindow::ProjectTwo); }
    bool filterInspectorPref() const { return value(LaunchWindow::FilterInspector); }
    bool signalInspectorPref() const { return value(LaunchWindow::SignalInspector); }

    void setFilterDesignPref(bool on) { setValue(LaunchWindow::FilterDesign, on); }
    void setSignalDesignPref(bool on) { setValue(LaunchWindow::SignalDesign, on); }
    void setProjectOnePref(bool on) { setValue(LaunchWindow::ProjectOne, on); }
    void setProjectTwoPref(bool on) { setValue(LaunchWindow::ProjectTwo, on); }
    void setFilterInspectorPref(bool on) { setValue(LaunchWindow::FilterInspector, on); }
    void setSignalInspectorPref(bool on) { setValue(LaunchWindow::SignalInspector, on); }

private:
    std::unique_ptr<QSettings> owned_;
    QSettings* settings_;
};
