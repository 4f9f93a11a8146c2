// The thirteen sample designs: made by the build, readable, and the two
// sample projects designing without a rate error.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
        const bool readable =
            sample.folder == DesignLibrary::Folder::Filter   ? bool(readFilterFile(path, &error))
            : sample.folder == DesignLibrary::Folder::Signal ? bool(readSignalFile(path, &error))
                                                             : bool(readProjectFile(path, &error));
        EXPECT_TRUE(readable) << sample.fileName << ": " << error.toStdString();
    }
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
