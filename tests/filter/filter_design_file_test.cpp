// Filter designs saved and opened through GVRFilterDesignerModel: what the
// file holds, what open gives back, refusals, the save announcement, and the
// inspector rows of saved files (cell texts, unit scaling, the high-pass
// complement, empty cells, files that cannot be read).
#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include "archive/atomic_write.h"
#include "archive/filter_archive.h"
#include "filter/inspector_filt_model.h"
#include "recording_filter_view.h"

namespace {

class FilterDesignFile : public FilterFixture {
protected:
    GVRFilter stored(const QString& name)
    {
        QString error;
        const auto record = readFilterFile(library.filterPath(name), &error);
        EXPECT_TRUE(record.has_value()) << error.toStdString();
        return record.value_or(GVRFilter{});
    }
};

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

TEST_F(FilterDesignFile, HighPassStoresTheComplementAndOpensAsTyped)
{
    const FilterParams typed{.type = 2, .cutoff = 0.3, .center = 0, .width = 5, .window = 9, .beta = 5.0};
    design(typed);
    ASSERT_TRUE(model.validResultsFlag()) << view.note.toStdString();
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("hp")));
    EXPECT_EQ(model.lastFileError(), QString());

    const GVRFilter r = stored(QStringLiteral("hp"));
    EXPECT_DOUBLE_EQ(*r.dfThetaCutoffFreqNormalized, 0.7);
    EXPECT_FALSE(r.filterName.has_value());
    EXPECT_TRUE(r.filterType == 2 && r.windowType == 9 && r.dfBetaUpsilon == 5.0 &&
                r.dfFilterLengthN == 51.0);
    EXPECT_EQ(*r.integerCoefficients, model.integerCoefficients());
    EXPECT_EQ(*r.filterCoefficients, model.filterCoefficients());
    EXPECT_EQ(*r.filterPrecisionCoefficients, model.filterPrecisionCoefficients());
    EXPECT_EQ(r.dfGimeldbLow, model.gimeldbLow());
    EXPECT_EQ(r.dfPassbandRipple, model.passbandRipple());
    EXPECT_EQ(r.dfDynamicRangeError, model.dynamicRangeError());

    GVRFilterDesignerModel other(library);
    RecordingFilterView otherView;
    other.setWindow(&otherView);
    ASSERT_TRUE(other.openFilterDesignWithFileName(QStringLiteral("hp")))
        << other.lastFileError().toStdString();
    EXPECT_EQ(otherView.calls, QStringList{QStringLiteral("restore")});
    QVariantMap want = typed.map();
    EXPECT_NEAR(otherView.restored.value(KEYFP_CUTOFF_FREQ).toDouble(), 0.3, 1e-15);
    want.insert(KEYFP_CUTOFF_FREQ, otherView.restored.value(KEYFP_CUTOFF_FREQ)); // 1 − 0.7
    for (auto it = want.begin(); it != want.end(); ++it)
        EXPECT_EQ(otherView.restored.value(it.key()).toDouble(), it.value().toDouble())
            << it.key().toStdString();
    EXPECT_EQ(otherView.restored.size(), 9);
    EXPECT_EQ(otherView.restored, other.filterRestorationDictionary());
}

TEST_F(FilterDesignFile, UnitsAreNormalisedInTheFileAndScaledBackOnOpen)
{
    // KHz, fs 48, cutoff 6: 6 / 24 = 0.25 in the file.
    design({.units = 1, .fs = 48.0, .cutoff = 6.0});
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("lp")));
    const GVRFilter record = stored(QStringLiteral("lp"));
    EXPECT_DOUBLE_EQ(*record.dfThetaCutoffFreqNormalized, 0.25);
    EXPECT_EQ(record.dfThetaSamplingFreq, 48.0);
    EXPECT_EQ(record.unitsType, 1);
    EXPECT_EQ(record.dfGimeldbHigh, -1.0);
    ASSERT_TRUE(model.openFilterDesignWithFileName(QStringLiteral("lp")));
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_CUTOFF_FREQ).toDouble(), 6.0);
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_SAMPLING_FREQ).toDouble(), 48.0);
    EXPECT_EQ(view.restored.value(KEYFP_UNITS).toInt(), 1);

    // A band pass in MHz: centre and cutoff both come back in MHz.
    design({.units = 2, .type = 1, .fs = 10.0, .cutoff = 0.5, .center = 2.5, .length = 61});
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("bp"))) << view.note.toStdString();
    EXPECT_DOUBLE_EQ(*stored(QStringLiteral("bp")).dfThetaCenterFreqNormalized, 0.5);
    ASSERT_TRUE(model.openFilterDesignWithFileName(QStringLiteral("bp")));
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_CENTER_FREQ).toDouble(), 2.5);
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_CUTOFF_FREQ).toDouble(), 0.5);
}

// Every save announces once and replaces the file; a refused or failed save
// writes and announces nothing.
TEST_F(FilterDesignFile, SavesAnnounceOnceAndRefusalsWriteNothing)
{
    QSignalSpy spy(&library, &DesignLibrary::newFilterFile);
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QStringLiteral("none"))); // nothing designed yet
    EXPECT_FALSE(model.lastFileError().isEmpty());
    design({.cutoff = 0.2});
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QString()));
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QStringLiteral("../escape")));
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("same")));
    design({.cutoff = 0.1, .length = 27});
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("same")));
    EXPECT_EQ(spy.count(), 2);
    EXPECT_EQ(stored(QStringLiteral("same")).dfFilterLengthN, 27.0);
    EXPECT_EQ(library.designNames(DesignLibrary::Folder::Filter), QStringList{QStringLiteral("same")});

    // A folder in place of the file: the atomic rename cannot replace it.
    ASSERT_TRUE(QDir().mkpath(library.filterPath(QStringLiteral("blocked"))));
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QStringLiteral("blocked")));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_EQ(spy.count(), 2);
}

// Without a β/ϒ the dictionary would hold eight entries: refused, window untouched.
TEST_F(FilterDesignFile, OpenRefusesIncompleteOrForeignFiles)
{
    design({.cutoff = 0.3, .window = 3});
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("whole")));
    auto partial = stored(QStringLiteral("whole"));
    partial.dfBetaUpsilon.reset();
    ASSERT_TRUE(
        writeFileAtomically(library.filterPath(QStringLiteral("partial")), encodeFilterArchive(partial)));
    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("junk")), "not an archive"));
    ASSERT_TRUE(model.openFilterDesignWithFileName(QStringLiteral("whole")));
    view.calls.clear();
    for (const char* name : {"partial", "junk", "missing", ""}) {
        EXPECT_FALSE(model.openFilterDesignWithFileName(QLatin1String(name))) << name;
        EXPECT_FALSE(model.lastFileError().isEmpty()) << name;
    }
    EXPECT_TRUE(view.calls.isEmpty());
    EXPECT_EQ(model.filterRestorationDictionary().value(KEYFP_WINDOW_TYPE).toInt(), 3);
}

// Rate, centre and upper 3 dB point stay empty where the design has none; the
// high pass shows its cutoff as typed; MHz values are normalised × fs/2.
TEST_F(FilterDesignFile, InspectorRowsOfSavedDesigns)
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

TEST_F(FilterDesignFile, InspectorShowsOnlyTheNameOfAnUnreadableFile)
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
