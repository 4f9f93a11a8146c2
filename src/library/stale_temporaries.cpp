// Clean-up of temporaries left by interrupted saves.
#include "library/stale_temporaries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "archive/atomic_write.h"

bool isOrvanaTemporaryName(const QString& fileName)
{
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
    // of each file, and only names of our pattern are looked at closely.
    const QStringList names = dir.entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    for (const QString& name : names) {
        if (!isOrvanaTemporaryName(name))
            continue;
        const QFileInfo info(dir, name);
        // A link is someone's arrangement, never one of our temporaries.
        if (info.isSymLink())
            continue;
        if (info.lastModified().secsTo(now) < kStaleTemporarySeconds)
            continue;
        if (QFile::remove(info.absoluteFilePath()))
            removed << info.fileName();
    }
    return removed;
}
