#include "archive/atomic_write.h"

#include <QFileInfo>
#include <QSaveFile>

bool writeFileAtomically(const QString& path, const QByteArray& data, QString* error)
{
    QSaveFile file(path);
    // A direct write could leave half a file behind; refuse it.
    file.setDirectWriteFallback(false);
    const QString name = QFileInfo(path).fileName();
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = QStringLiteral("Cannot write \"%1\": %2").arg(name, file.errorString());
        return false;
    }
    if (file.write(data) != data.size()) {
        if (error)
            *error = QStringLiteral("Cannot write \"%1\": %2").arg(name, file.errorString());
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        if (error)
            *error = QStringLiteral("Cannot save \"%1\": %2").arg(name, file.errorString());
        return false;
    }
    return true;
}
