// Placing an outside design file in the library.
#include "library/design_file_import.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "archive/atomic_write.h"
#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DesignFileImport", text);
}

bool sameFile(const QString& a, const QString& b)
{
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

} // namespace

std::optional<DesignLibrary::Folder> folderForDesignFile(const QString& path)
{
    const QString suffix = QLatin1Char('.') + QFileInfo(path).suffix();
    for (DesignLibrary::Folder folder :
         {DesignLibrary::Folder::Filter, DesignLibrary::Folder::Signal, DesignLibrary::Folder::ProjectOne})
        if (suffix == DesignLibrary::extension(folder))
            return folder;
    return std::nullopt;
}

std::optional<DesignFileTarget> placeDesignFileInLibrary(const DesignLibrary& library, const QString& path,
                                                         QString* error)
{
    auto fail = [error](const QString& why) -> std::optional<DesignFileTarget> {
        if (error)
            *error = why;
        return std::nullopt;
    };
    const QFileInfo info(path);
    std::optional<DesignLibrary::Folder> folder = folderForDesignFile(path);
    if (!folder)
        return fail(tr("\"%1\" is not an Orvana design: its name must end in .filt, .signal or .orvana.")
                        .arg(info.fileName()));
    if (!info.isFile())
        return fail(tr("\"%1\" does not exist or is not a file.").arg(QDir::toNativeSeparators(path)));

    // The file is read as its kind before anything is copied.
    QString readError;
    bool readable = false;
    if (*folder == DesignLibrary::Folder::Filter) {
        readable = readFilterFile(path, &readError).has_value();
    } else if (*folder == DesignLibrary::Folder::Signal) {
        readable = readSignalFile(path, &readError).has_value();
    } else if (const std::optional<GVRProject> project = readProjectFile(path, &readError)) {
        readable = true;
        folder = DesignLibrary::projectFolder(static_cast<int>(project->blockDiagramNumber.value_or(1)));
    }
    if (!readable)
        return fail(readError.isEmpty() ? tr("\"%1\" could not be read.").arg(info.fileName()) : readError);

    const QString base = info.completeBaseName();
    if (sameFile(path, library.designPath(*folder, base)))
        return DesignFileTarget{*folder, base, false};

    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        return fail(tr("\"%1\" could not be read: %2").arg(info.fileName(), source.errorString()));
    const QByteArray bytes = source.readAll();
    // A file of the same name stays; an identical one is simply used.
    for (int n = 1; n < 1000; ++n) {
        const QString name = n == 1 ? base : QStringLiteral("%1 %2").arg(base).arg(n);
        const QString target = library.designPath(*folder, name);
        QFile existing(target);
        if (existing.exists()) {
            if (existing.open(QIODevice::ReadOnly) && existing.readAll() == bytes)
                return DesignFileTarget{*folder, name, false};
            continue;
        }
        QString writeError;
        if (!writeFileAtomically(target, bytes, &writeError))
            return fail(writeError);
        return DesignFileTarget{*folder, name, true};
    }
    return fail(tr("There is no free name for \"%1\" in the design library.").arg(info.fileName()));
}
