// Filter designs saved and opened through GVRFilterDesignerModel: what the
// file holds, what open gives back, refusals, and the save announcement.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include "archive/atomic_write.h"
#include "archive/filter_archive.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "filter/recording_filter_view.h"
#include "library/design_library.h"
#include "support/temp_library.h"

namespace {

QVariantMap parameters(int units, int type, double fs, double cutoff, double center, int length = 25,
                       int width = 5, int window = 2, double beta = 0.0)
{
    return {{KEYFP_UNITS, units},        {KEYFP_FILTER_TYPE, type},   {KEYFP_SAMPLING_FREQ, fs},
            {KEYFP_CUTOFF_FREQ, cutoff}, {KEYFP_CENTER_FREQ, center}, {KEYFP_FILTER_LENGTH, length},
            {KEYFP_FILTER_WIDTH, width}, {KEYFP_WINDOW_TYPE, window}, {KEYFP_BETA_UPSILON, beta}};
}

class FilterDesignFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.ensureFolders().isEmpty());
        model.setWindow(&view);
    }
    GVRFilter stored(const QString& name)
    {
        QString error;
        const auto record = readFilterFile(library.filterPath(name), &error);
        EXPECT_TRUE(record.has_value()) << error.toStdString();
        return record.value_or(GVRFilter{});
    }

    TempLibrary temp;
    DesignLibrary library{temp.root()};
    RecordingFilterView view;
    GVRFilterDesignerModel model{library};
};

} // namespace

TEST_F(FilterDesignFile, HighPassStoresTheComplementAndOpensAsTyped)
{
    model.designFilterWithParameters(parameters(0, 2, 0.0, 0.3, 0.0, 51, 0, 9, 5.0));
    ASSERT_TRUE(model.validResultsFlag()) << view.note.toStdString();
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("hp")));
    EXPECT_EQ(model.lastFileError(), QString());

    const GVRFilter record = stored(QStringLiteral("hp"));
    EXPECT_DOUBLE_EQ(*record.dfThetaCutoffFreqNormalized, 0.7);
    EXPECT_FALSE(record.filterName.has_value());
    EXPECT_EQ(record.filterType, 2);
    EXPECT_EQ(record.windowType, 9);
    EXPECT_EQ(record.dfBetaUpsilon, 5.0);
    EXPECT_EQ(record.dfFilterLengthN, 51.0);
    EXPECT_EQ(record.integerCoefficients->size(), 51u);
    EXPECT_EQ(*record.filterCoefficients, model.filterCoefficients());
    EXPECT_EQ(*record.filterPrecisionCoefficients, model.filterPrecisionCoefficients());
    EXPECT_EQ(record.dfGimeldbLow, model.gimeldbLow());
    EXPECT_EQ(record.dfPassbandRipple, model.passbandRipple());
    EXPECT_EQ(record.dfDynamicRangeError, model.dynamicRangeError());

    GVRFilterDesignerModel other(library);
    RecordingFilterView otherView;
    other.setWindow(&otherView);
    ASSERT_TRUE(other.openFilterDesignWithFileName(QStringLiteral("hp")))
        << other.lastFileError().toStdString();
    EXPECT_EQ(otherView.calls, QStringList{QStringLiteral("restore")});
    const QVariantMap& r = otherView.restored;
    EXPECT_EQ(r.size(), 9);
    EXPECT_NEAR(r.value(KEYFP_CUTOFF_FREQ).toDouble(), 0.3, 1e-15);
    EXPECT_EQ(r.value(KEYFP_FILTER_TYPE).toInt(), 2);
    EXPECT_EQ(r.value(KEYFP_WINDOW_TYPE).toInt(), 9);
    EXPECT_EQ(r.value(KEYFP_FILTER_LENGTH).toDouble(), 51.0);
    EXPECT_EQ(r.value(KEYFP_BETA_UPSILON).toDouble(), 5.0);
    EXPECT_EQ(r, other.filterRestorationDictionary());
}

TEST_F(FilterDesignFile, UnitsAreNormalisedInTheFileAndScaledBackOnOpen)
{
    // KHz, fs 48, cutoff 6: 6 / 24 = 0.25 in the file.
    model.designFilterWithParameters(parameters(1, 0, 48.0, 6.0, 0.0));
    ASSERT_TRUE(model.validResultsFlag());
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
    model.designFilterWithParameters(parameters(2, 1, 10.0, 0.5, 2.5, 61));
    ASSERT_TRUE(model.validResultsFlag()) << view.note.toStdString();
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("bp")));
    EXPECT_DOUBLE_EQ(*stored(QStringLiteral("bp")).dfThetaCenterFreqNormalized, 0.5);
    ASSERT_TRUE(model.openFilterDesignWithFileName(QStringLiteral("bp")));
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_CENTER_FREQ).toDouble(), 2.5);
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_CUTOFF_FREQ).toDouble(), 0.5);
}

TEST_F(FilterDesignFile, SaveRefusesWithoutResultsOrName)
{
    QSignalSpy spy(&library, &DesignLibrary::newFilterFile);
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QStringLiteral("none")));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_FALSE(QFile::exists(library.filterPath(QStringLiteral("none"))));

    model.designFilterWithParameters(parameters(0, 0, 0.0, 0.2, 0.0));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QString()));
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QStringLiteral("../escape")));
    EXPECT_TRUE(library.files(DesignLibrary::Folder::Filter).isEmpty());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(FilterDesignFile, EverySaveAnnouncesOnceAndReplacesTheFile)
{
    QSignalSpy spy(&library, &DesignLibrary::newFilterFile);
    model.designFilterWithParameters(parameters(0, 0, 0.0, 0.2, 0.0));
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("same")));
    EXPECT_EQ(spy.count(), 1);
    model.designFilterWithParameters(parameters(0, 0, 0.0, 0.1, 0.0, 27));
    ASSERT_TRUE(model.saveFilterDesignWithFileName(QStringLiteral("same")));
    EXPECT_EQ(spy.count(), 2);
    EXPECT_EQ(stored(QStringLiteral("same")).dfFilterLengthN, 27.0);
    EXPECT_EQ(library.files(DesignLibrary::Folder::Filter).size(), 1);
}

TEST_F(FilterDesignFile, FailedWriteIsReportedAndAnnouncesNothing)
{
    // A folder in place of the file: the atomic rename cannot replace it.
    ASSERT_TRUE(QDir().mkpath(library.filterPath(QStringLiteral("blocked"))));
    QSignalSpy spy(&library, &DesignLibrary::newFilterFile);
    model.designFilterWithParameters(parameters(0, 0, 0.0, 0.2, 0.0));
    EXPECT_FALSE(model.saveFilterDesignWithFileName(QStringLiteral("blocked")));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(FilterDesignFile, OpenTakesTheLastRecordAndRefusesIncompleteOnes)
{
    GVRFilter first;
    first.filterType = 0;
    first.windowType = 2;
    first.filterWidth = 0;
    first.unitsType = 0;
    first.dfThetaSamplingFreq = 0.0;
    first.dfFilterLengthN = 0.0;
    first.dfBetaUpsilon = 0.0;
    first.dfThetaCutoffFreqNormalized = 0.1;
    first.dfThetaCenterFreqNormalized = 0.0;
    GVRFilter last = first;
    last.dfThetaCutoffFreqNormalized = 0.4;
    last.windowType = 3;
    ASSERT_TRUE(
        writeFileAtomically(library.filterPath(QStringLiteral("two")), encodeFilterArchive({first, last})));
    ASSERT_TRUE(model.openFilterDesignWithFileName(QStringLiteral("two")));
    EXPECT_EQ(view.restored.value(KEYFP_WINDOW_TYPE).toInt(), 3);
    EXPECT_DOUBLE_EQ(view.restored.value(KEYFP_CUTOFF_FREQ).toDouble(), 0.4);

    // Without a β/ϒ the dictionary would hold eight entries: refused, window untouched.
    GVRFilter partial = last;
    partial.dfBetaUpsilon.reset();
    ASSERT_TRUE(
        writeFileAtomically(library.filterPath(QStringLiteral("partial")), encodeFilterArchive(partial)));
    view.calls.clear();
    EXPECT_FALSE(model.openFilterDesignWithFileName(QStringLiteral("partial")));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_TRUE(view.calls.isEmpty());
    EXPECT_EQ(model.filterRestorationDictionary().value(KEYFP_WINDOW_TYPE).toInt(), 3);

    ASSERT_TRUE(
        writeFileAtomically(library.filterPath(QStringLiteral("junk")), QByteArray("not an archive")));
    EXPECT_FALSE(model.openFilterDesignWithFileName(QStringLiteral("junk")));
    EXPECT_FALSE(model.openFilterDesignWithFileName(QStringLiteral("missing")));
    EXPECT_FALSE(model.openFilterDesignWithFileName(QString()));
    EXPECT_TRUE(view.calls.isEmpty());
}
