// Widgets the designer and project windows build alike.
#include "widgets/window_parts.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QSplitter>

#include "widgets/design_file_commands.h"
#include "library/note_format.h"

QSplitter* makeFormAndCharts(QWidget* form, QWidget* charts, QWidget* parent)
{
    auto* split = new QSplitter(Qt::Horizontal, parent);
    split->addWidget(form);
    split->addWidget(charts);
    split->setStretchFactor(0, 0);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    return split;
}

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
