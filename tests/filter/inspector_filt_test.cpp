// Filter inspector rows from saved designs: cell texts, unit scaling, the
// high-pass complement, empty cells, and files that cannot be read.
#include <gtest/gtest.h>

#include <QDir>

#include "archive/atomic_write.h"
#include "archive/filter_record.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "filter/inspector_filt_model.h"
#include "library/design_library.h"
#include "support/temp_library.h"

namespace {

class FiltInspector : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.ensureFolders().isEmpty());
    }
    // Designs and saves; returns the design's row.
    GVRInspectFilt saved(const QString& name, int units, int type, double fs, double cutoff, double center,
                         int window = 2, double beta = 0.0, int width = 5, int length = 51)
    {
        model.designFilterWithParameters({{KEYFP_UNITS, units},
                                          {KEYFP_FILTER_TYPE, type},
                                          {KEYFP_SAMPLING_FREQ, fs},
                                          {KEYFP_CUTOFF_FREQ, cutoff},
                                          {KEYFP_CENTER_FREQ, center},
                                          {KEYFP_FILTER_LENGTH, length},
                                          {KEYFP_FILTER_WIDTH, width},
                                          {KEYFP_WINDOW_TYPE, window},
                                          {KEYFP_BETA_UPSILON, beta}});
        EXPECT_TRUE(model.saveFilterDesignWithFileName(name)) << model.lastFileError().toStdString();
        for (const GVRInspectFilt& row : GVRInspectorFiltModel(library).getFiltInspectorArray())
            if (row.filename == name)
                return row;
        ADD_FAILURE() << "no row for " << name.toStdString();
        return {};
    }
    static QString f5(double v) { return QString::asprintf("%1.5f", v); }

    TempLibrary temp;
    DesignLibrary library{temp.root()};
    GVRFilterDesignerModel model{library};
};

} // namespace

TEST_F(FiltInspector, NormLowPassLeavesRateCentreAndUpperPointEmpty)
{
    const GVRInspectFilt row = saved(QStringLiteral("lowNorm"), 0, 0, 0.0, 0.2, 0.0);
    EXPECT_EQ(row.filename, QStringLiteral("lowNorm"));
    EXPECT_EQ(row.filter, QStringLiteral("Low Pass"));
    EXPECT_EQ(row.fs, QString());
    EXPECT_EQ(row.window, QStringLiteral("Hamming"));
    EXPECT_EQ(row.parm, QString());
    EXPECT_EQ(row.width, QStringLiteral("16-bit"));
    EXPECT_EQ(row.length, QStringLiteral("51"));
    EXPECT_EQ(row.fcutoff, QStringLiteral("0.20000"));
    EXPECT_EQ(row.fcenter, QString());
    EXPECT_EQ(row.db3high, QString());
    EXPECT_EQ(row.db3low, f5(model.gimeldbLow()));
    EXPECT_EQ(row.db3band, f5(model.gimeldbBandwidth()));
    EXPECT_EQ(row.ripple, f5(model.passbandRipple()));
    EXPECT_EQ(row.units, QStringLiteral("Norm"));
}

TEST_F(FiltInspector, HighPassShowsTheCutoffAsTyped)
{
    const GVRInspectFilt row = saved(QStringLiteral("high"), 0, 2, 0.0, 0.3, 0.0, 9, 5.0);
    EXPECT_EQ(row.filter, QStringLiteral("High Pass"));
    EXPECT_EQ(row.fcutoff, QStringLiteral("0.30000"));
    EXPECT_EQ(row.window, QStringLiteral("Kaiser"));
    EXPECT_EQ(row.parm, QStringLiteral("5.00000"));
}

TEST_F(FiltInspector, MegahertzBandPassScalesByHalfTheRate)
{
    const GVRInspectFilt row = saved(QStringLiteral("band"), 2, 1, 10.0, 0.5, 2.5, 10, 3.5, 9, 61);
    EXPECT_EQ(row.filter, QStringLiteral("Band Pass"));
    EXPECT_EQ(row.fs, QStringLiteral("10.00000"));
    EXPECT_EQ(row.fcenter, QStringLiteral("2.50000"));
    EXPECT_EQ(row.fcutoff, QStringLiteral("0.50000"));
    EXPECT_EQ(row.db3low, f5(model.gimeldbLow() * 5.0));
    EXPECT_EQ(row.db3high, f5(model.gimeldbHigh() * 5.0));
    EXPECT_EQ(row.db3band, f5(model.gimeldbBandwidth() * 5.0));
    // The band sits around 2.5 MHz.
    EXPECT_LT(row.db3low.toDouble(), 2.5);
    EXPECT_GT(row.db3high.toDouble(), 2.5);
    EXPECT_EQ(row.window, QStringLiteral("Chebyshev"));
    EXPECT_EQ(row.parm, QStringLiteral("3.50000"));
    EXPECT_EQ(row.width, QStringLiteral("12-bit"));
    EXPECT_EQ(row.units, QStringLiteral("MHz"));
    EXPECT_EQ(row.length, QStringLiteral("61"));
}

TEST_F(FiltInspector, ParameterCellOnlyForKaiserAndChebyshev)
{
    for (int window = 0; window <= 8; ++window) {
        const GVRInspectFilt row =
            saved(QStringLiteral("w%1").arg(window), 1, 0, 48.0, 6.0, 0.0, window, 7.0);
        EXPECT_EQ(row.parm, QString()) << window;
        EXPECT_EQ(row.window, GVRInspectorFiltModel::windowTypeTitle().at(window));
        EXPECT_EQ(row.fcutoff, QStringLiteral("6.00000"));
        EXPECT_EQ(row.units, QStringLiteral("KHz"));
    }
}

TEST_F(FiltInspector, UnreadableFileShowsOnlyItsName)
{
    saved(QStringLiteral("good"), 0, 0, 0.0, 0.2, 0.0);
    ASSERT_TRUE(
        writeFileAtomically(library.filterPath(QStringLiteral("broken")), QByteArray("bplist00 junk")));
    const QList<GVRInspectFilt> rows = GVRInspectorFiltModel(library).getFiltInspectorArray();
    ASSERT_EQ(rows.size(), 2);
    // Rows follow the folder listing.
    const QStringList names = library.designNames(DesignLibrary::Folder::Filter);
    EXPECT_EQ(rows[0].filename, names[0]);
    EXPECT_EQ(rows[1].filename, names[1]);
    for (const GVRInspectFilt& row : rows) {
        if (row.filename != QLatin1String("broken"))
            continue;
        GVRInspectFilt nameOnly;
        nameOnly.filename = QStringLiteral("broken");
        EXPECT_EQ(row, nameOnly);
    }
}

TEST_F(FiltInspector, MissingFolderGivesNoRows)
{
    ASSERT_TRUE(QDir(library.filterFolder()).removeRecursively());
    EXPECT_TRUE(GVRInspectorFiltModel(library).getFiltInspectorArray().isEmpty());
}

TEST(InspectFilt, CellsByColumnIdentifier)
{
    EXPECT_EQ(GVRInspectFilt::keys(),
              (QStringList{"filename", "filter", "fs", "window", "parm", "width", "length", "fcutoff",
                           "fcenter", "db3band", "db3low", "db3high", "ripple", "units"}));
    GVRInspectFilt row;
    for (const QString& key : GVRInspectFilt::keys())
        EXPECT_TRUE(row.setValue(key, key + QStringLiteral("!")));
    EXPECT_EQ(row.db3high, QStringLiteral("db3high!"));
    EXPECT_EQ(row.filename, QStringLiteral("filename!"));
    for (const QString& key : GVRInspectFilt::keys())
        EXPECT_EQ(row.value(key), key + QStringLiteral("!"));
    EXPECT_FALSE(row.setValue(QStringLiteral("nope"), QStringLiteral("x")));
    EXPECT_EQ(row.value(QStringLiteral("nope")), QString());
}

TEST(InspectFilt, HostileRecordValuesGiveEmptyCells)
{
    GVRFilter r;
    r.filterType = 7;
    r.windowType = -1;
    r.filterWidth = 99;
    r.unitsType = 5;
    r.dfFilterLengthN = 1e300;
    const GVRInspectFilt row = GVRInspectorFiltModel::rowForRecord(QStringLiteral("odd"), r);
    EXPECT_EQ(row.filter, QString());
    EXPECT_EQ(row.window, QString());
    EXPECT_EQ(row.width, QString());
    EXPECT_EQ(row.units, QString());
    EXPECT_EQ(row.length, QString());
    EXPECT_EQ(row.fcutoff, QString());
}
