// Choosing the design library's root folder and finding the sample designs.
#include "library/library_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString absoluteRoot(const QString& path)
{
    QString expanded = path;
    if (expanded == QLatin1String("~"))
        expanded = QDir::homePath();
    else if (expanded.startsWith(QLatin1String("~/")))
        expanded = QDir::homePath() + expanded.mid(1);
    return QDir::cleanPath(QFileInfo(expanded).absoluteFilePath());
}

} // namespace

QString defaultLibraryRoot()
{
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // No data folder at all (no home): keep the library beside the working folder.
    if (base.isEmpty())
        base = QDir::currentPath();
    return QDir::cleanPath(base + QLatin1String("/Orvana"));
}

QString resolveLibraryRoot(const QString& optionValue)
{
    if (!optionValue.trimmed().isEmpty())
        return absoluteRoot(optionValue);
    const QString fromEnvironment = qEnvironmentVariable(kLibraryEnvironmentVariable);
    if (!fromEnvironment.trimmed().isEmpty())
        return absoluteRoot(fromEnvironment);
    return defaultLibraryRoot();
}

QString bundledDataPath(const QString& name)
{
    const QString programFolder = QCoreApplication::applicationDirPath();
    for (const QString& candidate : {programFolder + QLatin1Char('/') + name,
                                     programFolder + QStringLiteral("/../share/orvana/") + name}) {
        if (QFileInfo::exists(candidate))
            return QDir::cleanPath(candidate);
    }
    return {};
}

QString defaultSampleFolder()
{
    const QString folder = bundledDataPath(QStringLiteral("samples"));
    return QFileInfo(folder).isDir() ? folder : QString();
}
