// Show-at-launch preferences over QSettings.
#include "shell/launch_preferences.h"

#include <optional>

namespace {

// A stored value as a yes or no; nothing for what is neither (a hand-edited
// file may hold anything).
std::optional<bool> asBool(const QVariant& stored)
{
    if (!stored.isValid())
        return std::nullopt;
    if (stored.typeId() == QMetaType::Bool)
        return stored.toBool();
    if (stored.typeId() == QMetaType::Int || stored.typeId() == QMetaType::LongLong ||
        stored.typeId() == QMetaType::UInt || stored.typeId() == QMetaType::ULongLong) {
        const qlonglong number = stored.toLongLong();
        if (number == 0 || number == 1)
            return number == 1;
        return std::nullopt;
    }
    const QString text = stored.toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1") || text == QLatin1String("yes"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0") || text == QLatin1String("no"))
        return false;
    return std::nullopt;
}

} // namespace

LaunchPreferences::LaunchPreferences() : owned_(std::make_unique<QSettings>()), settings_(owned_.get()) {}

LaunchPreferences::LaunchPreferences(QSettings& settings) : settings_(&settings) {}

const char* LaunchPreferences::key(LaunchWindow window)
{
    switch (window) {
    case LaunchWindow::FilterDesign:
        return "GVRWinFilterDesignKey";
    case LaunchWindow::SignalDesign:
        return "GVRWinSignalDesignKey";
    case LaunchWindow::ProjectOne:
        return "GVRWinProjectOneKey";
    case LaunchWindow::ProjectTwo:
        return "GVRWinProjectTwoKey";
    case LaunchWindow::FilterInspector:
        return "GVRWinFilterInspectorKey";
    case LaunchWindow::SignalInspector:
        return "GVRWinSignalInspectorKey";
    }
    return "";
}

bool LaunchPreferences::defaultValue(LaunchWindow window)
{
    return window == LaunchWindow::FilterDesign || window == LaunchWindow::FilterInspector ||
           window == LaunchWindow::SignalInspector;
}

bool LaunchPreferences::value(LaunchWindow window) const
{
    return asBool(settings_->value(QLatin1String(key(window)))).value_or(defaultValue(window));
}

void LaunchPreferences::setValue(LaunchWindow window, bool on)
{
    settings_->setValue(QLatin1String(key(window)), on);
    if (on && window == LaunchWindow::ProjectOne)
        settings_->setValue(QLatin1String(key(LaunchWindow::ProjectTwo)), false);
    if (on && window == LaunchWindow::ProjectTwo)
        settings_->setValue(QLatin1String(key(LaunchWindow::ProjectOne)), false);
    // Written now, not at exit: a crash later must not lose the choice.
    settings_->sync();
}

std::vector<LaunchWindow> LaunchPreferences::windowsToShow() const
{
    std::vector<LaunchWindow> windows;
    for (LaunchWindow window : kShowOrder) {
        if (value(window))
            windows.push_back(window);
    }
    return windows;
}
