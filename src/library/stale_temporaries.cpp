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
    const QFileInfoList infos = dir.entryInfoList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    for (const QFileInfo& info : infos) {
        // A link is someone's arrangement, never one of our temporaries.
        if (info.isSymLink() || !isOrvanaTemporaryName(info.fileName()))
            continue;
        if (info.lastModified().secsTo(now) < kStaleTemporarySeconds)
            continue;
        if (QFile::remove(info.absoluteFilePath()))
            removed << info.fileName();
    }
    return removed;
}
