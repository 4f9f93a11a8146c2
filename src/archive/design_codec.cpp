// File side of the design codecs: size cap, messages, atomic writes.
#include "archive/design_codec.h"

#include <QFile>
#include <QFileInfo>

#include "archive/atomic_write.h"
#include "archive/binary_plist.h"

namespace {

QString quotedName(const QString& path)
{
    return QStringLiteral("“%1”").arg(QFileInfo(path).fileName());
}

} // namespace

QString designRefusal(const QString& path, const char* noun, const QString& reason)
{
    const QString subject = path.isEmpty() ? QStringLiteral("This") : quotedName(path);
    return QStringLiteral("%1 is not an Orvana %2: %3.").arg(subject, QLatin1String(noun), reason);
}

QString designNotSaved(const QString& path, const QString& reason)
{
    return QStringLiteral("%1 was not saved: %2.").arg(quotedName(path), reason);
}

std::optional<QByteArray> readDesignBytes(const QString& path, const char* noun, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("%1 cannot be opened: %2.").arg(quotedName(path), file.errorString());
        return std::nullopt;
    }
    const auto tooLarge = [&] {
        if (error)
            *error = designRefusal(path, noun,
                                   QStringLiteral("it is larger than 16 MiB, far more than any design"));
        return std::nullopt;
    };
    // The cap is checked before reading, and a plain file is read by its size:
    // reserving the whole cap for every file made a large library slow.
    if (file.size() > BinaryPlist::kMaxBytes)
        return tooLarge();
    QByteArray bytes;
    if (file.isSequential()) {
        // A pipe or device reports no size; reading one byte past the cap tells.
        bytes = file.read(BinaryPlist::kMaxBytes + 1);
    } else {
        bytes.resize(file.size());
        const qint64 got = file.read(bytes.data(), bytes.size());
        bytes.resize(got < 0 ? 0 : got);
        // A file that grew since its size was taken is read on, up to the cap.
        if (got >= 0 && !file.atEnd())
            bytes += file.read(BinaryPlist::kMaxBytes + 1 - bytes.size());
    }
    if (file.error() != QFileDevice::NoError) {
        if (error)
            *error = QStringLiteral("%1 cannot be read: %2.").arg(quotedName(path), file.errorString());
        return std::nullopt;
    }
    if (bytes.size() > BinaryPlist::kMaxBytes)
        return tooLarge();
    return bytes;
}

bool writeDesignBytes(const QString& path, const QByteArray& bytes, QString* error)
{
    QString reason;
    if (writeFileAtomically(path, bytes, &reason))
        return true;
    if (error)
        *error = reason;
    return false;
}
