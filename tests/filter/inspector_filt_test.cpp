// Filter inspector rows from saved designs: cell texts, unit scaling, the
// high-pass complement, empty cells, and files that cannot be read.
#include <QDir>

#include "archive/atomic_write.h"
#include "archive/filter_record.h"
#include "filter/inspector_filt_model.h"
#include "recording_filter_view.h"

namespace {

using FiltInspector = FilterFixture;

QString f5(double v)
{
    return QString::asprintf("%1.5f", v);
}

GVRInspectFilt nameOnly(const QString& name)
{
    GVRInspectFilt row;
    row.filename = name;
    return row;
}

} // namespace

// Rate, centre and upper 3 dB point stay empty where the design has none; the
// high pass shows its cutoff as typed; MHz values are normalised × fs/2.
TEST_F(FiltInspector, RowsOfSavedDesigns)
{
    const QStringList typed{"filter", "fs",      "window",  "parm", "width",
                            "length", "fcutoff", "fcenter", "units"};
    const struct {
        const char* name;
        FilterParams p;
        double scale;     // of the 3 dB cells
        const char* want; // the `typed` cells, split at '|'
    } cases[] = {
        {"lowNorm",
         {.cutoff = 0.2, .width = 5, .window = 2},
         1.0,
         "Low Pass||Hamming||16-bit|51|0.20000||Norm"},
        {"high",
         {.type = 2, .cutoff = 0.3, .width = 5, .window = 9, .beta = 5.0},
         1.0,
         "High Pass||Kaiser|5.00000|16-bit|51|0.30000||Norm"},
        {"band",
         {.units = 2,
          .type = 1,
          .fs = 10,
          .cutoff = 0.5,
          .center = 2.5,
          .length = 61,
          .width = 9,
          .window = 10,
          .beta = 3.5},
         5.0,
         "Band Pass|10.00000|Chebyshev|3.50000|12-bit|61|0.50000|2.50000|MHz"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        design(c.p);
        ASSERT_TRUE(model.saveFilterDesignWithFileName(QLatin1String(c.name)));
        QMap<QString, QString> want;
        for (int i = 0; i < typed.size(); ++i)
            want.insert(typed[i], QString::fromUtf8(c.want).split('|').at(i));
        want.insert("filename", QLatin1String(c.name));
        want.insert("db3low", f5(model.gimeldbLow() * c.scale));
        want.insert("db3band", f5(model.gimeldbBandwidth() * c.scale));
        want.insert("db3high", c.p.type == 1 ? f5(model.gimeldbHigh() * c.scale) : QString());
        want.insert("ripple", f5(model.passbandRipple()));
        GVRInspectFilt got;
        for (const GVRInspectFilt& row : GVRInspectorFiltModel(library).getFiltInspectorArray())
            got = row.filename == QLatin1String(c.name) ? row : got;
        for (const QString& key : GVRInspectFilt::keys())
            EXPECT_EQ(got.value(key), want.value(key)) << key.toStdString();
    }
}

TEST_F(FiltInspector, UnreadableFileShowsOnlyItsNameAndAMissingFolderNothing)
{
    design({.cutoff = 0.2});
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("good")));
    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("broken")), "bplist00 junk"));
    const QList<GVRInspectFilt> rows = GVRInspectorFiltModel(library).getFiltInspectorArray();
    // Rows follow the folder listing.
    ASSERT_EQ(library.designNames(DesignLibrary::Folder::Filter), (QStringList{"broken", "good"}));
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0], nameOnly("broken"));
    EXPECT_EQ(rows[1].filename, QStringLiteral("good"));
    EXPECT_EQ(rows[1].filter, QStringLiteral("Low Pass"));

    ASSERT_TRUE(QDir(library.filterFolder()).removeRecursively());
    EXPECT_TRUE(GVRInspectorFiltModel(library).getFiltInspectorArray().isEmpty());
}

TEST(InspectFilt, HostileRecordValuesGiveEmptyCells)
{
    GVRFilter r;
    r.filterType = 7;
    r.windowType = -1;
    r.filterWidth = 99;
    r.unitsType = 5;
    r.dfFilterLengthN = 1e300;
    EXPECT_EQ(GVRInspectorFiltModel::rowForRecord(QStringLiteral("odd"), r), nameOnly("odd"));
}
