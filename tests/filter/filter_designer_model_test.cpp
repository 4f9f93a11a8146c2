// The filter designer model through a recording window: every validation
// message with its formatted number, the calls of a design in order, the
// warning path that keeps the previous results, and bad input of every kind.
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "library/design_library.h"
#include "recording_filter_view.h"
#include "support/temp_library.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct Params {
    double units = 0, type = 0, fs = 0, cutoff = 0.25, center = 0.5, length = 51, width = 0, window = 0,
           beta = 0;
    QVariantMap map() const
    {
        return {{KEYFP_UNITS, units},        {KEYFP_FILTER_TYPE, type},   {KEYFP_SAMPLING_FREQ, fs},
                {KEYFP_CUTOFF_FREQ, cutoff}, {KEYFP_CENTER_FREQ, center}, {KEYFP_FILTER_LENGTH, length},
                {KEYFP_FILTER_WIDTH, width}, {KEYFP_WINDOW_TYPE, window}, {KEYFP_BETA_UPSILON, beta}};
    }
};

class FilterModel : public ::testing::Test {
protected:
    FilterModel() { model.setWindow(&view); }
    QString design(const Params& p)
    {
        view.calls.clear();
        model.designFilterWithParameters(p.map());
        return view.note;
    }
    RecordingFilterView view;
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    GVRFilterDesignerModel model{library};
};

const QString kWarning = QStringLiteral("WARNING: Increase Filter Length (3dB Point Not Found)");
const QString kPositive = QStringLiteral("Filter Coefficients: Positive Symmetry");

} // namespace

TEST_F(FilterModel, StartsEmpty)
{
    GVRFilterDesignerModel fresh(library);
    EXPECT_FALSE(fresh.validResultsFlag());
    EXPECT_TRUE(fresh.dBmagAndPhaseArray().empty());
    EXPECT_TRUE(fresh.filterCoefficients().empty());
    EXPECT_TRUE(fresh.filterResultsDictionary().isEmpty());
    EXPECT_EQ(fresh.thetaSamplingFreq(), 0.0);
    fresh.designFilterWithParameters(Params{}.map()); // no window: nothing to call, no crash
    EXPECT_TRUE(fresh.validResultsFlag());
}

TEST_F(FilterModel, ValidationMessagesInOrder)
{
    struct Case {
        Params p;
        const char* note;
    };
    const Case cases[] = {
        {{.units = 1, .fs = 0, .cutoff = 0.001}, "VALID RANGE: fsampling > 0"},
        {{.cutoff = 0.0099}, "VALID RANGE: fcutoff ≥  0.010"},
        {{.units = 1, .fs = 100, .cutoff = 0.4}, "VALID RANGE: fcutoff ≥  0.500"},
        {{.units = 2, .fs = 100, .cutoff = 49.6}, "VALID RANGE: fcutoff ≤  49.500"},
        {{.type = 2, .cutoff = 0.995}, "VALID RANGE: fcutoff ≥  0.010"},
        {{.type = 2, .cutoff = 0.005}, "VALID RANGE: fcutoff ≤  0.990"},
        {{.cutoff = 2.0, .window = 9, .beta = 0}, "VALID RANGE: fcutoff ≤  0.990"},
        {{.window = 9, .beta = 0}, "VALID RANGE: β > 0"},
        {{.window = 10, .beta = -1}, "VALID RANGE: ϒ > 0"},
        {{.type = 1, .cutoff = 0.2, .center = 0.205, .window = 10, .beta = 0}, "VALID RANGE: ϒ > 0"},
        {{.type = 1, .cutoff = 0.2, .center = 0.205}, "VALID RANGE: (fcenter - fcutoff) ≥  0.010"},
        {{.type = 1, .cutoff = 0.395, .center = 0.6}, "VALID RANGE: (fcenter + fcutoff) ≤  0.990"},
        // Both band rules broken: the lower one is tested first.
        {{.type = 1, .cutoff = 0.495, .center = 0.5}, "VALID RANGE: (fcenter - fcutoff) ≥  0.010"},
        {{.units = 1, .type = 1, .fs = 10, .cutoff = 1.0, .center = 1.04},
         "VALID RANGE: (fcenter - fcutoff) ≥  0.050"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(design(c.p), QString::fromUtf8(c.note));
        ASSERT_GE(view.calls.size(), 2);
        EXPECT_EQ(view.calls.first(), QStringLiteral("note:")); // cleared first
        EXPECT_EQ(view.calls.size(), 2) << c.note;
    }
}

TEST_F(FilterModel, BoundsAreInclusive)
{
    for (const Params& p : {Params{.cutoff = 0.01, .length = 255}, Params{.cutoff = 0.99, .length = 255},
                            Params{.type = 1, .cutoff = 0.49, .center = 0.5, .length = 255},
                            Params{.type = 2, .cutoff = 0.01, .length = 255},
                            Params{.fs = 0, .cutoff = 0.3}, // Norm never tests fs
                            Params{.window = 2, .beta = 0}}) {
        const QString note = design(p);
        EXPECT_FALSE(note.startsWith(QStringLiteral("VALID RANGE"))) << note.toStdString();
    }
}

TEST_F(FilterModel, SuccessfulDesignCallsInOrder)
{
    const Params p{.units = 1, .fs = 48, .cutoff = 6, .length = 101, .width = 5, .window = 9, .beta = 5};
    EXPECT_EQ(design(p), kPositive);
    EXPECT_EQ(view.calls, (QStringList{QStringLiteral("note:"), QStringLiteral("note:") + kPositive,
                                       QStringLiteral("results"), QStringLiteral("plot")}));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.thetaCutoffFreqNormalized(), 0.25);
    EXPECT_EQ(model.filterCoefficients().size(), 101u);
    EXPECT_EQ(model.filterPrecisionCoefficients().size(), 101u);
    ASSERT_EQ(model.integerCoefficients().size(), 101u);
    EXPECT_EQ(*std::max_element(model.integerCoefficients().begin(), model.integerCoefficients().end()),
              32767);

    const auto& a = view.plotted;
    ASSERT_EQ(a.size(), 4104u);
    EXPECT_EQ(a, model.dBmagAndPhaseArray());
    EXPECT_EQ(a[0], 2048.0);
    EXPECT_EQ(a[1], *std::max_element(a.begin() + 8, a.begin() + 2056));
    EXPECT_EQ(a[2], *std::min_element(a.begin() + 8, a.begin() + 2056));
    EXPECT_EQ(a[3], 24.0);
    EXPECT_EQ(a[4], *std::max_element(a.begin() + 2056, a.end()));
    EXPECT_EQ(a[5], *std::min_element(a.begin() + 2056, a.end()));
    EXPECT_EQ(a[6], 0.0);
    EXPECT_EQ(a[7], 0.0);
    EXPECT_NEAR(a[8], 0.0, 0.01); // unity gain at DC
    for (double v : a)
        ASSERT_TRUE(std::isfinite(v));

    // Results in KHz: normalised values times fs/2, the missing high point included.
    const QVariantMap& r = view.results;
    ASSERT_EQ(r.size(), 6);
    EXPECT_EQ(r, model.filterResultsDictionary());
    EXPECT_DOUBLE_EQ(r.value(KEYFDR_3DB_LOW).toDouble(), model.gimeldbLow() * 24.0);
    EXPECT_NEAR(r.value(KEYFDR_3DB_LOW).toDouble(), 6.0, 0.5);
    EXPECT_EQ(r.value(KEYFDR_3DB_HIGH).toDouble(), -24.0);
    EXPECT_DOUBLE_EQ(r.value(KEYFDR_3DB_BANDWIDTH).toDouble(), r.value(KEYFDR_3DB_LOW).toDouble());
    EXPECT_EQ(r.value(KEYFDR_DYNAMIC_RNG).toDouble(), model.dynamicRange());
    EXPECT_GT(r.value(KEYFDR_DYNAMIC_RNG_ERR).toDouble(), 0.0);
}

TEST_F(FilterModel, BandAndHighPassResults)
{
    design({.type = 1, .cutoff = 0.1, .center = 0.5, .length = 51, .window = 3});
    EXPECT_EQ(view.calls.at(1), QStringLiteral("note:Filter Coefficients: Negative Symmetry"));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_NEAR((model.gimeldbLow() + model.gimeldbHigh()) / 2.0, 0.5, 1e-12);
    EXPECT_NEAR(model.gimeldbBandwidth(), model.gimeldbHigh() - model.gimeldbLow(), 1e-15);
    EXPECT_NEAR(model.gimeldbBandwidth(), 0.2, 0.05); // band 0.4..0.6, widened by the short window

    // A high pass is the low pass of the complementary cutoff with every even tap negated.
    design({.cutoff = 0.4, .length = 101, .window = 1});
    const auto lowPass = model.filterCoefficients();
    design({.units = 2, .type = 2, .fs = 10, .cutoff = 3, .length = 101, .window = 1});
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_NEAR(model.thetaCutoffFreqNormalized(), 0.4, 1e-15);
    EXPECT_NEAR(view.results.value(KEYFDR_3DB_LOW).toDouble(), 3.0, 0.1);
    EXPECT_EQ(view.results.value(KEYFDR_3DB_HIGH).toDouble(), -5.0);
    EXPECT_NEAR(view.results.value(KEYFDR_3DB_BANDWIDTH).toDouble(),
                5.0 - view.results.value(KEYFDR_3DB_LOW).toDouble(), 1e-12);
    const auto& highPass = model.filterCoefficients();
    ASSERT_EQ(highPass.size(), lowPass.size());
    for (std::size_t n = 0; n < highPass.size(); ++n)
        EXPECT_NEAR(highPass[n], n % 2 == 0 ? -lowPass[n] : lowPass[n], 1e-15) << n;
}

TEST_F(FilterModel, WarningKeepsThePreviousDesign)
{
    design({.cutoff = 0.3, .length = 25, .width = 13});
    ASSERT_TRUE(model.validResultsFlag());
    const auto coefficients = model.filterCoefficients();
    const auto integers = model.integerCoefficients();
    const auto array = model.dBmagAndPhaseArray();
    const auto results = model.filterResultsDictionary();

    // N = 25 at θ = 0.99 is a single impulse: flat at 0 dB, no 3 dB point.
    EXPECT_EQ(design({.cutoff = 0.99, .length = 25}), kWarning);
    EXPECT_EQ(view.calls, (QStringList{QStringLiteral("note:"), QStringLiteral("note:") + kPositive,
                                       QStringLiteral("clear"), QStringLiteral("note:") + kWarning}));
    EXPECT_FALSE(model.validResultsFlag());
    EXPECT_EQ(model.filterCoefficients(), coefficients);
    EXPECT_EQ(model.integerCoefficients(), integers);
    EXPECT_EQ(model.dBmagAndPhaseArray(), array);
    EXPECT_EQ(model.filterResultsDictionary(), results);
}

TEST_F(FilterModel, FailedValidationChangesNoResult)
{
    design({.cutoff = 0.3});
    const auto array = model.dBmagAndPhaseArray();
    const auto coefficients = model.filterCoefficients();
    design({.cutoff = 0.001});
    EXPECT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.dBmagAndPhaseArray(), array);
    EXPECT_EQ(model.filterCoefficients(), coefficients);
    EXPECT_EQ(view.calls.size(), 2);
    EXPECT_EQ(model.thetaCutoffFreqNormalized(), 0.001); // the normalised fields do follow
}

TEST_F(FilterModel, SymmetryNotices)
{
    model.displayNoticeWithSymmetry(1);
    EXPECT_EQ(view.note, QStringLiteral("Filter Coefficients: Negative Symmetry"));
    model.displayNoticeWithSymmetry(2);
    EXPECT_EQ(view.note, kPositive);
    for (int code : {0, 3, -1}) {
        model.displayNoticeWithSymmetry(code);
        EXPECT_EQ(view.note, QStringLiteral("ERROR: Filter Coefficients are not Symmetric"));
    }
}

TEST_F(FilterModel, BadEntriesGetTheirOwnMessage)
{
    struct Case {
        Params p;
        const char* note;
    };
    const Case cases[] = {
        {{.cutoff = kNaN}, "VALID RANGE: fcutoff is not a number"},
        {{.cutoff = kInf}, "VALID RANGE: fcutoff ≤  0.990"},
        {{.cutoff = -kInf}, "VALID RANGE: fcutoff ≥  0.010"},
        {{.units = 1, .fs = kNaN, .cutoff = 1}, "VALID RANGE: fsampling is not a number"},
        {{.units = 1, .fs = -kInf, .cutoff = 1}, "VALID RANGE: fsampling > 0"},
        {{.fs = kInf}, "VALID RANGE: fsampling is not finite"},
        {{.type = 1, .cutoff = 0.1, .center = kNaN}, "VALID RANGE: fcenter is not a number"},
        {{.type = 1, .cutoff = 0.1, .center = kInf}, "VALID RANGE: (fcenter + fcutoff) ≤  0.990"},
        {{.center = -kInf}, "VALID RANGE: fcenter is not finite"},
        {{.units = 3, .fs = 10, .cutoff = 1}, "VALID RANGE: units index 0 to 2"},
        {{.units = kNaN}, "VALID RANGE: fsampling > 0"}, // any units but Norm need fs
        {{.units = kNaN, .fs = 10, .cutoff = 1}, "VALID RANGE: units index 0 to 2"},
        {{.type = 3}, "VALID RANGE: filter type index 0 to 2"},
        {{.type = 0.5}, "VALID RANGE: filter type index 0 to 2"},
        {{.length = 24}, "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"},
        {{.length = 257}, "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"},
        {{.length = 51.5}, "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"},
        {{.length = kNaN}, "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"},
        {{.width = 14}, "VALID RANGE: width index 0 to 13"},
        {{.width = -1}, "VALID RANGE: width index 0 to 13"},
        {{.window = 11}, "VALID RANGE: window index 0 to 10"},
        {{.window = 1e300}, "VALID RANGE: window index 0 to 10"},
        {{.window = 9, .beta = kNaN}, "VALID RANGE: β is not a number"},
        {{.window = 9, .beta = kInf}, "VALID RANGE: β is not finite"},
        {{.window = 9, .beta = 101}, "VALID RANGE: β ≤  100.000"},
        {{.window = 10, .beta = 21}, "VALID RANGE: ϒ ≤  20.000"},
        {{.window = 10, .beta = kNaN}, "VALID RANGE: ϒ is not a number"},
        {{.window = 3, .beta = kNaN}, "VALID RANGE: β/ϒ is not a number"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(design(c.p), QString::fromUtf8(c.note)) << c.note;

    // Missing entries read as 0 (an empty field); text that is no number is refused.
    QVariantMap m = Params{}.map();
    m.remove(KEYFP_FILTER_LENGTH);
    view.calls.clear();
    model.designFilterWithParameters(m);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"));
    m = Params{}.map();
    m.insert(KEYFP_CUTOFF_FREQ, QStringLiteral("abc"));
    model.designFilterWithParameters(m);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: fcutoff is not a number"));
    m.insert(KEYFP_CUTOFF_FREQ, QStringLiteral("0.3"));
    model.designFilterWithParameters(m);
    EXPECT_EQ(view.note, kPositive);
}

TEST_F(FilterModel, AbsurdInputNeverGivesANaNChart)
{
    const double pool[] = {kNaN, kInf, -kInf, 1e300, -1e300, 0.0,  -1.0,  0.3,  0.5,   1.0,
                           2.0,  9.0,  10.0,  13.0,  25.0,   51.0, 255.0, 20.0, 100.0, 1e-300};
    std::mt19937 gen(3);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(pool) - 1);
    for (int trial = 0; trial < 3000; ++trial) {
        Params p{pool[pick(gen)], pool[pick(gen)] < 3 ? pool[pick(gen)] : 1.0,
                 pool[pick(gen)], pool[pick(gen)],
                 pool[pick(gen)], pool[pick(gen)],
                 pool[pick(gen)], pool[pick(gen)],
                 pool[pick(gen)]};
        view.plotted.clear();
        view.results.clear();
        design(p);
        ASSERT_FALSE(view.note.isEmpty());
        for (double v : view.plotted)
            ASSERT_TRUE(std::isfinite(v)) << trial;
        for (const QVariant& v : view.results)
            ASSERT_FALSE(std::isnan(v.toDouble())) << trial;
    }
}
