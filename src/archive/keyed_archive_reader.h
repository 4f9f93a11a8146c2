// Reads an NSKeyedArchiver archive whose root is an array of design records,
// checking it the way a secure unarchiver would.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "archive/keyed_archive.h"

// Records in one archive we are willing to decode; design files hold one.
inline constexpr std::size_t kMaxArchiveRecords = 64;

// All records of the root array, in order, each checked against `schema`.
// On failure returns nothing with the reason in `reason`, a clause in lower
// case ("its root object is missing").
std::optional<std::vector<ArchiveRecord>> decodeKeyedArchive(const QByteArray& bytes,
                                                             const ArchiveSchema& schema,
                                                             QString* reason);
