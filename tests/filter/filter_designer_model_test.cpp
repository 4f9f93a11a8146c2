// The filter designer model through a recording window: every validation
// message with its formatted number, the calls of a design in order, the
// warning path that keeps the previous results, and bad input of every kind.
#include "recording_filter_view.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const QString kWarning = QStringLiteral("WARNING: Increase Filter Length (3dB Point Not Found)");
const QString kPositive = QStringLiteral("Filter Coefficients: Positive Symmetry");

using FilterModel = FilterFixture;

} // namespace

TEST_F(FilterModel, ValidationMessagesInOrder)
{
    const char* const length = "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255";
    struct Case {
        FilterParams p;
        const char* note; // "" passes
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
        // Non-numbers, infinities and indices out of range get their own message.
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
        {{.length = 24}, length},
        {{.length = 257}, length},
        {{.length = 51.5}, length},
        {{.length = kNaN}, length},
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
        // The bounds themselves pass; Norm never tests fs; β only matters to Kaiser and Chebyshev.
        {{.cutoff = 0.01, .length = 255}, ""},
        {{.cutoff = 0.99, .length = 255}, ""},
        {{.type = 1, .cutoff = 0.49, .center = 0.5, .length = 255}, ""},
        {{.type = 2, .cutoff = 0.01, .length = 255}, ""},
        {{.fs = 0, .cutoff = 0.3}, ""},
        {{.window = 2, .beta = 0}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.note);
        const QString note = design(c.p);
        if (*c.note == '\0') {
            EXPECT_FALSE(note.startsWith(QStringLiteral("VALID RANGE"))) << note.toStdString();
            continue;
        }
        EXPECT_EQ(note, QString::fromUtf8(c.note));
        EXPECT_EQ(view.calls, (QStringList{QStringLiteral("note:"), QStringLiteral("note:") + note}));
    }
}

TEST_F(FilterModel, SuccessfulDesignCallsInOrder)
{
    EXPECT_EQ(design({.units = 1, .fs = 48, .cutoff = 6, .length = 101, .width = 5, .window = 9, .beta = 5}),
              kPositive);
    EXPECT_EQ(view.calls, (QStringList{QStringLiteral("note:"), QStringLiteral("note:") + kPositive,
                                       QStringLiteral("results"), QStringLiteral("plot")}));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.thetaCutoffFreqNormalized(), 0.25);
    EXPECT_EQ(model.filterPrecisionCoefficients().size(), 101u);
    ASSERT_EQ(model.integerCoefficients().size(), 101u);
    EXPECT_EQ(*std::max_element(model.integerCoefficients().begin(), model.integerCoefficients().end()),
              32767);

    // Header: points, magnitude max and min, fs/2, phase max and min, then the two halves.
    const auto& a = view.plotted;
    ASSERT_EQ(a.size(), 4104u);
    EXPECT_EQ(a, model.dBmagAndPhaseArray());
    const auto [magLow, magHigh] = std::minmax_element(a.begin() + 8, a.begin() + 2056);
    const auto [phaseLow, phaseHigh] = std::minmax_element(a.begin() + 2056, a.end());
    EXPECT_EQ(std::vector<double>(a.begin(), a.begin() + 8),
              (std::vector<double>{2048.0, *magHigh, *magLow, 24.0, *phaseHigh, *phaseLow, 0.0, 0.0}));
    EXPECT_NEAR(a[8], 0.0, 0.01); // unity gain at DC
    EXPECT_TRUE(std::all_of(a.begin(), a.end(), [](double v) { return std::isfinite(v); }));

    // Results in KHz: normalised values times fs/2, the missing high point included.
    const QVariantMap& r = view.results;
    ASSERT_EQ(r.size(), 6);
    EXPECT_EQ(r, model.filterResultsDictionary());
    EXPECT_NEAR(r.value(KEYFDR_3DB_LOW).toDouble(), 6.0, 0.5);
    EXPECT_EQ(r.value(KEYFDR_3DB_HIGH).toDouble(), -24.0);
    EXPECT_DOUBLE_EQ(r.value(KEYFDR_3DB_BANDWIDTH).toDouble(), r.value(KEYFDR_3DB_LOW).toDouble());
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

// A warning or a refusal keeps every result of the last good design.
TEST_F(FilterModel, WarningAndRefusalKeepThePreviousDesign)
{
    design({.cutoff = 0.3, .length = 25, .width = 13});
    ASSERT_TRUE(model.validResultsFlag());
    const auto integers = model.integerCoefficients();
    const auto array = model.dBmagAndPhaseArray();
    const auto results = model.filterResultsDictionary();
    const auto coefficients = model.filterCoefficients();
    const auto unchanged = [&] {
        EXPECT_EQ(model.filterCoefficients(), coefficients);
        EXPECT_EQ(model.integerCoefficients(), integers);
        EXPECT_EQ(model.dBmagAndPhaseArray(), array);
        EXPECT_EQ(model.filterResultsDictionary(), results);
    };
    design({.cutoff = 0.001});
    EXPECT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.thetaCutoffFreqNormalized(), 0.001); // the normalised fields do follow
    unchanged();

    // N = 25 at θ = 0.99 is a single impulse: flat at 0 dB, no 3 dB point.
    EXPECT_EQ(design({.cutoff = 0.99, .length = 25}), kWarning);
    EXPECT_EQ(view.calls, (QStringList{QStringLiteral("note:"), QStringLiteral("note:") + kPositive,
                                       QStringLiteral("clear"), QStringLiteral("note:") + kWarning}));
    EXPECT_FALSE(model.validResultsFlag());
    unchanged();
}

TEST_F(FilterModel, SymmetryNotices)
{
    for (const auto& [code, text] : {std::pair{1, "Filter Coefficients: Negative Symmetry"},
                                     {2, "Filter Coefficients: Positive Symmetry"},
                                     {0, "ERROR: Filter Coefficients are not Symmetric"},
                                     {3, "ERROR: Filter Coefficients are not Symmetric"},
                                     {-1, "ERROR: Filter Coefficients are not Symmetric"}}) {
        model.displayNoticeWithSymmetry(code);
        EXPECT_EQ(view.note, QString::fromUtf8(text)) << code;
    }
}

// Missing entries read as 0 (an empty field); text that is no number is refused.
TEST_F(FilterModel, MissingAndTextEntries)
{
    QVariantMap m = FilterParams{}.map();
    m.remove(KEYFP_FILTER_LENGTH);
    model.designFilterWithParameters(m);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"));
    m = FilterParams{}.map();
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
    const auto any = [&] { return pool[pick(gen)]; };
    for (int trial = 0; trial < 3000; ++trial) {
        const double type = any();
        view.plotted.clear();
        view.results.clear();
        design({any(), type < 3 ? type : 1.0, any(), any(), any(), any(), any(), any(), any()});
        ASSERT_FALSE(view.note.isEmpty());
        for (double v : view.plotted)
            ASSERT_TRUE(std::isfinite(v)) << trial;
        for (const QVariant& v : view.results)
            ASSERT_FALSE(std::isnan(v.toDouble())) << trial;
    }
}
