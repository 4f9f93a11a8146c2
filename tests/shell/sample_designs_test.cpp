// The thirteen sample designs: made by the build, read back as designs of
// what their names say, copied into a library without replacing a user's
// file, and the two sample projects designing without a rate error.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "archive/atomic_write.h"
#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"
#include "project/project_keys.h"
#include "project/project_model.h"
#include "project/project_view.h"
#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

namespace {

// The folder the build made beside the programs.
QString builtSampleFolder()
{
    return QDir::cleanPath(QFileInfo(QStringLiteral(ORVANA_CLI_PATH)).absolutePath() +
                           QStringLiteral("/../share/orvana/samples"));
}

class NoteView : public ProjectView {
public:
    void displayNoteField(const QString& text, double, bool) override { note = text; }
    void plotTimeWithArray(const std::vector<double>&) override {}
    void plotFreqWithArray(const std::vector<double>&) override {}
    void restoreProjectParameters(const QVariantMap& p) override { restored = p; }
    QString note;
    QVariantMap restored;
};

} // namespace

TEST(SampleDesigns, BuiltFolderHoldsAllThirteenReadableDesigns)
{
    const QString folder = builtSampleFolder();
    for (const DesignLibrary::Sample& sample : DesignLibrary::kSamples) {
        const QString path = folder + u'/' + QString::fromLatin1(sample.fileName);
        QString error;
        bool readable = false;
        switch (sample.folder) {
        case DesignLibrary::Folder::Filter:
            readable = readFilterFile(path, &error).has_value();
            break;
        case DesignLibrary::Folder::Signal:
            readable = readSignalFile(path, &error).has_value();
            break;
        default:
            readable = readProjectFile(path, &error).has_value();
            break;
        }
        EXPECT_TRUE(readable) << sample.fileName << ": " << error.toStdString();
    }
}

TEST(SampleDesigns, EachDesignIsWhatItsNameSays)
{
    QTemporaryDir dir;
    ASSERT_TRUE(makeSampleDesigns(dir.path()).isEmpty());
    const auto filter = [&](const char* name) {
        return readFilterFile(dir.path() + u'/' + QLatin1String(name) + QStringLiteral(".filt"))
            .value_or(GVRFilter{});
    };
    const auto signal = [&](const char* name) {
        return readSignalFile(dir.path() + u'/' + QLatin1String(name) + QStringLiteral(".signal"))
            .value_or(GVRSignal{});
    };

    const GVRFilter lp300 = filter("lp300fc25");
    EXPECT_EQ(lp300.filterType, 0);
    EXPECT_EQ(lp300.unitsType, 1);
    EXPECT_EQ(lp300.dfThetaSamplingFreq, 300.0);
    EXPECT_DOUBLE_EQ(*lp300.dfThetaCutoffFreqNormalized, 25.0 / 150.0);
    EXPECT_EQ(lp300.filterWidth, 5);
    const GVRFilter hp = filter("hp20fc5cheby3p5");
    EXPECT_EQ(hp.filterType, 2);
    EXPECT_EQ(hp.windowType, 10);
    EXPECT_EQ(hp.dfBetaUpsilon, 3.5);
    EXPECT_DOUBLE_EQ(*hp.dfThetaCutoffFreqNormalized, 1.0 - 5.0 / 10.0);
    const GVRFilter bp = filter("bp50fc3fcntr15");
    EXPECT_EQ(bp.filterType, 1);
    EXPECT_DOUBLE_EQ(*bp.dfThetaCenterFreqNormalized, 15.0 / 25.0);
    EXPECT_EQ(bp.filterWidth, 9);
    const GVRFilter kaiser = filter("lpNormfcp333");
    EXPECT_EQ(kaiser.unitsType, 0);
    EXPECT_EQ(kaiser.windowType, 9);
    EXPECT_DOUBLE_EQ(*kaiser.dfThetaCutoffFreqNormalized, 0.333);
    EXPECT_EQ(filter("bpNormFcp5Fcutp025").filterWidth, 0);
    EXPECT_EQ(filter("lp20fc2cheby4").dfBetaUpsilon, 4.0);

    const GVRSignal cos35 = signal("Cos35Fs300");
    EXPECT_EQ(cos35.freqUnits, 1);
    EXPECT_EQ(cos35.samplingFreq, 300.0);
    EXPECT_EQ(cos35.parm2, 35.0);
    EXPECT_EQ(signal("Cos10M3Fs300").yStepIndex, 2.0);
    EXPECT_EQ(signal("Cos10M3Fs300").parm4, 3.0);
    EXPECT_EQ(signal("NoisyCosine3MHz").parm4, 0.2);
    EXPECT_EQ(signal("Mixer25MHz5MHz").yStepIndex, 7.0);
    EXPECT_EQ(signal("Mixer25MHz5MHz").samplingFreq, 100.0);
    EXPECT_EQ(signal("Cos1MHz").freqUnits, 0);
}

TEST(SampleDesigns, PreparingALibraryCopiesThemAndKeepsTheUsersFiles)
{
    TempLibrary temp;
    DesignLibrary library(temp.root() + QStringLiteral("/deep/Orvana"));
    const QString folder = builtSampleFolder();
    ASSERT_TRUE(prepareLibrary(library, folder).isEmpty());
    EXPECT_EQ(library.designNames(DesignLibrary::Folder::Signal).size(), 5);
    EXPECT_EQ(library.designNames(DesignLibrary::Folder::Filter).size(), 6);
    EXPECT_EQ(library.designNames(DesignLibrary::Folder::ProjectOne),
              QStringList{QStringLiteral("Cos10M3andCos35")});
    EXPECT_EQ(library.designNames(DesignLibrary::Folder::ProjectTwo),
              QStringList{QStringLiteral("multirateUser300to450")});

    const QString mine = library.filterPath(QStringLiteral("lp300fc25"));
    ASSERT_TRUE(writeFileAtomically(mine, QByteArray("the user's own")));
    QFile::remove(library.signalPath(QStringLiteral("Cos1MHz")));
    ASSERT_TRUE(prepareLibrary(library, folder).isEmpty());
    QFile kept(mine);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), QByteArray("the user's own"));
    EXPECT_TRUE(QFile::exists(library.signalPath(QStringLiteral("Cos1MHz"))));

    // Without a sample folder the folders are still made, and the lack is said.
    DesignLibrary bare(temp.root() + QStringLiteral("/bare"));
    const QList<LibraryProblem> problems = prepareLibrary(bare, QString());
    ASSERT_EQ(problems.size(), 1);
    EXPECT_FALSE(problems[0].message.isEmpty());
    EXPECT_TRUE(QFileInfo(bare.projectTwoFolder()).isDir());
}

TEST(SampleDesigns, BothSampleProjectsOpenAndDesign)
{
    TempLibrary temp;
    DesignLibrary library(temp.root());
    ASSERT_TRUE(prepareLibrary(library, builtSampleFolder()).isEmpty());
    for (const auto& [diagram, name] :
         {std::pair{1, "Cos10M3andCos35"}, std::pair{2, "multirateUser300to450"}}) {
        NoteView view;
        GVRProjectModel model(library);
        model.setWinProject(&view);
        ASSERT_TRUE(model.openProjectWithFilePath(library.projectPath(diagram, QLatin1String(name))))
            << model.lastFileError().toStdString();
        EXPECT_EQ(view.restored.value(KEYMOD_BLOCK_DIAGRAM).toInt(), diagram);
        model.designProjectWithParameters(view.restored);
        EXPECT_TRUE(model.validResultsFlag()) << name << ": " << view.note.toStdString();
        EXPECT_EQ(view.note, QString());
        ASSERT_EQ(model.timeDomainArray().size(), GVRProjectModel::kTimeArrayLength);
        if (diagram == 2) {
            // 300 KHz in, ×3 ÷2: 450 KHz out.
            EXPECT_DOUBLE_EQ(model.timeDomainArray()[0], 300.0);
            EXPECT_DOUBLE_EQ(model.timeDomainArray()[GVRProjectModel::kHeaderLength], 450.0);
        }
    }
}
