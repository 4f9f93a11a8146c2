// Widgets the designer and project windows build alike: the note line under
// the form, list pop-ups and the File menu's window-wide actions.
#pragma once

#include <QList>
#include <QString>

class DesignFileCommands;
class QAction;
class QComboBox;
class QLineEdit;
class QSplitter;
class QWidget;

// The form beside the charts: the form keeps its width, the charts take
// what the window gains, and neither can be dragged shut.
QSplitter* makeFormAndCharts(QWidget* form, QWidget* charts, QWidget* parent);

// The read-only note line ("noteField") that shows the window's messages.
QLineEdit* makeNoteLine(QWidget* parent);

// Shows a message on the note line from its start (see formatNote).
void showNote(QLineEdit& noteLine, const QString& text, double value, bool withValue);

// A pop-up named `name` as wide as its longest title.
QComboBox* makePopUp(const char* name, QWidget* parent);

// The New, Open…, Save and Save As… actions of a designer window, named
// `<prefix>NewAction` etc., added to `window` and live while it is active,
// each running the command of the same name. Ctrl+Shift+S stands in for
// Save As where the desktop binds none.
QList<QAction*> addFileActions(QWidget& window, const char* prefix, DesignFileCommands& commands);
