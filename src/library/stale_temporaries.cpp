// Clean-up of temporaries left by interrupted saves.
#include "library/stale_temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "archive/atomic_write.h"
#include "library/folder_listing.h"

bool isOrvanaTemporaryName(const QString& fileName)
{
    // Each starts with a dot or has one seven from its end: most names are
    // done with here, before the pattern.
    const bool dotted = fileName.startsWith(QLatin1Char('.')) ||
                        (fileName.size() > 7 && fileName.at(fileName.size() - 7) == QLatin1Char('.'));
    if (!dotted)
        return false;
    static const QRegularExpression pattern(
        QStringLiteral("^(?:%1|.+\\.(?:filt|signal|orvana)\\.)[A-Za-z0-9]{6}$")
            .arg(QRegularExpression::escape(QLatin1String(kAtomicWriteTemporaryPrefix))));
    return pattern.match(fileName).hasMatch();
}

QStringList removeStaleTemporaries(const QString& folder, const QDateTime& now)
{
    QStringList removed;
    const QDir dir(folder);
    // Names first: a folder of thousands of designs is read without a stat
    // of each file, and only names of our pattern are looked at closely. A
    // link is someone's arrangement, never one of our temporaries.
    const QStringList names = regularFileNames(folder, FolderLinks::Skip);
    for (const QString& name : names) {
        if (!isOrvanaTemporaryName(name))
            continue;
        const QFileInfo info(dir, name);
        if (info.lastModified().secsTo(now) < kStaleTemporarySeconds)
            continue;
        if (QFile::remove(info.absoluteFilePath()))
            removed << info.fileName();
    }
    return removed;
}
