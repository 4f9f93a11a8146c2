// Widgets the designer and project windows build alike.
#include "widgets/window_parts.h"

#include <algorithm>

#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include "widgets/design_file_commands.h"
#include "library/note_format.h"

QSplitter* makeFormAndCharts(QWidget* form, QWidget* charts, QWidget* parent)
{
    auto* split = new QSplitter(Qt::Horizontal, parent);
    auto* scroll = new QScrollArea(split);
    scroll->setObjectName(QStringLiteral("formScroll"));
    scroll->setWidget(form);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // As wide as the form wants, plus room for the scroll bar when it shows.
    scroll->setMinimumWidth(form->minimumSizeHint().width() +
                            scroll->verticalScrollBar()->sizeHint().width());
    // The note line stays in view below the scrolling form.
    auto* side = new QWidget(split);
    side->setObjectName(QStringLiteral("formSide"));
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(scroll, 1);
    if (auto* note = form->findChild<QLabel*>(QStringLiteral("noteField")))
        column->addWidget(note, 0);
    split->addWidget(side);
    split->addWidget(charts);
    split->setStretchFactor(0, 0);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    return split;
}

QLabel* makeNoteLine(QWidget* parent)
{
    auto* noteLine = new QLabel(parent);
    noteLine->setObjectName(QStringLiteral("noteField"));
    noteLine->setTextFormat(Qt::PlainText);
    noteLine->setWordWrap(true);
    noteLine->setTextInteractionFlags(Qt::TextSelectableByMouse);
    noteLine->setFrameShape(QFrame::StyledPanel);
    noteLine->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    // One line high even when empty, so the form does not jump.
    noteLine->setMinimumHeight(noteLine->fontMetrics().height() + 2 * noteLine->frameWidth() + 4);
    return noteLine;
}

void showNote(QLabel& noteLine, const QString& text, double value, bool withValue)
{
    noteLine.setText(formatNote(text, value, withValue));
}

QLineEdit* spinBoxEditor(QAbstractSpinBox* box)
{
    return box ? box->findChild<QLineEdit*>() : nullptr;
}

QRect clampToScreen(const QRect& frame, const QRect& available)
{
    if (!available.isValid())
        return frame;
    QRect r = frame;
    r.setWidth(std::min(r.width(), available.width()));
    r.setHeight(std::min(r.height(), available.height()));
    r.moveLeft(std::clamp(r.left(), available.left(), available.right() - r.width() + 1));
    r.moveTop(std::clamp(r.top(), available.top(), available.bottom() - r.height() + 1));
    return r;
}

namespace {

// Room for the frame and title bar the window manager adds.
const QSize kFrameRoom(16, 48);

const QScreen* screenOf(const QWidget& window)
{
    return window.screen() ? window.screen() : QGuiApplication::primaryScreen();
}

} // namespace

void fitToScreen(QWidget& window, QSize size)
{
    const QScreen* screen = screenOf(window);
    if (!screen) {
        window.resize(size);
        return;
    }
    const QSize room = screen->availableGeometry().size() - kFrameRoom;
    const QSize fitted = size.boundedTo(room).expandedTo(window.minimumSizeHint().boundedTo(room));
    window.resize(fitted);
    keepOnScreen(window);
}

void keepOnScreen(QWidget& window)
{
    const QScreen* screen = screenOf(window);
    if (!screen)
        return;
    const QRect frame(window.pos(), window.size() + kFrameRoom);
    const QPoint place = clampToScreen(frame, screen->availableGeometry()).topLeft();
    if (place != window.pos())
        window.move(place);
}

QComboBox* makePopUp(const char* name, QWidget* parent)
{
    auto* popUp = new QComboBox(parent);
    popUp->setObjectName(QLatin1String(name));
    popUp->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return popUp;
}

QList<QAction*> addFileActions(QWidget& window, const char* prefix, DesignFileCommands& commands)
{
    struct Command {
        const char* name;
        QString text;
        QKeySequence::StandardKey key;
        void (DesignFileCommands::*slot)();
    };
    const Command list[] = {
        {"NewAction", QCoreApplication::translate("FileActions", "New"), QKeySequence::New,
         &DesignFileCommands::newMenuItem},
        {"OpenAction", QCoreApplication::translate("FileActions", "Open…"), QKeySequence::Open,
         &DesignFileCommands::openMenuItem},
        {"SaveAction", QCoreApplication::translate("FileActions", "Save"), QKeySequence::Save,
         &DesignFileCommands::saveMenuItem},
        {"SaveAsAction", QCoreApplication::translate("FileActions", "Save As…"), QKeySequence::SaveAs,
         &DesignFileCommands::saveAsMenuItem},
    };
    QList<QAction*> actions;
    for (const Command& command : list) {
        auto* action = new QAction(command.text, &window);
        action->setObjectName(QLatin1String(prefix) + QLatin1String(command.name));
        QList<QKeySequence> keys = QKeySequence::keyBindings(command.key);
        if (keys.isEmpty() && command.key == QKeySequence::SaveAs)
            keys.append(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WindowShortcut);
        QObject::connect(action, &QAction::triggered, &commands, command.slot);
        window.addAction(action);
        actions.append(action);
    }
    return actions;
}
