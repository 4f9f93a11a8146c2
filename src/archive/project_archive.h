// ".orvana" files: a keyed archive whose root array holds GVRProject records.
#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

#include "archive/project_record.h"

// Archive bytes of one record (or several, the last being the one readers
// take). Empty, with the reason in `error`, for names that are not valid UTF-8.
QByteArray encodeProjectArchive(const GVRProject& project, QString* error = nullptr);
QByteArray encodeProjectArchive(const std::vector<GVRProject>& designs, QString* error = nullptr);

// The last record of the archive, or nothing with a sentence saying why.
std::optional<GVRProject> decodeProjectArchive(const QByteArray& bytes, QString* error = nullptr);

std::optional<GVRProject> readProjectFile(const QString& path, QString* error = nullptr);
// Serialises, reads the result back and compares, then writes atomically.
bool writeProjectFile(const QString& path, const GVRProject& project, QString* error = nullptr);
