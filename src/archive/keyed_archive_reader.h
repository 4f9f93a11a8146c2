// Reads an NSKeyedArchiver archive whose root is an array of design records,
// checking it the way a secure unarchiver would.
#pragma once

#include <optional>

#include <QByteArray>
#include <QString>

#include "archive/keyed_archive.h"

// Records in one archive we are willing to decode; design files hold one.
inline constexpr std::size_t kMaxArchiveRecords = 64;

// How much of an archive to decode. Whole checks every object of the file and
// decodes every field: what opening a design needs. ScalarsOnly decodes the
// text and number fields and leaves the arrays absent, checking only the
// objects it reads: what a list of thousands of designs needs, never enough
// to open one.
enum class ArchiveReach { Whole, ScalarsOnly };

// All records of the root array, in order, each checked against `schema`.
// On failure returns nothing with the reason in `reason`, a clause in lower
// case ("its root object is missing").
std::optional<std::vector<ArchiveRecord>> decodeKeyedArchive(const QByteArray& bytes,
                                                             const ArchiveSchema& schema, QString* reason,
                                                             ArchiveReach reach = ArchiveReach::Whole);
