// Show-at-launch preferences panel and the windows opened at start-up.
#include "shell/pref_controller.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

std::size_t slot(LaunchWindow window)
{
    return static_cast<std::size_t>(window);
}

} // namespace

GVRPrefController::GVRPrefController(QSettings* settings, QObject* parent)
    : QObject(parent), preferences_(settings ? LaunchPreferences(*settings) : LaunchPreferences())
{
}

GVRPrefController::~GVRPrefController()
{
    delete panel_;
}

void GVRPrefController::setShowAction(LaunchWindow window, std::function<void()> show)
{
    showActions_[slot(window)] = std::move(show);
}

std::vector<LaunchWindow> GVRPrefController::showLaunchWindows()
{
    const std::vector<LaunchWindow> shown = preferences_.windowsToShow();
    for (LaunchWindow window : shown)
        if (const auto& show = showActions_[slot(window)])
            show();
    return shown;
}

QCheckBox* GVRPrefController::checkbox(LaunchWindow window) const
{
    return checkboxes_[slot(window)];
}

void GVRPrefController::setPrefControllerWin()
{
    if (!panel_) {
        buildPanel();
        // As at start-up: the boxes from the store, the launch windows forward.
        loadCheckboxes();
        showLaunchWindows();
    }
    panel_->show();
    panel_->raise();
    panel_->activateWindow();
}

void GVRPrefController::buildPanel()
{
    panel_ = new QDialog;
    panel_->setObjectName(QStringLiteral("GVRPrefController"));
    panel_->setWindowTitle(tr("Preferences"));
    panel_->setModal(false);

    auto* group = new QGroupBox(tr("Show at launch"), panel_);
    auto* boxes = new QVBoxLayout(group);
    struct Entry {
        LaunchWindow window;
        const char* name;
        QString title;
        void (GVRPrefController::*change)();
    };
    const Entry entries[] = {
        {LaunchWindow::FilterDesign, "filterDesignCheckbox", tr("Filter Designer"),
         &GVRPrefController::changeFilterDesignPref},
        {LaunchWindow::SignalDesign, "signalDesignCheckbox", tr("Signal Designer"),
         &GVRPrefController::changeSignalDesignPref},
        {LaunchWindow::FilterInspector, "filterInspectorCheckbox", tr("Filter Inspector"),
         &GVRPrefController::changeFilterInspectorPref},
        {LaunchWindow::SignalInspector, "signalInspectorCheckbox", tr("Signal Inspector"),
         &GVRPrefController::changeSignalInspectorPref},
        {LaunchWindow::ProjectOne, "projectOneCheckbox", tr("Sum && Filter Model"),
         &GVRPrefController::changeProjectOnePref},
        {LaunchWindow::ProjectTwo, "projectTwoCheckbox", tr("Multirate Model"),
         &GVRPrefController::changeProjectTwoPref},
    };
    for (const Entry& e : entries) {
        auto* box = new QCheckBox(e.title, group);
        box->setObjectName(QLatin1String(e.name));
        boxes->addWidget(box);
        checkboxes_[slot(e.window)] = box;
        connect(box, &QCheckBox::toggled, this, e.change);
    }
    auto* note = new QLabel(tr("Changes take effect the next time Orvana starts."), panel_);
    note->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, panel_);
    connect(buttons, &QDialogButtonBox::rejected, panel_, &QDialog::close);

    auto* layout = new QVBoxLayout(panel_);
    layout->addWidget(group);
    layout->addWidget(note);
    layout->addWidget(buttons);
}

void GVRPrefController::loadCheckboxes()
{
    for (LaunchWindow window : LaunchPreferences::kShowOrder) {
        QCheckBox* box = checkbox(window);
        const QSignalBlocker quiet(box);
        box->setChecked(preferences_.value(window));
    }
}

void GVRPrefController::changePref(LaunchWindow window)
{
    QCheckBox* box = checkbox(window);
    if (!box)
        return;
    preferences_.setValue(window, box->isChecked());
    // The store already turned the other project window off; the box follows.
    if (box->isChecked() && (window == LaunchWindow::ProjectOne || window == LaunchWindow::ProjectTwo)) {
        const LaunchWindow other =
            window == LaunchWindow::ProjectOne ? LaunchWindow::ProjectTwo : LaunchWindow::ProjectOne;
        QCheckBox* otherBox = checkbox(other);
        const QSignalBlocker quiet(otherBox);
        otherBox->setChecked(false);
        preferences_.setValue(other, false);
    }
}

void GVRPrefController::changeFilterDesignPref()
{
    changePref(LaunchWindow::FilterDesign);
}

void GVRPrefController::changeSignalDesignPref()
{
    changePref(LaunchWindow::SignalDesign);
}

void GVRPrefController::changeFilterInspectorPref()
{
    changePref(LaunchWindow::FilterInspector);
}

void GVRPrefController::changeSignalInspectorPref()
{
    changePref(LaunchWindow::SignalInspector);
}

void GVRPrefController::changeProjectOnePref()
{
    changePref(LaunchWindow::ProjectOne);
}

void GVRPrefController::changeProjectTwoPref()
{
    changePref(LaunchWindow::ProjectTwo);
}
