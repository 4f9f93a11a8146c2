// Removing the temporary files that interrupted saves leave in the library's
// folders. Only our own naming patterns are touched, and only files old
// enough that no save still running in another process can own them.
#pragma once

#include <QDateTime>
#include <QStringList>

// Files younger than this are left alone: a save in progress elsewhere.
inline constexpr qint64 kStaleTemporarySeconds = 10 * 60;

// True for a name our atomic writes use for their temporaries: the current
// ".orvana-save-XXXXXX", and the "NAME.filt.XXXXXX" (".signal", ".orvana")
// that earlier versions left, six letters or digits after the extension.
bool isOrvanaTemporaryName(const QString& fileName);

// Removes the stale temporaries of one folder (not its subfolders); returns
// the names removed.
QStringList removeStaleTemporaries(const QString& folder,
                                   const QDateTime& now = QDateTime::currentDateTimeUtc());
