#include "support/temp_library.h"

#include <QDir>

TempLibrary::TempLibrary() = default;

QString TempLibrary::folder(const QString& sub) const
{
    QDir(dir_.path()).mkpath(sub);
    return dir_.path() + QLatin1Char('/') + sub;
}
