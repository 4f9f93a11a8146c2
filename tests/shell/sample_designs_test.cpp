// The thirteen sample designs made by the build are read by the archive
// readers (both sample projects design without a rate error in the project
// window and menu tests), and broken copies of them are replaced.
#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>

#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"
#include "archive/atomic_write.h"
#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

TEST(SampleDesigns, BuiltFolderHoldsAllThirteenReadableDesigns)
{
    // The folder the build made beside the programs.
    const QString folder =
        QFileInfo(QStringLiteral(ORVANA_CLI_PATH)).absolutePath() + "/../share/orvana/samples";
    for (const DesignLibrary::Sample& sample : DesignLibrary::kSamples) {
        const QString path = folder + u'/' + QString::fromLatin1(sample.fileName);
        QString error;
        const bool readable =
            sample.folder == DesignLibrary::Folder::Filter   ? bool(readFilterFile(path, &error))
            : sample.folder == DesignLibrary::Folder::Signal ? bool(readSignalFile(path, &error))
                                                             : bool(readProjectFile(path, &error));
        EXPECT_TRUE(readable) << sample.fileName << ": " << error.toStdString();
    }
}

// Sample-named files that a failed copy left (empty, or cut off by a full
// disk) are copied again at the next start; a user's file never is.
TEST(SampleSeeding, EmptyOrBrokenSampleFilesAreCopiedAgain)
{
    TempLibrary temp;
    const QString sampleFolder = temp.folder(QStringLiteral("samples"));
    ASSERT_TRUE(makeSampleDesigns(sampleFolder).isEmpty());
    const QByteArray sample = [&] {
        QFile f(sampleFolder + QStringLiteral("/lp300fc25.filt"));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }();
    ASSERT_FALSE(sample.isEmpty());

    const struct {
        const char* what;
        QByteArray existing;
        bool replaced;
    } cases[] = {
        {"empty", QByteArray(), true},
        {"cut off by a full disk", sample.left(sample.size() / 2), true},
        {"the user's own design", sample, false},
        {"the user's own text", QByteArray("notes"), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        DesignLibrary library(temp.root() + u'/' + QString::fromLatin1(c.what));
        ASSERT_TRUE(library.ensureFolders().isEmpty());
        const QString target = library.filterPath(QStringLiteral("lp300fc25"));
        ASSERT_TRUE(writeFileAtomically(target, c.existing));
        const SeedReport report = library.seedSamples(sampleFolder);
        EXPECT_EQ(report.replaced.contains(QStringLiteral("lp300fc25.filt")), c.replaced);
        QFile after(target);
        ASSERT_TRUE(after.open(QIODevice::ReadOnly));
        EXPECT_EQ(after.readAll(), c.replaced ? sample : c.existing);
    }
}
