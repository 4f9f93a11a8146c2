// ".filt" files: a keyed archive whose root array holds GVRFilter records.
#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

#include "archive/keyed_archive_reader.h"
#include "archive/filter_record.h"

// Longest coefficient array a filter file may hold.
inline constexpr std::size_t kMaxFilterCoefficients = 512;

// Archive bytes of one record (or several, the last being the one readers
// take). Empty, with the reason in `error`, for a record that could not be
// read back: coefficient arrays longer than 512 or not as long as
// dfFilterLengthN says, or text that is not valid UTF-8.
QByteArray encodeFilterArchive(const GVRFilter& filter, QString* error = nullptr);
QByteArray encodeFilterArchive(const std::vector<GVRFilter>& designs, QString* error = nullptr);

// The last record of the archive, or nothing with a sentence saying why.
// ArchiveReach::ScalarsOnly leaves the arrays absent, for lists of many
// designs; never enough to open one.
std::optional<GVRFilter> decodeFilterArchive(const QByteArray& bytes, QString* error = nullptr,
                                             ArchiveReach reach = ArchiveReach::Whole);

std::optional<GVRFilter> readFilterFile(const QString& path, QString* error = nullptr);
// Its scalar fields only (ArchiveReach::ScalarsOnly), for long lists.
std::optional<GVRFilter> readFilterFileScalars(const QString& path, QString* error = nullptr);
// Serialises, reads the result back and compares, then writes atomically.
bool writeFilterFile(const QString& path, const GVRFilter& filter, QString* error = nullptr);
