// Keeping and restoring window places.
#include "shell/window_places.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include "widgets/window_parts.h"

namespace {

QString keyFor(const QWidget* window)
{
    return QStringLiteral("windowPlaces/") + window->objectName();
}

} // namespace

WindowPlaces::WindowPlaces(QSettings* settings, QObject* parent)
    : QObject(parent), settings_(settings ? settings : new QSettings), ownsSettings_(!settings)
{
}

WindowPlaces::~WindowPlaces()
{
    if (ownsSettings_)
        delete settings_;
}

void WindowPlaces::track(QWidget* window)
{
    if (!window || window->objectName().isEmpty())
        return;
    restore(window);
    window->installEventFilter(this);
    windows_.append(window);
}

void WindowPlaces::saveVisible()
{
    for (const QPointer<QWidget>& window : std::as_const(windows_))
        if (window && window->isVisible())
            save(window);
}

bool WindowPlaces::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Hide || event->type() == QEvent::Close)
        if (auto* window = qobject_cast<QWidget*>(watched); window && window->isWindow())
            save(window);
    return QObject::eventFilter(watched, event);
}

void WindowPlaces::save(QWidget* window)
{
    // A window never shown has no place of its own yet.
    if (!window->testAttribute(Qt::WA_WState_ExplicitShowHide) && !window->isVisible())
        return;
    // The frame's position (as move() takes it) and the client size (as resize() does).
    settings_->setValue(keyFor(window), QRect(window->pos(), window->size()));
}

void WindowPlaces::restore(QWidget* window)
{
    const QVariant kept = settings_->value(keyFor(window));
    if (!kept.canConvert<QRect>())
        return;
    const QRect frame = kept.toRect();
    if (!frame.isValid())
        return;
    // The screen the window was on may be gone: the nearest one now present.
    QScreen* screen = QGuiApplication::screenAt(frame.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect placed = clampToScreen(frame, screen ? screen->availableGeometry() : QRect());
    window->resize(placed.size());
    window->move(placed.topLeft());
}
