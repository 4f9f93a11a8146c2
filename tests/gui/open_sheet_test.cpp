// The open sheet's rows: which files of a library folder are listed, their
// date text, and sorting by clicking the column headers.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "widgets/design_file_listing.h"
#include "widgets/open_sheet.h"
#include "support/temp_library.h"

// Readable failure messages.
static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

// Writes `name` in `folder` with the given local modification time.
void makeFile(const QString& folder, const QString& name, const QDateTime& modified)
{
    QFile file(QDir(folder).filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    file.write("x");
    // Written out first, or closing the file would touch the date again.
    ASSERT_TRUE(file.flush());
    ASSERT_TRUE(file.setFileTime(modified, QFileDevice::FileModificationTime));
}

QDateTime at(int y, int mo, int d, int h, int mi)
{
    return QDateTime(QDate(y, mo, d), QTime(h, mi));
}

QStringList names(const QList<GVRFile>& rows)
{
    QStringList out;
    for (const GVRFile& row : rows)
        out << row.fileName();
    return out;
}

void clickHeader(QTableView* table, int column)
{
    QHeaderView* header = table->horizontalHeader();
    const QPoint centre(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, centre);
}

} // namespace

TEST(DesignFileListing, DateTextIsEnglishTwelveHourClock)
{
    EXPECT_EQ(formatFileDate(at(2010, 3, 5, 16, 7)), "Mar 5, 2010, 4:07 PM");
    EXPECT_EQ(formatFileDate(at(2023, 12, 25, 0, 30)), "Dec 25, 2023, 12:30 AM");
    EXPECT_EQ(formatFileDate(at(2001, 9, 10, 12, 5)), "Sep 10, 2001, 12:05 PM");
    EXPECT_EQ(formatFileDate(at(1999, 1, 31, 9, 59)), "Jan 31, 1999, 9:59 AM");
}

TEST(DesignFileListing, ListsOnlyFilesWithTheExtension)
{
    TempLibrary lib;
    const QString folder = lib.folder("filter");
    makeFile(folder, "lp300fc25.filt", at(2010, 3, 5, 16, 7));
    makeFile(folder, "bp.filt", at(2011, 1, 2, 3, 4));
    makeFile(folder, "notes.txt", at(2011, 1, 2, 3, 4));
    makeFile(folder, "tone.signal", at(2011, 1, 2, 3, 4));
    makeFile(folder, "filt", at(2011, 1, 2, 3, 4));
    makeFile(folder, "old.filt.bak", at(2011, 1, 2, 3, 4));
    makeFile(folder, "upper.FILT", at(2011, 1, 2, 3, 4));
    QDir(folder).mkdir("folder.filt");

    const QList<GVRFile> rows = designFilesInFolder(folder, ".filt");
    QStringList listed = names(rows);
    listed.sort();
    EXPECT_EQ(listed, QStringList({"bp.filt", "lp300fc25.filt"}));
    for (const GVRFile& row : rows) {
        if (row.fileName() == "lp300fc25.filt") {
            EXPECT_EQ(row.fileDate(), "Mar 5, 2010, 4:07 PM");
        }
    }

    QStringList bare = designNamesInFolder(folder, ".filt");
    bare.sort();
    EXPECT_EQ(bare, QStringList({"bp", "lp300fc25"}));
    EXPECT_EQ(stripExtension("lp300fc25.filt", ".filt"), "lp300fc25");
    EXPECT_EQ(stripExtension("a.filt.filt", ".filt"), "a.filt");
    EXPECT_EQ(stripExtension("plain", ".filt"), "plain");

    EXPECT_TRUE(designFilesInFolder(lib.root() + "/missing", ".filt").isEmpty());
    EXPECT_TRUE(designFilesInFolder(QString(), ".filt").isEmpty());
}
