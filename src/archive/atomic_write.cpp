// Atomic whole-file writes over POSIX calls. QSaveFile is not used: it
// buffers small writes, so a full disk shows only in commit(), and Qt 6.4
// renames the cut-off temporary over the old file anyway. Its temporary name
// (the file's own name plus seven characters) also makes a name near the
// 255-byte limit impossible to save a second time.
#include "archive/atomic_write.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

namespace {

struct Fault {
    AtomicWriteStep step;
    int errorNumber;
};
std::optional<Fault> g_fault;

// True when the test seam makes `step` fail; errno is then set.
bool faulted(AtomicWriteStep step)
{
    if (!g_fault || g_fault->step != step)
        return false;
    errno = g_fault->errorNumber;
    return true;
}

QString systemReason(int errorNumber)
{
    return QString::fromLocal8Bit(std::strerror(errorNumber));
}

QString quotedName(const QString& path)
{
    return QStringLiteral("“%1”").arg(QFileInfo(path).fileName());
}

bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

bool writeAll(int fd, const char* data, qint64 size)
{
    if (faulted(AtomicWriteStep::Write))
        return false;
    while (size > 0) {
        const ssize_t done = ::write(fd, data, static_cast<size_t>(size));
        if (done < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (done == 0) {
            errno = EIO;
            return false;
        }
        data += done;
        size -= done;
    }
    return true;
}

// The permissions the old file had, or the usual ones for a new file.
mode_t modeFor(const QByteArray& target)
{
    struct stat info {};
    if (::stat(target.constData(), &info) == 0)
        return info.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

void setAtomicWriteFault(AtomicWriteStep step, int errorNumber)
{
    g_fault = Fault{step, errorNumber};
}

void clearAtomicWriteFault()
{
    g_fault.reset();
}

bool writeFileAtomically(const QString& path, const QByteArray& data, QString* error)
{
    const QString name = quotedName(path);
    const QString folder = QFileInfo(path).absolutePath();
    const QByteArray target = QFile::encodeName(QFileInfo(path).absoluteFilePath());
    const QByteArray folderBytes = QFile::encodeName(folder);
    if (QFileInfo(path).isDir())
        return fail(error,
                    QStringLiteral("%1 was not saved: a folder of that name is in the way.").arg(name));

    QByteArray temporary = folderBytes + '/' + kAtomicWriteTemporaryPrefix + "XXXXXX";
    const int fd = faulted(AtomicWriteStep::Create) ? -1 : ::mkstemp(temporary.data());
    if (fd < 0)
        return fail(error, QStringLiteral("%1 was not saved: %2.").arg(name, systemReason(errno)));
    const auto abandon = [&](int errorNumber) {
        ::unlink(temporary.constData());
        return fail(error, QStringLiteral("%1 was not saved: %2.").arg(name, systemReason(errorNumber)));
    };
    // mkstemp makes the file 0600; a design keeps the permissions files get.
    if (::fchmod(fd, modeFor(target)) != 0 || !writeAll(fd, data.constData(), data.size())) {
        const int saved = errno;
        ::close(fd);
        return abandon(saved);
    }
    // fsync reports what the file system could not store (a full disk, a
    // quota); only after it do we know every byte is there.
    if (faulted(AtomicWriteStep::Flush) || ::fsync(fd) != 0) {
        const int saved = errno;
        ::close(fd);
        return abandon(saved);
    }
    if (::close(fd) != 0)
        return abandon(errno);
    if (faulted(AtomicWriteStep::Rename) || ::rename(temporary.constData(), target.constData()) != 0)
        return abandon(errno);

    const int folderFd = ::open(folderBytes.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    bool synced = folderFd >= 0 && !faulted(AtomicWriteStep::FolderSync) && ::fsync(folderFd) == 0;
    const int saved = errno;
    if (folderFd >= 0)
        ::close(folderFd);
    if (!synced)
        return fail(error, QStringLiteral("%1 was written, but its folder could not be flushed to disk (%2): "
                                          "the save may not survive a power cut.")
                               .arg(name, systemReason(saved)));
    return true;
}
