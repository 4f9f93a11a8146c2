// File identities from stat().
#include "library/file_identity.h"

#include <sys/stat.h>

#include <QFile>

std::optional<FileIdentity> fileIdentity(const QString& path)
{
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return std::nullopt;
    return FileIdentity{static_cast<unsigned long long>(info.st_dev),
                        static_cast<unsigned long long>(info.st_ino), static_cast<long long>(info.st_size),
                        static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec};
}
