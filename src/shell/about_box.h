// Help ▸ About Orvana: the program's version and the versions of the
// libraries it runs on (Qt, FFTW, libplist), as loaded at run time where the
// library can say so.
#pragma once

#include <QString>

class QMessageBox;
class QWidget;

// "Qt 6.4.2", "FFTW 3.3.10", "libplist 2.2.0", one per line.
QString libraryVersionsText();

// Opens the About box (non-blocking, deleted on close) and returns it.
QMessageBox* showAboutBox(QWidget* parent = nullptr);
