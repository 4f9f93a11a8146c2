#include "library/note_format.h"

QString formatNote(const QString& text, double value, bool withValue)
{
    if (!withValue)
        return text;
    // The number goes through single precision first, as the window's
    // formatter does; 0.01 therefore prints as 0.010.
    const double narrowed = static_cast<double>(static_cast<float>(value));
    return text + QLatin1Char(' ') + QString::asprintf("%1.3f", narrowed);
}
