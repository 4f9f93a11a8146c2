// DesignSource over the library folders.
#include "library/library_design_source.h"

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "library/design_library.h"

namespace {

QString refusedName(const QString& name)
{
    return QStringLiteral("“%1” is not a design name.").arg(name);
}

} // namespace

LibraryDesignSource::LibraryDesignSource(const DesignLibrary& library) : library_(library) {}

bool LibraryDesignSource::isPlainName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')) && !name.contains(QChar(0));
}

std::optional<GVRSignal> LibraryDesignSource::signalRecord(const QString& name) const
{
    if (!isPlainName(name)) {
        lastError_ = refusedName(name);
        return std::nullopt;
    }
    lastError_.clear();
    return readSignalFile(library_.signalPath(name), &lastError_);
}

std::optional<GVRFilter> LibraryDesignSource::filterRecord(const QString& name) const
{
    if (!isPlainName(name)) {
        lastError_ = refusedName(name);
        return std::nullopt;
    }
    lastError_.clear();
    return readFilterFile(library_.filterPath(name), &lastError_);
}

QStringList LibraryDesignSource::signalNames() const
{
    return library_.designNames(DesignLibrary::Folder::Signal);
}

QStringList LibraryDesignSource::filterNames() const
{
    return library_.designNames(DesignLibrary::Folder::Filter);
}
