// Windows remember their place: each window's position and size is kept in
// the settings store when it is hidden or closed (and when the program ends),
// and given back before it is first shown, clamped to the screens present now.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>

class QSettings;
class QWidget;

class WindowPlaces : public QObject {
    Q_OBJECT
public:
    // `settings` null: the application's own store; otherwise it must outlive this object.
    explicit WindowPlaces(QSettings* settings = nullptr, QObject* parent = nullptr);
    ~WindowPlaces() override;

    // Restores `window`'s last place (by its object name), if one was kept,
    // and keeps it from now on.
    void track(QWidget* window);
    // Keeps the place of every tracked window that is visible now.
    void saveVisible();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void save(QWidget* window);
    void restore(QWidget* window);

    QSettings* settings_;
    bool ownsSettings_;
    QList<QPointer<QWidget>> windows_;
};
