// Writes a whole file or nothing: a temporary file in the same folder is
// renamed over the target only when every byte is on disk.
#pragma once

#include <QByteArray>
#include <QString>

// On failure returns false and, when `error` is given, a message naming the file.
bool writeFileAtomically(const QString& path, const QByteArray& data, QString* error = nullptr);
