// Design library folders, listings and sample seeding.
#include "library/design_library.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "archive/atomic_write.h"
#include "library/folder_listing.h"
#include "library/library_location.h"
#include "library/stale_temporaries.h"
#include "library/natural_order.h"

namespace {

// Samples are small design files; anything bigger is not one of ours.
constexpr qint64 kMaxSampleBytes = 16 * 1024 * 1024;

QString quoted(const QString& text)
{
    return QStringLiteral("“%1”").arg(text);
}

QString quotedPath(const QString& path)
{
    return quoted(QDir::toNativeSeparators(path));
}

// What cannot be saved while a folder is missing, for the messages.
QString contentsOf(const QString& folderName)
{
    if (folderName == QLatin1String("filter"))
        return QStringLiteral("filter designs");
    if (folderName == QLatin1String("signal"))
        return QStringLiteral("signal designs");
    if (folderName == QLatin1String("projectOne"))
        return QStringLiteral("Sum & Filter projects");
    if (folderName == QLatin1String("projectTwo"))
        return QStringLiteral("Multirate projects");
    return QStringLiteral("designs");
}

QString systemReason(const std::error_code& error)
{
    QString text = QString::fromLocal8Bit(error.message());
    if (!text.isEmpty())
        text[0] = text[0].toLower();
    return text;
}

// Makes one folder where nothing is; a problem for anything else there.
std::optional<LibraryProblem> makeFolder(const QString& path, const QString& what, bool withParents)
{
    const QFileInfo info(path);
    if (info.isDir())
        return std::nullopt;
    if (info.exists() || info.isSymLink()) {
        // Someone's file: never moved or deleted by us.
        return LibraryProblem{
            path, QStringLiteral("The design library needs a folder at %1, but something else is there. "
                                 "It is left alone, so %2 cannot be saved until it is moved away.")
                      .arg(quotedPath(path), contentsOf(what))};
    }
    std::error_code error;
    const std::filesystem::path native(QFile::encodeName(path).toStdString());
    if (withParents)
        std::filesystem::create_directories(native, error);
    else
        std::filesystem::create_directory(native, error);
    if (!error && QFileInfo(path).isDir())
        return std::nullopt;
    if (!error)
        error = std::make_error_code(std::errc::not_a_directory);
    return LibraryProblem{path, QStringLiteral("The folder %1 could not be made (%2), so %3 cannot be saved.")
                                    .arg(quotedPath(path), systemReason(error), contentsOf(what))};
}

// A file a failed sample copy left: empty, unreadable, or the sample cut
// short (a strict prefix of it, as a full disk leaves). Anything else, even
// a file that is not a design, is the user's and stays.
bool isFailedCopy(const QString& target, const QString& source)
{
    QFile existing(target);
    if (existing.size() == 0 || !existing.open(QIODevice::ReadOnly))
        return true;
    QFile sample(source);
    if (existing.size() >= sample.size() || !sample.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = existing.readAll();
    return existing.error() != QFileDevice::NoError || sample.read(head.size()) == head;
}

} // namespace

DesignLibrary::DesignLibrary(const QString& root, QObject* parent)
    : QObject(parent), root_(QDir::cleanPath(root))
{
}

void DesignLibrary::setRoot(const QString& root)
{
    root_ = QDir::cleanPath(root);
}

QString DesignLibrary::folderName(Folder folder)
{
    switch (folder) {
    case Folder::Filter:
        return QStringLiteral("filter");
    case Folder::Signal:
        return QStringLiteral("signal");
    case Folder::ProjectOne:
        return QStringLiteral("projectOne");
    case Folder::ProjectTwo:
        return QStringLiteral("projectTwo");
    }
    return {};
}

QString DesignLibrary::extension(Folder folder)
{
    switch (folder) {
    case Folder::Filter:
        return QStringLiteral(".filt");
    case Folder::Signal:
        return QStringLiteral(".signal");
    case Folder::ProjectOne:
    case Folder::ProjectTwo:
        return QStringLiteral(".orvana");
    }
    return {};
}

DesignLibrary::Folder DesignLibrary::projectFolder(int blockDiagram)
{
    return blockDiagram == 1 ? Folder::ProjectOne : Folder::ProjectTwo;
}

QString DesignLibrary::folderPath(Folder folder) const
{
    return root_ + QLatin1Char('/') + folderName(folder);
}

QString DesignLibrary::designPath(Folder folder, const QString& name) const
{
    return folderPath(folder) + QLatin1Char('/') + name + extension(folder);
}

QList<LibraryProblem> DesignLibrary::ensureFolders() const
{
    QList<LibraryProblem> problems;
    // Without the root none of the four can be made; one message says it all.
    if (auto problem = makeFolder(root_, QString(), true)) {
        problems.append(*problem);
        return problems;
    }
    for (Folder folder : kFolders) {
        if (auto problem = makeFolder(folderPath(folder), folderName(folder), false))
            problems.append(*problem);
    }
    return problems;
}

QList<DesignFileEntry> DesignLibrary::files(Folder folder) const
{
    QList<DesignFileEntry> entries;
    const QString ext = extension(folder);
    const QDir dir(folderPath(folder));
    // Hidden files are listed too, as the platform's folder listing does.
    const QFileInfoList infos = dir.entryInfoList(QDir::Files | QDir::Hidden, QDir::Unsorted);
    for (const QFileInfo& info : infos) {
        const QString name = info.fileName();
        // ".filt" alone names no design.
        if (name.size() > ext.size() && name.endsWith(ext, Qt::CaseSensitive))
            entries.append({name, info.lastModified()});
    }
    // Natural order, whatever order the file system lists them in.
    std::stable_sort(entries.begin(), entries.end(), [](const DesignFileEntry& a, const DesignFileEntry& b) {
        return compareNaturally(a.fileName, b.fileName) < 0;
    });
    return entries;
}

QStringList DesignLibrary::designNames(Folder folder) const
{
    const qsizetype extLength = extension(folder).size();
    QStringList names = fileNames(folder);
    for (QString& name : names)
        name.chop(extLength);
    return names;
}

QStringList DesignLibrary::fileNames(Folder folder) const
{
    // Names only: no modification dates to fetch for lists of thousands.
    const QString ext = extension(folder);
    QStringList names;
    const QStringList entries = regularFileNames(folderPath(folder));
    for (const QString& name : entries)
        if (name.size() > ext.size() && name.endsWith(ext, Qt::CaseSensitive))
            names.append(name);
    std::stable_sort(names.begin(), names.end(),
                     [](const QString& a, const QString& b) { return compareNaturally(a, b) < 0; });
    return names;
}

SeedReport DesignLibrary::seedSamples(const QString& sampleFolder) const
{
    SeedReport report;
    for (const Sample& sample : kSamples) {
        const QString name = QString::fromLatin1(sample.fileName);
        const QString source = sampleFolder + QLatin1Char('/') + name;
        const QString folder = folderPath(sample.folder);
        const QString target = folder + QLatin1Char('/') + name;
        if (sampleFolder.isEmpty() || !QFileInfo(source).isFile()) {
            report.missing.append(name);
            continue;
        }
        const QFileInfo existing(target);
        bool replacing = false;
        if (existing.exists() || existing.isSymLink()) {
            // Only a plain file can be a failed copy; anything else is the user's.
            replacing = existing.isFile() && !existing.isSymLink() && isFailedCopy(target, source);
            if (!replacing) {
                report.kept.append(name);
                continue;
            }
        }
        const auto problem = [&](const QString& why) {
            report.problems.append(
                {target, QStringLiteral("The sample design %1 was not copied: %2.").arg(quoted(name), why)});
        };
        if (!QFileInfo(folder).isDir()) {
            problem(QStringLiteral("the folder %1 is missing").arg(quotedPath(folder)));
            continue;
        }
        QFile in(source);
        if (!in.open(QIODevice::ReadOnly)) {
            problem(in.errorString());
            continue;
        }
        if (in.size() > kMaxSampleBytes) {
            problem(QStringLiteral("it is larger than 16 MiB, far more than any design"));
            continue;
        }
        const QByteArray bytes = in.readAll();
        if (in.error() != QFileDevice::NoError) {
            problem(in.errorString());
            continue;
        }
        QString error;
        if (!writeFileAtomically(target, bytes, &error)) {
            report.problems.append(
                {target, QStringLiteral("The sample design %1 was not copied. %2").arg(quoted(name), error)});
            continue;
        }
        (replacing ? report.replaced : report.copied).append(name);
    }
    return report;
}

QStringList DesignLibrary::removeStaleTemporaries(const QDateTime& now) const
{
    QStringList removed;
    for (Folder folder : kFolders) {
        const QString path = folderPath(folder);
        for (const QString& name : ::removeStaleTemporaries(path, now))
            removed << path + QLatin1Char('/') + name;
    }
    return removed;
}
