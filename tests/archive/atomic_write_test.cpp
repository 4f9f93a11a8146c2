// Whole-file writes that fail at each step leave the old file byte for byte,
// say why in the system's words and leave no temporary behind; names at the
// file-name limit can be written again and again.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "archive/atomic_write.h"

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

struct FaultGuard {
    ~FaultGuard() { clearAtomicWriteFault(); }
};

} // namespace

TEST(AtomicWrite, AFailedStepKeepsTheOldFileAndNamesTheReason)
{
    const struct {
        AtomicWriteStep step;
        int errorNumber;
    } cases[] = {
        {AtomicWriteStep::Create, EACCES}, {AtomicWriteStep::Write, ENOSPC}, {AtomicWriteStep::Write, EFBIG},
        {AtomicWriteStep::Flush, ENOSPC},  {AtomicWriteStep::Flush, EIO},    {AtomicWriteStep::Rename, EXDEV},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::strerror(c.errorNumber));
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("FA.filt"));
        ASSERT_TRUE(writeFileAtomically(path, QByteArray("old design")));
        const FaultGuard guard;
        setAtomicWriteFault(c.step, c.errorNumber);
        QString error;
        EXPECT_FALSE(writeFileAtomically(path, QByteArray(100, 'n'), &error));
        EXPECT_EQ(contents(path), QByteArray("old design"));
        EXPECT_EQ(error, QStringLiteral("“FA.filt” was not saved: %1.")
                             .arg(QString::fromLocal8Bit(std::strerror(c.errorNumber))));
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"FA.filt"});
    }
}

TEST(AtomicWrite, AFailedFolderFlushIsReportedAfterTheRename)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("FA.filt"));
    const FaultGuard guard;
    setAtomicWriteFault(AtomicWriteStep::FolderSync, EIO);
    QString error;
    EXPECT_FALSE(writeFileAtomically(path, QByteArray("new"), &error));
    EXPECT_EQ(contents(path), QByteArray("new"));
    EXPECT_TRUE(error.contains(QStringLiteral("Input/output error"))) << error.toStdString();
    EXPECT_TRUE(error.contains(QStringLiteral("power cut")));
}

TEST(AtomicWrite, NamesAtTheFileNameLimitAreWrittenTwice)
{
    QTemporaryDir dir;
    // 255 bytes in all: ASCII, and two-byte UTF-8 ending in the extension.
    for (const QString& name :
         {QString(250, u'a') + QStringLiteral(".filt"), QString(124, u'é') + QStringLiteral(".signal")}) {
        const QString path = dir.filePath(name);
        ASSERT_EQ(QFile::encodeName(name).size(), 255);
        for (const QByteArray& data : {QByteArray("first"), QByteArray("second")}) {
            QString error;
            EXPECT_TRUE(writeFileAtomically(path, data, &error)) << error.toStdString();
            EXPECT_EQ(contents(path), data);
        }
    }
}
