// Widgets the designer and project windows build alike.
#include "shell/window_parts.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>

#include "shell/note_format.h"

QLineEdit* makeNoteLine(QWidget* parent)
{
    auto* noteLine = new QLineEdit(parent);
    noteLine->setObjectName(QStringLiteral("noteField"));
    noteLine->setReadOnly(true);
    noteLine->setFocusPolicy(Qt::ClickFocus);
    noteLine->setPlaceholderText(QCoreApplication::translate("NoteLine", "Notes appear here"));
    return noteLine;
}

void showNote(QLineEdit& noteLine, const QString& text, double value, bool withValue)
{
    noteLine.setText(formatNote(text, value, withValue));
    noteLine.setCursorPosition(0);
}

QComboBox* makePopUp(const char* name, QWidget* parent)
{
    auto* popUp = new QComboBox(parent);
    popUp->setObjectName(QLatin1String(name));
    popUp->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return popUp;
}

QAction* addFileAction(QWidget& window, const char* name, const QString& text, QKeySequence::StandardKey key)
{
    auto* action = new QAction(text, &window);
    action->setObjectName(QLatin1String(name));
    QList<QKeySequence> keys = QKeySequence::keyBindings(key);
    if (keys.isEmpty() && key == QKeySequence::SaveAs)
        keys.append(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WindowShortcut);
    window.addAction(action);
    return action;
}
