// Inspector rows read only a design's scalar fields: every sample design gives
// the row its whole record gives, a damaged file keeps its error state, and a
// large folder's table is sortable and fitted again once its rows are in.
#include <gtest/gtest.h>

#include <tuple>

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QTableView>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "filter/inspector_filt_model.h"
#include "library/design_library.h"
#include "project/fir_export_table_model.h"
#include "project/fir_export_window.h"
#include "shell/sample_designs.h"
#include "signal/inspector_sig_model.h"
#include "signal/signal_inspector_window.h"
#include "support/temp_library.h"

namespace {

// The first half of `from`, written to `to`.
bool writeCutCopy(const QString& from, const QString& to)
{
    QFile in(from);
    QFile out(to);
    if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = in.readAll();
    return out.write(bytes.left(bytes.size() / 2)) == bytes.size() / 2;
}

} // namespace

TEST(InspectorScalarRows, SampleRowsMatchTheWholeRecordAndDamageShows)
{
    TempLibrary temp;
    const QString samples = temp.folder(QStringLiteral("samples"));
    ASSERT_TRUE(makeSampleDesigns(samples).isEmpty());
    const QDir dir(samples);
    int checked = 0;
    for (const QString& file : dir.entryList({QStringLiteral("*.filt")})) {
        SCOPED_TRACE(file.toStdString());
        const QString path = dir.filePath(file);
        const auto whole = readFilterFile(path);
        ASSERT_TRUE(whole);
        EXPECT_EQ(GVRInspectorFiltModel::rowForFile(path, file), GVRInspectorFiltModel::rowForRecord(file, *whole));
        const QString cut = temp.folder(QStringLiteral("cut")) + u'/' + file;
        ASSERT_TRUE(writeCutCopy(path, cut));
        GVRInspectFilt nameOnly;
        nameOnly.filename = file;
        EXPECT_EQ(GVRInspectorFiltModel::rowForFile(cut, file), nameOnly);
        ++checked;
    }
    for (const QString& file : dir.entryList({QStringLiteral("*.signal")})) {
        SCOPED_TRACE(file.toStdString());
        const QString path = dir.filePath(file);
        const auto whole = readSignalFile(path);
        ASSERT_TRUE(whole);
        const GVRInspectSig expected = GVRInspectorSigModel::rowForRecord(file, *whole);
        const GVRInspectSig row = GVRInspectorSigModel::rowForFile(path, file);
        for (const QString& key : GVRInspectSig::keys())
            EXPECT_EQ(row.value(key), expected.value(key)) << key.toStdString();
        const QString cut = temp.folder(QStringLiteral("cut")) + u'/' + file;
        ASSERT_TRUE(writeCutCopy(path, cut));
        EXPECT_EQ(GVRInspectorSigModel::rowForFile(cut, file).function, GVRInspectorSigModel::unreadableFunctionText());
        ++checked;
    }
    EXPECT_EQ(checked, 11);
}

TEST(InspectorScalarRows, LargeFolderTablesAreWholeAgainOnceFilled)
{
    TempLibrary temp;
    const QString samples = temp.folder(QStringLiteral("samples"));
    ASSERT_TRUE(makeSampleDesigns(samples).isEmpty());
    DesignLibrary library(temp.root() + QStringLiteral("/library"));
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    for (int i = 0; i <= int(kRowsFilledInLine); ++i) {
        for (const auto& [from, folder, ext] : {std::tuple{"/lp300fc25.filt", library.filterFolder(), ".filt"},
                                                std::tuple{"/Cos1MHz.signal", library.signalFolder(), ".signal"}}) {
            const QString to = folder + QStringLiteral("/n%1").arg(i) + QLatin1String(ext);
            ASSERT_EQ(::link(QFile::encodeName(samples + QLatin1String(from)).constData(),
                             QFile::encodeName(to).constData()),
                      0);
        }
    }

    GVRWinSigInspector inspector(library);
    inspector.waitForRows();
    const QHeaderView* header = inspector.table()->horizontalHeader();
    EXPECT_TRUE(header->sectionsClickable());
    for (int column = 0; column < header->count(); ++column)
        EXPECT_EQ(header->sectionResizeMode(column), QHeaderView::ResizeToContents) << column;

    // The export list is read when its window is first shown.
    GVRWinFirExport exports(library);
    EXPECT_TRUE(exports.tableModel()->rows().isEmpty());
    exports.show();
    EXPECT_EQ(exports.tableModel()->rows().size(), kRowsFilledInLine + 1);
}
