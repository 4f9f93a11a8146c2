// Widgets the designer and project windows build alike: the note line under
// the form, list pop-ups and the File menu's window-wide actions.
#pragma once

#include <QKeySequence>
#include <QString>

class QAction;
class QComboBox;
class QLineEdit;
class QWidget;

// The read-only note line ("noteField") that shows the window's messages.
QLineEdit* makeNoteLine(QWidget* parent);

// Shows a message on the note line from its start (see formatNote).
void showNote(QLineEdit& noteLine, const QString& text, double value, bool withValue);

// A pop-up named `name` as wide as its longest title.
QComboBox* makePopUp(const char* name, QWidget* parent);

// An action named `name` on `window` with the desktop's keys for `key`,
// live while the window is active. Ctrl+Shift+S stands in for Save As where
// the desktop binds none.
QAction* addFileAction(QWidget& window, const char* name, const QString& text, QKeySequence::StandardKey key);
