// Writes design records as a binary NSKeyedArchiver archive, as the platform's
// archiver would: the root object an NSMutableArray holding the records.
#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

#include "archive/keyed_archive.h"

// Each record must hold one value per schema field of the field's kind, or
// nothing. Refuses (with a reason clause in lower case) text that is not valid
// UTF-8 or holds a NUL character, which the format cannot carry.
std::optional<QByteArray> encodeKeyedArchive(const ArchiveSchema& schema,
                                             const std::vector<ArchiveRecord>& records, QString* reason);
