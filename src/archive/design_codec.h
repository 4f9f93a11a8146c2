// What the three design files have in common: a record mapped to archive
// values, checks of its own beyond the types, and the same reading and
// writing discipline (size cap before parsing; serialise, read back, compare,
// then write atomically).
#pragma once

#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

#include "archive/keyed_archive.h"
#include "archive/keyed_archive_reader.h"
#include "archive/keyed_archive_writer.h"

template <typename Record> struct DesignCodec {
    ArchiveSchema schema;
    const char* noun; // "filter design", as in "is not an Orvana filter design"
    ArchiveRecord (*toArchive)(const Record&);
    Record (*fromArchive)(const ArchiveRecord&);
    // Checks beyond the types of the keys; a reason clause on failure.
    bool (*check)(const Record&, QString* reason);
};

// "“name.filt” is not an Orvana filter design: reason." or, with no path,
// "This is not an Orvana filter design: reason."
QString designRefusal(const QString& path, const char* noun, const QString& reason);
// "“name.filt” was not saved: reason."
QString designNotSaved(const QString& path, const QString& reason);
// The whole file, refused before reading when it is over the size cap.
std::optional<QByteArray> readDesignBytes(const QString& path, const char* noun, QString* error);
bool writeDesignBytes(const QString& path, const QByteArray& bytes, QString* error);

template <typename Record>
std::optional<Record> decodeDesign(const DesignCodec<Record>& codec, const QByteArray& bytes, QString* reason,
                                   ArchiveReach reach = ArchiveReach::Whole)
{
    const auto records = decodeKeyedArchive(bytes, codec.schema, reason, reach);
    if (!records)
        return std::nullopt;
    std::optional<Record> last;
    for (const ArchiveRecord& values : *records) {
        last = codec.fromArchive(values);
        if (!codec.check(*last, reason))
            return std::nullopt;
    }
    return last;
}

template <typename Record>
QByteArray encodeDesigns(const DesignCodec<Record>& codec, const std::vector<Record>& records, QString* error)
{
    QString reason;
    std::vector<ArchiveRecord> values;
    for (const Record& record : records) {
        if (!codec.check(record, &reason)) {
            if (error)
                *error = reason;
            return {};
        }
        values.push_back(codec.toArchive(record));
    }
    auto bytes = encodeKeyedArchive(codec.schema, values, &reason);
    if (!bytes) {
        if (error)
            *error = reason;
        return {};
    }
    return *bytes;
}

template <typename Record>
std::optional<Record> readDesignFile(const DesignCodec<Record>& codec, const QString& path, QString* error,
                                     ArchiveReach reach = ArchiveReach::Whole)
{
    const auto bytes = readDesignBytes(path, codec.noun, error);
    if (!bytes)
        return std::nullopt;
    QString reason;
    auto record = decodeDesign(codec, *bytes, &reason, reach);
    if (!record && error)
        *error = designRefusal(path, codec.noun, reason);
    return record;
}

template <typename Record>
bool writeDesignFile(const DesignCodec<Record>& codec, const QString& path, const Record& record,
                     QString* error)
{
    QString reason;
    const QByteArray bytes = encodeDesigns(codec, std::vector<Record>{record}, &reason);
    if (bytes.isEmpty()) {
        if (error)
            *error = designNotSaved(path, reason);
        return false;
    }
    // Never write what we could not read back exactly.
    const auto back = decodeDesign(codec, bytes, &reason);
    if (!back || !sameBits(codec.toArchive(*back), codec.toArchive(record))) {
        if (error)
            *error = designNotSaved(path, back ? QStringLiteral("the archive did not read back unchanged")
                                               : reason);
        return false;
    }
    return writeDesignBytes(path, bytes, error);
}
