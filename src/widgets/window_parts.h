// Widgets the designer and project windows build alike: the note line under
// the form, list pop-ups and the File menu's window-wide actions.
#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

class DesignFileCommands;
class QAbstractSpinBox;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QSplitter;
class QWidget;

// The form beside the charts: the form keeps its width, the charts take
// what the window gains, and neither can be dragged shut. The form scrolls
// when the window is lower than it, so a small screen reaches all of it.
QSplitter* makeFormAndCharts(QWidget* form, QWidget* charts, QWidget* parent);

// The read-only note line ("noteField") that shows the window's messages. It
// wraps, so a long message is read whole at any window width.
QLabel* makeNoteLine(QWidget* parent);

// Shows a message on the note line (see formatNote).
void showNote(QLabel& noteLine, const QString& text, double value, bool withValue);

// The text editor inside a spin box, whose returnPressed tells Return apart
// from a mere loss of focus.
QLineEdit* spinBoxEditor(QAbstractSpinBox* box);

// Makes a window opened at `size` fit the available screen (and its minimum
// size too), whatever the scale factor.
void fitToScreen(QWidget& window, QSize size);
// Moves a window (with room for its frame) back inside its screen's
// available area, e.g. after a cascade pushed it past an edge.
void keepOnScreen(QWidget& window);
// `frame` moved, and shrunk if need be, to lie within `available`.
QRect clampToScreen(const QRect& frame, const QRect& available);

// A pop-up named `name` as wide as its longest title.
QComboBox* makePopUp(const char* name, QWidget* parent);

// The New, Open…, Save and Save As… actions of a designer window, named
// `<prefix>NewAction` etc., added to `window` and live while it is active,
// each running the command of the same name. Ctrl+Shift+S stands in for
// Save As where the desktop binds none.
QList<QAction*> addFileActions(QWidget& window, const char* prefix, DesignFileCommands& commands);
