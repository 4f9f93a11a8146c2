// Design library: folder creation, paths, listings and sample seeding.
#include "library/design_library.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using Folder = DesignLibrary::Folder;

void writeText(const QString& path, const QByteArray& text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(text);
}

QByteArray readText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

class DesignLibraryTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    // A root two levels below an existing folder, as on a first launch.
    QString root = dir.path() + QStringLiteral("/data/Orvana");
    DesignLibrary library{root};
};

TEST_F(DesignLibraryTest, FirstLaunchMakesRootAndFourFolders)
{
    EXPECT_TRUE(library.ensureFolders().isEmpty());
    for (Folder folder : DesignLibrary::kFolders)
        EXPECT_TRUE(QFileInfo(library.folderPath(folder)).isDir())
            << library.folderPath(folder).toStdString();
    // Every launch runs it again; existing folders and their files stay.
    writeText(library.filterPath("mine"), "kept");
    EXPECT_TRUE(library.ensureFolders().isEmpty());
    EXPECT_EQ(readText(library.filterPath("mine")), "kept");
}

TEST_F(DesignLibraryTest, PlainFilesInPlaceOfFoldersAreLeftAloneAndReported)
{
    ASSERT_TRUE(QDir().mkpath(root));
    writeText(root + "/signal", "not a folder");
    const QList<LibraryProblem> problems = library.ensureFolders();
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems[0].path, root + "/signal");
    EXPECT_TRUE(problems[0].message.contains("signal designs cannot be saved"))
        << problems[0].message.toStdString();
    EXPECT_EQ(readText(root + "/signal"), "not a folder");
    EXPECT_TRUE(QFileInfo(library.folderPath(Folder::ProjectTwo)).isDir());
    EXPECT_FALSE(QFileInfo(library.signalPath("x")).exists());

    // A root that cannot be made is one problem.
    DesignLibrary blocked(root + "/signal/Orvana");
    const QList<LibraryProblem> blockedProblems = blocked.ensureFolders();
    ASSERT_EQ(blockedProblems.size(), 1);
    EXPECT_EQ(blockedProblems[0].path, root + "/signal/Orvana");
    EXPECT_TRUE(blockedProblems[0].message.startsWith("The folder “"))
        << blockedProblems[0].message.toStdString();
    EXPECT_EQ(readText(root + "/signal"), "not a folder");
}

TEST_F(DesignLibraryTest, ReadOnlyRootReportsEachFolder)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "permissions do not bind the superuser";
    ASSERT_TRUE(QDir().mkpath(root));
    ASSERT_TRUE(QFile::setPermissions(root, QFile::ReadOwner | QFile::ExeOwner));
    const QList<LibraryProblem> problems = library.ensureFolders();
    QFile::setPermissions(root, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_EQ(problems.size(), 4);
    EXPECT_TRUE(problems[0].message.contains("could not be made")) << problems[0].message.toStdString();
    EXPECT_TRUE(problems[3].message.contains("Multirate projects"));
}

TEST_F(DesignLibraryTest, ListingIsInNaturalOrderAndOnlyItsExtension)
{
    EXPECT_TRUE(library.files(Folder::ProjectOne).isEmpty()); // a missing folder lists nothing
    EXPECT_TRUE(library.designNames(Folder::Signal).isEmpty());
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    const QString folder = library.folderPath(Folder::Filter);
    for (const char* name : {"b.filt", "a.filt", ".hidden.filt", "c.filt.bak", "d.FILT", ".filt", "e.signal"})
        writeText(folder + "/" + name, name);
    ASSERT_TRUE(QDir(folder).mkdir("folder.filt"));
    ASSERT_TRUE(QFile::link(folder + "/b.filt", folder + "/linked.filt"));
    ASSERT_TRUE(QFile::link(folder + "/none", folder + "/dangling.filt"));
    const QDateTime when(QDate(2010, 3, 5), QTime(16, 7, 0));
    QFile stamped(folder + "/a.filt");
    ASSERT_TRUE(stamped.open(QIODevice::ReadWrite));
    ASSERT_TRUE(stamped.setFileTime(when, QFileDevice::FileModificationTime));
    stamped.close();

    // Natural order, whatever order the file system lists them in.
    QStringList expected{".hidden.filt", "a.filt", "b.filt", "linked.filt"};
    const QList<DesignFileEntry> entries = library.files(Folder::Filter);
    QStringList names;
    for (const DesignFileEntry& entry : entries) {
        names.append(entry.fileName);
        if (entry.fileName == "a.filt") {
            EXPECT_EQ(entry.modified, when);
        }
    }
    EXPECT_EQ(names, expected);

    EXPECT_EQ(library.designNames(Folder::Filter),
              expected.replaceInStrings(QStringLiteral(".filt"), QString()));
}

// A resource folder holding the thirteen samples, each with its own bytes.
QString makeSamples(const QTemporaryDir& dir)
{
    const QString samples = dir.path() + "/resources";
    QDir().mkpath(samples);
    for (const auto& sample : DesignLibrary::kSamples)
        writeText(samples + "/" + sample.fileName, QByteArray("sample ") + sample.fileName);
    writeText(samples + "/OrvanaUserManual.pdf", "not a design");
    return samples;
}

TEST_F(DesignLibraryTest, SeedingCopiesSamplesButNeverReplacesTheUsersFile)
{
    const QString samples = makeSamples(dir);
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    writeText(library.filterPath("lp300fc25"), "the user's own design");
    SeedReport report = library.seedSamples(samples);
    EXPECT_EQ(report.copied.size(), 12);
    EXPECT_EQ(report.kept, QStringList{"lp300fc25.filt"});
    EXPECT_TRUE(report.missing.isEmpty() && report.problems.isEmpty());
    for (const auto& sample : DesignLibrary::kSamples) {
        const QByteArray own = QByteArray(sample.fileName) == "lp300fc25.filt"
                                   ? "the user's own design"
                                   : QByteArray("sample ") + sample.fileName;
        EXPECT_EQ(readText(library.folderPath(sample.folder) + "/" + sample.fileName), own);
    }
    EXPECT_EQ(library.designNames(Folder::ProjectOne), QStringList{"Cos10M3andCos35"});
    EXPECT_EQ(library.designNames(Folder::ProjectTwo), QStringList{"multirateUser300to450"});
    EXPECT_FALSE(QFileInfo::exists(library.folderPath(Folder::Filter) + "/OrvanaUserManual.pdf"));

    // Next launch: the user deleted one sample; it comes back, nothing else changes.
    QFile::remove(library.signalPath("Cos1MHz"));
    report = library.seedSamples(samples);
    EXPECT_EQ(report.copied, QStringList{"Cos1MHz.signal"});
    EXPECT_EQ(report.kept.size(), 12);
    EXPECT_EQ(readText(library.filterPath("lp300fc25")), "the user's own design");
}

TEST_F(DesignLibraryTest, SeedingReportsMissingSamplesAndFolders)
{
    const QString samples = makeSamples(dir);
    QFile::remove(samples + "/Cos35Fs300.signal");
    ASSERT_TRUE(QDir().mkpath(root));
    writeText(root + "/projectTwo", "in the way");
    library.ensureFolders();
    const SeedReport report = library.seedSamples(samples);
    EXPECT_EQ(report.missing, QStringList{"Cos35Fs300.signal"});
    ASSERT_EQ(report.problems.size(), 1);
    EXPECT_TRUE(report.problems[0].message.startsWith(
        "The sample design “multirateUser300to450.orvana” was not copied"))
        << report.problems[0].message.toStdString();
    EXPECT_EQ(readText(root + "/projectTwo"), "in the way");
    EXPECT_EQ(report.copied.size(), 11);

    // No resource folder at all: nothing copied, nothing broken.
    const SeedReport none = library.seedSamples(dir.path() + "/no-such-folder");
    EXPECT_EQ(none.missing.size(), 13);
    EXPECT_TRUE(none.copied.isEmpty());
    EXPECT_EQ(library.seedSamples(QString()).missing.size(), 13);
}

} // namespace
