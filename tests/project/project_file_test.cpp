// Projects saved and opened through GVRProjectModel: the nine choices in the
// file, open checking the library for the designs named, and refusals.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "archive/atomic_write.h"
#include "archive/project_archive.h"
#include "library/design_library.h"
#include "project/project_keys.h"
#include "project/project_model.h"
#include "recording_project_view.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

namespace {

class ProjectFile : public ::testing::Test {
protected:
    // The sample designs are made once for the whole suite.
    static void SetUpTestSuite()
    {
        samples_ = new QTemporaryDir;
        ASSERT_TRUE(makeSampleDesigns(samples_->path()).isEmpty());
    }
    static void TearDownTestSuite() { delete std::exchange(samples_, nullptr); }
    void SetUp() override
    {
        ASSERT_TRUE(prepareLibrary(library, samples_->path()).isEmpty());
        model.setWinProject(&view);
    }
    static QVariantMap multirate(int automatic)
    {
        return GVRProjectModel::parameterDictionary(2, "lpNormfcp333", "Cos35Fs300", "Cos10M3Fs300", 0, 1, 3,
                                                    2, automatic);
    }
    // A Sum & Filter project of two sample signals and a sample filter.
    static GVRProject sum()
    {
        GVRProject p;
        p.blockDiagramNumber = 1;
        p.signalOneSign = p.signalTwoSign = 0;
        p.multirateL = p.multirateM = 1;
        p.multirateFilterType = 0;
        p.filterName = "lp300fc25";
        p.signalOneName = "Cos10M3Fs300";
        p.signalTwoName = "Cos35Fs300";
        return p;
    }

    static inline QTemporaryDir* samples_ = nullptr;
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    RecordingProjectView view;
    GVRProjectModel model{library};
};

} // namespace

TEST_F(ProjectFile, SaveThenOpenRestoresTheNineValuesAndTheSameDesign)
{
    const QVariantMap chosen = multirate(0);
    model.designProjectWithParameters(chosen);
    ASSERT_TRUE(model.validResultsFlag());
    const QString path = library.projectPath(2, QStringLiteral("mine"));
    ASSERT_TRUE(model.saveProjectWithFilePath(path)) << model.lastFileError().toStdString();

    const auto record = readProjectFile(path);
    ASSERT_TRUE(record.has_value());
    EXPECT_TRUE(record->blockDiagramNumber == 2 && record->signalOneSign == 0 && record->signalTwoSign == 1);
    EXPECT_TRUE(record->multirateL == 3 && record->multirateM == 2);
    EXPECT_EQ(record->filterName, std::string("lpNormfcp333"));

    GVRProjectModel other(library);
    RecordingProjectView otherView;
    other.setWinProject(&otherView);
    ASSERT_TRUE(other.openProjectWithFilePath(path)) << other.lastFileError().toStdString();
    ASSERT_EQ(otherView.restores, 1);
    EXPECT_EQ(otherView.restored.size(), 9);
    for (auto it = chosen.begin(); it != chosen.end(); ++it)
        EXPECT_EQ(otherView.restored.value(it.key()).toString(), it.value().toString())
            << it.key().toStdString();
    other.designProjectWithParameters(otherView.restored);
    ASSERT_TRUE(other.validResultsFlag());
    EXPECT_EQ(other.timeDomainArray(), model.timeDomainArray());
}

TEST_F(ProjectFile, SaveRefusesWithoutValidResults)
{
    const QString path = library.projectPath(1, QStringLiteral("early"));
    EXPECT_FALSE(model.saveProjectWithFilePath(path));
    // Mismatched rates: Cos1MHz (20 MHz) with a 300 KHz filter.
    model.designProjectWithParameters(
        GVRProjectModel::parameterDictionary(1, "lp300fc25", "Cos1MHz", "Cos35Fs300", 0, 0, 1, 1, 0));
    ASSERT_FALSE(model.validResultsFlag());
    EXPECT_FALSE(model.saveProjectWithFilePath(path));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_FALSE(QFile::exists(path));
    model.designProjectWithParameters(multirate(1));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_FALSE(model.saveProjectWithFilePath(QString()));
}

TEST_F(ProjectFile, OpenFailsWhenANamedDesignIsGone)
{
    model.designProjectWithParameters(multirate(1));
    const QString path = library.projectPath(2, QStringLiteral("auto"));
    ASSERT_TRUE(model.saveProjectWithFilePath(path));
    ASSERT_TRUE(model.openProjectWithFilePath(path));
    // The automatic filter still needs its saved filter in the library.
    ASSERT_TRUE(QFile::remove(library.filterPath(QStringLiteral("lpNormfcp333"))));
    view.restores = 0;
    EXPECT_FALSE(model.openProjectWithFilePath(path));
    EXPECT_TRUE(model.lastFileError().contains(QStringLiteral("lpNormfcp333")));
    EXPECT_EQ(view.restores, 0);

    GVRProject p = sum();
    const QString sumPath = library.projectPath(1, QStringLiteral("sum"));
    ASSERT_TRUE(writeProjectFile(sumPath, p));
    ASSERT_TRUE(model.openProjectWithFilePath(sumPath));
    p.signalTwoName = "cos35fs300"; // names compare exactly
    ASSERT_TRUE(writeProjectFile(sumPath, p));
    EXPECT_FALSE(model.openProjectWithFilePath(sumPath));
    ASSERT_TRUE(writeProjectFile(sumPath, sum()));
    ASSERT_TRUE(QFile::remove(library.signalPath(QStringLiteral("Cos35Fs300"))));
    EXPECT_FALSE(model.openProjectWithFilePath(sumPath));
}

TEST_F(ProjectFile, OpenUsesTheLastRecordAndRefusesIncompleteOrForeignFiles)
{
    GVRProject second = sum();
    second.signalOneSign = 1;
    second.signalTwoName = "Cos10M3Fs300";
    const QString path = library.projectPath(1, QStringLiteral("two"));
    ASSERT_TRUE(writeFileAtomically(path, encodeProjectArchive({sum(), second})));
    ASSERT_TRUE(model.openProjectWithFilePath(path));
    EXPECT_EQ(view.restored.value(KEYMOD_SIG_ONE_SIGN).toInt(), 1);
    EXPECT_EQ(view.restored.value(KEYMOD_SIG_TWO_NAME).toString(), QStringLiteral("Cos10M3Fs300"));

    GVRProject partial = sum();
    partial.multirateM.reset();
    ASSERT_TRUE(writeFileAtomically(path, encodeProjectArchive(partial)));
    view.restores = 0;
    // Incomplete, a filter file (not a project), missing, no name.
    for (const QString& p : {path, library.filterPath(QStringLiteral("lp300fc25")),
                             library.projectPath(1, QStringLiteral("missing")), QString()}) {
        EXPECT_FALSE(model.openProjectWithFilePath(p)) << p.toStdString();
        EXPECT_FALSE(model.lastFileError().isEmpty());
    }
    EXPECT_EQ(view.restores, 0);
}
