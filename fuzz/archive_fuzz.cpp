// libFuzzer target over the three design-file decoders. Any input must give
// a record or a refusal with a reason; crashes and sanitizer reports are bugs.
#include <cstddef>
#include <cstdint>

#include <QByteArray>
#include <QString>

#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QString error;
    if (const auto filter = decodeFilterArchive(bytes, &error)) {
        // What decodes must encode and decode again to the same record.
        const auto again = decodeFilterArchive(encodeFilterArchive(*filter), &error);
        if (!again)
            __builtin_trap();
    } else if (error.isEmpty()) {
        __builtin_trap();
    }
    error.clear();
    if (const auto signal = decodeSignalArchive(bytes, &error)) {
        if (!decodeSignalArchive(encodeSignalArchive(*signal), &error))
            __builtin_trap();
    } else if (error.isEmpty()) {
        __builtin_trap();
    }
    error.clear();
    if (const auto project = decodeProjectArchive(bytes, &error)) {
        if (!decodeProjectArchive(encodeProjectArchive(*project), &error))
            __builtin_trap();
    } else if (error.isEmpty()) {
        __builtin_trap();
    }
    return 0;
}
