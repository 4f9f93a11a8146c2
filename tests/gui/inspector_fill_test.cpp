// Large folders fill the inspectors and the export list in worker threads:
// names first, then every row decoded, the same rows a small folder shows at
// once, with an unreadable file kept to its name.
#include <gtest/gtest.h>

#include <unistd.h>

#include <QFile>

#include "filter/filter_inspector_window.h"
#include "library/design_library.h"
#include "project/fir_export_window.h"
#include "shell/sample_designs.h"
#include "signal/signal_inspector_window.h"
#include "support/temp_library.h"

namespace {

// `count` hard links to `source` in `folder`, named n0000.ext and on.
void link(const QString& source, const QString& folder, const QString& extension, int count)
{
    for (int i = 0; i < count; ++i) {
        const QString to = folder + QStringLiteral("/n%1%2").arg(i, 4, 10, QLatin1Char('0')).arg(extension);
        ASSERT_EQ(::link(QFile::encodeName(source).constData(), QFile::encodeName(to).constData()), 0);
    }
}

} // namespace

TEST(InspectorFill, LargeFoldersFillInWorkerThreads)
{
    TempLibrary temp;
    const QString samples = temp.folder(QStringLiteral("samples"));
    ASSERT_TRUE(makeSampleDesigns(samples).isEmpty());
    DesignLibrary library(temp.root() + QStringLiteral("/library"));
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    const int count = int(kRowsFilledInLine) + 50;
    link(samples + QStringLiteral("/lp300fc25.filt"), library.filterFolder(), QStringLiteral(".filt"), count);
    link(samples + QStringLiteral("/Cos35Fs300.signal"), library.signalFolder(), QStringLiteral(".signal"),
         count);
    QFile broken(library.filterPath(QStringLiteral("zz broken")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a design");
    broken.close();

    GVRWinFiltInspector filters(library);
    GVRWinSigInspector signalRows(library);
    GVRWinFirExport exports(library);
    filters.waitForRows();
    signalRows.waitForRows();
    EXPECT_FALSE(filters.rowsLoading());

    // Every row as the small-folder code path makes it; the broken file by name only.
    const GVRInspectFilt expected =
        GVRInspectorFiltModel::rowForFile(samples + QStringLiteral("/lp300fc25.filt"), {});
    ASSERT_EQ(filters.inspectorDataArray().size(), count + 1);
    for (GVRInspectFilt row : filters.inspectorDataArray()) {
        const bool broke = row.filename == QStringLiteral("zz broken");
        row.filename.clear();
        EXPECT_EQ(row, broke ? GVRInspectFilt{} : expected);
    }
    const GVRInspectSig signalRow =
        GVRInspectorSigModel::rowForFile(samples + QStringLiteral("/Cos35Fs300.signal"), {});
    ASSERT_EQ(signalRows.inspectorDataArray().size(), count);
    for (const GVRInspectSig& row : signalRows.inspectorDataArray())
        EXPECT_EQ(row.function, signalRow.function);
}
