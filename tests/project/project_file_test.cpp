// Projects saved and opened through GVRProjectModel: the nine choices in the
// file, open checking the library for the designs named, and refusals.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "archive/atomic_write.h"
#include "archive/project_archive.h"
#include "project/project_keys.h"
#include "project/project_model.h"
#include "project/project_view.h"
#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

namespace {

class RestoringView : public ProjectView {
public:
    void displayNoteField(const QString& text, double, bool) override { note = text; }
    void plotTimeWithArray(const std::vector<double>&) override {}
    void plotFreqWithArray(const std::vector<double>&) override {}
    void restoreProjectParameters(const QVariantMap& p) override
    {
        restored = p;
        ++restores;
    }
    QString note;
    QVariantMap restored;
    int restores = 0;
};

class ProjectFile : public ::testing::Test {
protected:
    // The sample designs are made once for the whole suite.
    static void SetUpTestSuite()
    {
        samples_ = new QTemporaryDir;
        ASSERT_TRUE(makeSampleDesigns(samples_->path()).isEmpty());
    }
    static void TearDownTestSuite()
    {
        delete samples_;
        samples_ = nullptr;
    }
    void SetUp() override
    {
        ASSERT_TRUE(prepareLibrary(library, samples_->path()).isEmpty());
        model.setWinProject(&view);
    }
    QVariantMap multirate(const QString& filter, int automatic) const
    {
        return GVRProjectModel::parameterDictionary(2, filter, QStringLiteral("Cos35Fs300"),
                                                    QStringLiteral("Cos10M3Fs300"), 0, 1, 3, 2, automatic);
    }

    static QTemporaryDir* samples_;
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    RestoringView view;
    GVRProjectModel model{library};
};

QTemporaryDir* ProjectFile::samples_ = nullptr;

} // namespace

TEST_F(ProjectFile, SaveThenOpenRestoresTheNineValuesAndTheSameDesign)
{
    const QVariantMap chosen = multirate(QStringLiteral("lpNormfcp333"), 0);
    model.designProjectWithParameters(chosen);
    ASSERT_TRUE(model.validResultsFlag()) << view.note.toStdString();
    const std::vector<double> time = model.timeDomainArray();
    const QString path = library.projectPath(2, QStringLiteral("mine"));
    ASSERT_TRUE(model.saveProjectWithFilePath(path)) << model.lastFileError().toStdString();

    const auto record = readProjectFile(path);
    ASSERT_TRUE(record.has_value());
    EXPECT_EQ(record->blockDiagramNumber, 2);
    EXPECT_EQ(record->signalTwoSign, 1);
    EXPECT_EQ(record->multirateL, 3);
    EXPECT_EQ(record->multirateM, 2);
    EXPECT_EQ(record->filterName, std::string("lpNormfcp333"));

    GVRProjectModel other(library);
    RestoringView otherView;
    other.setWinProject(&otherView);
    ASSERT_TRUE(other.openProjectWithFilePath(path)) << other.lastFileError().toStdString();
    ASSERT_EQ(otherView.restores, 1);
    EXPECT_EQ(otherView.restored.size(), 9);
    for (auto it = chosen.begin(); it != chosen.end(); ++it)
        EXPECT_EQ(otherView.restored.value(it.key()).toString(), it.value().toString())
            << it.key().toStdString();

    other.designProjectWithParameters(otherView.restored);
    ASSERT_TRUE(other.validResultsFlag());
    EXPECT_EQ(other.timeDomainArray(), time);
}

TEST_F(ProjectFile, SaveRefusesWithoutValidResults)
{
    const QString path = library.projectPath(1, QStringLiteral("early"));
    EXPECT_FALSE(model.saveProjectWithFilePath(path));
    // Mismatched rates: Cos1MHz (20 MHz) with a 300 KHz filter.
    model.designProjectWithParameters(
        GVRProjectModel::parameterDictionary(1, QStringLiteral("lp300fc25"), QStringLiteral("Cos1MHz"),
                                             QStringLiteral("Cos35Fs300"), 0, 0, 1, 1, 0));
    ASSERT_FALSE(model.validResultsFlag());
    EXPECT_FALSE(model.saveProjectWithFilePath(path));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_FALSE(QFile::exists(path));

    model.designProjectWithParameters(multirate(QStringLiteral("lpNormfcp333"), 1));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_FALSE(model.saveProjectWithFilePath(QString()));
}

TEST_F(ProjectFile, OpenFailsWhenANamedDesignIsGone)
{
    model.designProjectWithParameters(multirate(QStringLiteral("lpNormfcp333"), 1));
    ASSERT_TRUE(model.validResultsFlag());
    const QString path = library.projectPath(2, QStringLiteral("auto"));
    ASSERT_TRUE(model.saveProjectWithFilePath(path));
    ASSERT_TRUE(model.openProjectWithFilePath(path));

    // The automatic filter still needs its saved filter in the library.
    ASSERT_TRUE(QFile::remove(library.filterPath(QStringLiteral("lpNormfcp333"))));
    view.restores = 0;
    EXPECT_FALSE(model.openProjectWithFilePath(path));
    EXPECT_TRUE(model.lastFileError().contains(QStringLiteral("lpNormfcp333")));
    EXPECT_EQ(view.restores, 0);

    // A signal whose file was deleted.
    GVRProject sum;
    sum.blockDiagramNumber = 1;
    sum.signalOneSign = sum.signalTwoSign = 0;
    sum.multirateL = sum.multirateM = 1;
    sum.multirateFilterType = 0;
    sum.filterName = "lp300fc25";
    sum.signalOneName = "Cos10M3Fs300";
    sum.signalTwoName = "Cos35Fs300";
    const QString sumPath = library.projectPath(1, QStringLiteral("sum"));
    ASSERT_TRUE(writeProjectFile(sumPath, sum));
    ASSERT_TRUE(model.openProjectWithFilePath(sumPath));
    ASSERT_TRUE(QFile::remove(library.signalPath(QStringLiteral("Cos35Fs300"))));
    EXPECT_FALSE(model.openProjectWithFilePath(sumPath));

    // Names compare exactly.
    sum.signalTwoName = "cos10m3fs300";
    ASSERT_TRUE(writeProjectFile(sumPath, sum));
    EXPECT_FALSE(model.openProjectWithFilePath(sumPath));
}

TEST_F(ProjectFile, OpenUsesTheLastRecordAndRefusesIncompleteOrForeignFiles)
{
    GVRProject first;
    first.blockDiagramNumber = 1;
    first.signalOneSign = first.signalTwoSign = 0;
    first.multirateL = first.multirateM = 1;
    first.multirateFilterType = 0;
    first.filterName = "lp300fc25";
    first.signalOneName = "Cos10M3Fs300";
    first.signalTwoName = "Cos35Fs300";
    GVRProject second = first;
    second.signalOneSign = 1;
    second.signalTwoName = "Cos10M3Fs300";
    const QString path = library.projectPath(1, QStringLiteral("two"));
    ASSERT_TRUE(writeFileAtomically(path, encodeProjectArchive({first, second})));
    ASSERT_TRUE(model.openProjectWithFilePath(path));
    EXPECT_EQ(view.restored.value(KEYMOD_SIG_ONE_SIGN).toInt(), 1);
    EXPECT_EQ(view.restored.value(KEYMOD_SIG_TWO_NAME).toString(), QStringLiteral("Cos10M3Fs300"));

    GVRProject partial = first;
    partial.multirateM.reset();
    ASSERT_TRUE(writeFileAtomically(path, encodeProjectArchive(partial)));
    view.restores = 0;
    EXPECT_FALSE(model.openProjectWithFilePath(path));
    // A filter file is not a project.
    EXPECT_FALSE(model.openProjectWithFilePath(library.filterPath(QStringLiteral("lp300fc25"))));
    EXPECT_FALSE(model.openProjectWithFilePath(library.projectPath(1, QStringLiteral("missing"))));
    EXPECT_FALSE(model.openProjectWithFilePath(QString()));
    EXPECT_EQ(view.restores, 0);
    EXPECT_FALSE(model.lastFileError().isEmpty());
}
