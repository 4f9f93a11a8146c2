// Folder listing through readdir, asking the file system about an entry only
// when the directory does not say what it is.
#include "library/folder_listing.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool isRegularFile(int folder, const dirent& entry, FolderLinks links)
{
    if (entry.d_type == DT_REG)
        return true;
    const bool link = entry.d_type == DT_LNK;
    if (entry.d_type != DT_UNKNOWN && !link)
        return false;
    if (link && links == FolderLinks::Skip)
        return false;
    struct stat info {};
    const int flags = links == FolderLinks::Skip ? AT_SYMLINK_NOFOLLOW : 0;
    return ::fstatat(folder, entry.d_name, &info, flags) == 0 && S_ISREG(info.st_mode);
}

} // namespace

QStringList regularFileNames(const QString& folder, FolderLinks links)
{
    QStringList names;
    if (folder.isEmpty())
        return names;
    DIR* dir = ::opendir(QFile::encodeName(folder).constData());
    if (!dir)
        return names;
    const int fd = ::dirfd(dir);
    while (const dirent* entry = ::readdir(dir))
        if (isRegularFile(fd, *entry, links))
            names.append(QFile::decodeName(entry->d_name));
    ::closedir(dir);
    return names;
}
