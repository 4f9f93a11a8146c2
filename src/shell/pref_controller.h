// GVRPrefController: the six show-at-launch preferences and their panel (six
// checkboxes), and the opening of the windows they name at start-up. The two
// project preferences exclude each other, since both name the one project
// window in its two models.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include <QObject>
#include <QPointer>

#include "shell/launch_preferences.h"

class QCheckBox;
class QDialog;
class QSettings;

class GVRPrefController : public QObject {
    Q_OBJECT
public:
    // `settings` null: the application's own store; otherwise it must outlive this object.
    explicit GVRPrefController(QSettings* settings = nullptr, QObject* parent = nullptr);
    ~GVRPrefController() override;

    // What showing a launch window means (the window controllers' show slots).
    void setShowAction(LaunchWindow window, std::function<void()> show);

    // Shows the windows whose preference is on: filter design, signal design,
    // filter inspector, signal inspector, project one, project two. Returns
    // them in the order shown.
    std::vector<LaunchWindow> showLaunchWindows();

    LaunchPreferences& preferences() { return preferences_; }
    bool filterDesignPref() const { return preferences_.filterDesignPref(); }
    bool signalDesignPref() const { return preferences_.signalDesignPref(); }
    bool filterInspectorPref() const { return preferences_.filterInspectorPref(); }
    bool signalInspectorPref() const { return preferences_.signalInspectorPref(); }
    bool projectOnePref() const { return preferences_.projectOnePref(); }
    bool projectTwoPref() const { return preferences_.projectTwoPref(); }

    // The panel (null until first shown) and its checkboxes.
    QDialog* prefControllerWindow() const { return panel_; }
    QCheckBox* checkbox(LaunchWindow window) const;

public slots:
    // The Preferences… command: makes the panel on first use (taking the
    // checkboxes from the store and bringing the launch windows forward
    // again, as at start-up), then shows it.
    void setPrefControllerWin();

    // Each stores its checkbox at once; turning a project one on turns the other off.
    void changeFilterDesignPref();
    void changeSignalDesignPref();
    void changeFilterInspectorPref();
    void changeSignalInspectorPref();
    void changeProjectOnePref();
    void changeProjectTwoPref();

private:
    void buildPanel();
    void loadCheckboxes();
    void changePref(LaunchWindow window);

    LaunchPreferences preferences_;
    std::array<std::function<void()>, 6> showActions_;
    QPointer<QDialog> panel_;
    std::array<QCheckBox*, 6> checkboxes_{};
};
