// ".signal" files: a keyed archive whose root array holds GVRSignal records.
#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

#include "archive/keyed_archive_reader.h"
#include "archive/signal_record.h"

// Samples of every stored signal.
inline constexpr std::size_t kSignalSampleCount = 16384;

// Archive bytes of one record (or several, the last being the one readers
// take). Empty, with the reason in `error`, when sampledSignalArray is
// present with other than 16384 samples.
QByteArray encodeSignalArchive(const GVRSignal& signal, QString* error = nullptr);
QByteArray encodeSignalArchive(const std::vector<GVRSignal>& designs, QString* error = nullptr);

// The last record of the archive, or nothing with a sentence saying why.
// ArchiveReach::ScalarsOnly leaves the arrays absent, for lists of many
// designs; never enough to open one.
std::optional<GVRSignal> decodeSignalArchive(const QByteArray& bytes, QString* error = nullptr,
                                             ArchiveReach reach = ArchiveReach::Whole);

std::optional<GVRSignal> readSignalFile(const QString& path, QString* error = nullptr);
// Its scalar fields only (ArchiveReach::ScalarsOnly), for long lists.
std::optional<GVRSignal> readSignalFileScalars(const QString& path, QString* error = nullptr);
// Serialises, reads the result back and compares, then writes atomically.
bool writeSignalFile(const QString& path, const GVRSignal& signal, QString* error = nullptr);
