// A temporary design library holding the thirteen sample designs, for the
// window tests of the shell.
#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

struct SeededLibrary {
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    QList<LibraryProblem> problems = prepareLibrary(library);
};

// Pixels of `widget` close to `colour` (each channel within 3 of it).
inline int countPixels(QWidget* widget, const QColor& colour)
{
    const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = line[x];
            if (std::abs(qRed(p) - colour.red()) <= 3 && std::abs(qGreen(p) - colour.green()) <= 3 &&
                std::abs(qBlue(p) - colour.blue()) <= 3)
                ++count;
        }
    }
    return count;
}
