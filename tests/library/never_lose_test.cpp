// The library's upkeep at start-up: stale save temporaries are removed (ours
// only, and only old ones); names whose file would pass the file-name limit
// are refused with the limit.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "library/design_file_io.h"
#include "library/design_library.h"
#include "library/stale_temporaries.h"
#include "support/temp_library.h"

namespace {

void writeAged(const QString& path, int ageSeconds)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("complete design");
    file.flush(); // or closing would date the file now
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-ageSeconds),
                                 QFileDevice::FileModificationTime));
}

} // namespace

TEST(StaleTemporaries, OnlyOldFilesOfOurPatternsGo)
{
    const struct {
        const char* name;
        int ageSeconds;
        bool removed;
    } cases[] = {
        {".orvana-save-Ab12Cd", 601, true}, {"FA.filt.x9YzQ1", 3600, true},
        {"lp.signal.AAAAAA", 700, true},    {"p.orvana.abcdef", 86400, true},
        {".orvana-save-Ab12Cd", 30, false}, {"FA.filt.x9YzQ1", 540, false},
        {"FA.filt", 86400, false},          {"FA.filt.bak", 86400, false},
        {"FA.filt.x9YzQ12", 86400, false},  {"notes.txt.abcdef", 86400, false},
        {".orvana-save-Ab1", 86400, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TempLibrary temp;
        DesignLibrary library(temp.root());
        ASSERT_TRUE(library.ensureFolders().isEmpty());
        const QString path = library.filterFolder() + u'/' + QString::fromLatin1(c.name);
        writeAged(path, c.ageSeconds);
        const QStringList removed = library.removeStaleTemporaries();
        EXPECT_EQ(removed, c.removed ? QStringList{path} : QStringList{});
        EXPECT_EQ(QFile::exists(path), !c.removed);
        // A link of our pattern is someone's arrangement.
        const QString link = library.filterFolder() + "/.orvana-save-Link01";
        ASSERT_TRUE(QFile::link(path, link));
        EXPECT_TRUE(library.removeStaleTemporaries().isEmpty());
    }
}

TEST(DesignNames, NamesPastTheFileNameLimitAreRefusedWithTheLimit)
{
    EXPECT_EQ(designSaveNameProblem(QStringLiteral("filter"), QString(250, u'a')), QString());
    EXPECT_EQ(designSaveNameProblem(QStringLiteral("filter"), QString(251, u'a')),
              QStringLiteral("A filter design name may be at most 250 bytes long; this one has 251."));
    EXPECT_EQ(designSaveNameProblem(QStringLiteral("signal"), QString(124, u'é')), QString());
    EXPECT_EQ(designSaveNameProblem(QStringLiteral("signal"), QString(125, u'é')),
              QStringLiteral("A signal design name may be at most 248 bytes long; this one has 250."));
}
