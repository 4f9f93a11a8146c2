// Folder listing for the open sheets.
#include "widgets/design_file_listing.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "library/natural_order.h"

QString formatFileDate(const QDateTime& when)
{
    // The C locale keeps month names and AM/PM in English whatever the
    // user's locale, as the date column is sorted on this text.
    return QLocale::c().toString(when.toLocalTime(), QStringLiteral("MMM d, yyyy, h:mm AP"));
}

QDateTime parseFileDate(const QString& text)
{
    return QLocale::c().toDateTime(text, QStringLiteral("MMM d, yyyy, h:mm AP"));
}

QList<GVRFile> designFilesInFolder(const QString& folder, const QString& extension)
{
    QList<GVRFile> rows;
    const QDir dir(folder);
    if (folder.isEmpty() || !dir.exists())
        return rows;
    // Folders named like a design cannot be opened, so only files are listed.
    const QFileInfoList entries = dir.entryInfoList(QDir::Files | QDir::Hidden, QDir::Unsorted);
    for (const QFileInfo& entry : entries) {
        const QString name = entry.fileName();
        if (!name.endsWith(extension, Qt::CaseSensitive))
            continue;
        rows.append(GVRFile(name, formatFileDate(entry.lastModified())));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const GVRFile& a, const GVRFile& b) {
        return compareNaturally(a.fileName(), b.fileName()) < 0;
    });
    return rows;
}

QString stripExtension(const QString& fileName, const QString& extension)
{
    if (!fileName.endsWith(extension, Qt::CaseSensitive))
        return fileName;
    return fileName.left(fileName.size() - extension.size());
}
