// Inspector rows read only a design's scalar fields: every sample design gives
// the row of its whole record, and a damaged copy keeps its error state.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "filter/inspector_filt_model.h"
#include "shell/sample_designs.h"
#include "signal/inspector_sig_model.h"
#include "support/temp_library.h"

TEST(InspectorScalarRows, SampleRowsMatchTheWholeRecordAndDamageShows)
{
    TempLibrary temp;
    const QDir samples(temp.folder(QStringLiteral("samples")));
    ASSERT_TRUE(makeSampleDesigns(samples.path()).isEmpty());
    const QString cut = temp.folder(QStringLiteral("cut")) + u'/';
    const QStringList files = samples.entryList({QStringLiteral("*.filt"), QStringLiteral("*.signal")});
    ASSERT_EQ(files.size(), 11);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        const QString path = samples.filePath(file);
        QFile in(path), out(cut + file);
        ASSERT_TRUE(in.open(QIODevice::ReadOnly) && out.open(QIODevice::WriteOnly));
        out.write(in.readAll().chopped(in.size() / 2));
        out.close();
        if (file.endsWith(QLatin1String(".filt"))) {
            EXPECT_EQ(GVRInspectorFiltModel::rowForFile(path, file),
                      GVRInspectorFiltModel::rowForRecord(file, *readFilterFile(path)));
            EXPECT_EQ(GVRInspectorFiltModel::rowForFile(cut + file, file).filter, QString());
        } else {
            EXPECT_EQ(GVRInspectorSigModel::rowForFile(path, file),
                      GVRInspectorSigModel::rowForRecord(file, *readSignalFile(path)));
            EXPECT_EQ(GVRInspectorSigModel::rowForFile(cut + file, file).function,
                      GVRInspectorSigModel::unreadableFunctionText());
        }
    }
}
