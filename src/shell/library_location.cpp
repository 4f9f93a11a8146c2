#include "shell/library_location.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString absolute(const QString& path)
{
    QString expanded = path;
    if (expanded == QLatin1String("~"))
        expanded = QDir::homePath();
    else if (expanded.startsWith(QLatin1String("~/")))
        expanded = QDir::homePath() + expanded.mid(1);
    return QDir::cleanPath(QDir::current().absoluteFilePath(expanded));
}

}  // namespace

QString defaultLibraryRoot()
{
    // Not AppDataLocation: that nests organisation and application names,
    // and the library should be one plainly named folder.
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QDir::cleanPath(base + QStringLiteral("/Orvana"));
}

QString resolveLibraryRoot(const QString& optionValue)
{
    if (!optionValue.isEmpty())
        return absolute(optionValue);
    const QString fromEnvironment = qEnvironmentVariable(kLibraryEnvironmentVariable);
    if (!fromEnvironment.isEmpty())
        return absolute(fromEnvironment);
    return defaultLibraryRoot();
}

QString defaultSampleFolder()
{
    const QString programFolder = QCoreApplication::applicationDirPath();
    for (const QString& candidate : {programFolder + QStringLiteral("/samples"),
                                     programFolder + QStringLiteral("/../share/orvana/samples")}) {
        if (QFileInfo(candidate).isDir())
            return QDir::cleanPath(candidate);
    }
    return {};
}
