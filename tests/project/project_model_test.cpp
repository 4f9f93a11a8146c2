// Project model over an in-memory library: rate checks and their messages,
// unit handling, both systems against references, and unreadable designs.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "dsp/multirate.h"
#include "library/design_library.h"
#include "library/memory_design_source.h"
#include "project/project_keys.h"
#include "project/project_model.h"
#include "project/project_view.h"
#include "support/reference_python.h"
#include "support/temp_library.h"

namespace {

constexpr std::size_t N = 16384;
const QString kSumError = QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]");
const QString kMultirateError =
    QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs; H[m] requires rate of L*fs");


class RecordingView : public ProjectView {
public:
    void displayNoteField(const QString& text, double, bool withValue) override
    {
        note = text;
        EXPECT_FALSE(withValue);
        ++notes;
    }
    void plotTimeWithArray(const std::vector<double>& a) override
    {
        time = a;
        ++plots;
    }
    void plotFreqWithArray(const std::vector<double>& a) override { freq = a; }
    void restoreProjectParameters(const QVariantMap&) override {}

    QString note;
    int notes = 0;
    int plots = 0;
    std::vector<double> time;
    std::vector<double> freq;
};

std::vector<double> cosine(double amplitude, double cyclesPerSample)
{
    std::vector<double> x(N);
    for (std::size_t k = 0; k < N; ++k)
        x[k] = amplitude * std::cos(2 * std::numbers::pi * cyclesPerSample * static_cast<double>(k));
    return x;
}

std::vector<double> noise(unsigned seed, double scale)
{
    std::mt19937 gen(seed);
    std::uniform_real_distribution<double> d(-scale, scale);
    std::vector<double> x(N);
    for (double& v : x)
        v = d(gen);
    return x;
}

GVRSignal signal(double fs, std::int64_t freqUnits, std::int64_t voltUnits, double maxFreq, std::vector<double> x)
{
    GVRSignal s;
    s.samplingFreq = fs;
    s.yStepIndex = 0.0;
    s.freqUnits = freqUnits;
    s.voltUnits = voltUnits;
    s.maxFreq = maxFreq;
    s.sampledSignalArray = std::move(x);
    return s;
}

GVRFilter filter(std::int64_t units, double fs, std::vector<double> h)
{
    GVRFilter f;
    f.unitsType = units;
    f.dfThetaSamplingFreq = fs;
    f.dfFilterLengthN = static_cast<double>(h.size());
    f.filterPrecisionCoefficients = std::move(h);
    return f;
}

std::vector<double> centreTap(std::size_t taps)
{
    std::vector<double> h(taps, 0.0);
    h[(taps - 1) / 2] = 1.0;
    return h;
}

class ProjectModel : public ::testing::Test {
protected:
    ProjectModel()
    {
        model.setDesignSource(&library);
        model.setWinProject(&view);
        library.signalRecords["one"] = signal(1.0, 0, 0, 0.1, cosine(2.0, 0.1));
        library.signalRecords["two"] = signal(1000.0, 1, 0, 25.0, cosine(1.5, 0.025));
        library.filterRecords["norm"] = filter(0, 0.0, centreTap(25));
        library.filterRecords["khz"] = filter(1, 1000.0, centreTap(25));
    }
    void design(int diagram, const char* filterName, int sign1, int sign2, int L = 1, int M = 1, int automatic = 0,
                const char* one = "one", const char* two = "two")
    {
        model.designProjectWithParameters(GVRProjectModel::parameterDictionary(
            diagram, QString::fromUtf8(filterName), QString::fromUtf8(one), QString::fromUtf8(two), sign1, sign2, L,
            M, automatic));
    }
    std::vector<double> input() const
    {
        return {model.timeDomainArray().begin() + 16, model.timeDomainArray().begin() + 16 + N};
    }
    std::vector<double> output() const { return {model.timeDomainArray().begin() + 16400, model.timeDomainArray().end()}; }

    MemoryDesignSource library;
    RecordingView view;
    TempLibrary temp;
    DesignLibrary emptyLibrary{temp.root()};
    GVRProjectModel model{emptyLibrary};
};

}  // namespace

// 1.0 MHz and 1000 KHz agree once in one unit; a normalised filter is not compared.
TEST_F(ProjectModel, RatesInDifferentUnitsAgree)
{
    design(1, "norm", 0, 0);
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(view.note, QString());
    const auto& t = model.timeDomainArray();
    ASSERT_EQ(t.size(), 32784u);
    ASSERT_EQ(model.freqDomainArray().size(), 16400u);
    EXPECT_EQ(t[0], 1.0);
    EXPECT_EQ(t[3], 0.0);    // MHz
    EXPECT_EQ(t[1], 0.1);    // max(0.1 MHz, 25 KHz = 0.025 MHz)
    EXPECT_EQ(t[8], 1.0);
    EXPECT_EQ(t[9], t[1]);
    EXPECT_EQ(t[11], t[3]);

    design(1, "khz", 0, 0);  // the MHz signal becomes 1000 KHz
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.timeDomainArray()[0], 1000.0);
    EXPECT_EQ(model.freqDomainArray()[0], 1000.0);
}

TEST_F(ProjectModel, RateMismatchMessages)
{
    design(1, "norm", 2, 2);
    EXPECT_EQ(view.note, kSumError);
    EXPECT_FALSE(model.validResultsFlag());
    EXPECT_EQ(view.plots, 0);

    library.signalRecords["fast"] = signal(2.0, 0, 0, 0.1, cosine(1.0, 0.1));
    design(1, "norm", 0, 0, 1, 1, 0, "one", "fast");
    EXPECT_EQ(view.note, kSumError);
    design(1, "norm", 0, 2, 1, 1, 0, "one", "fast");  // x₂ left out: its rate does not matter
    EXPECT_TRUE(model.validResultsFlag());
    EXPECT_EQ(view.note, QString());

    library.filterRecords["khz500"] = filter(1, 500.0, centreTap(25));
    design(1, "khz500", 0, 0);
    EXPECT_EQ(view.note, kSumError);
    library.filterRecords["odd"] = filter(5, 1000.0, centreTap(25));
    design(1, "odd", 0, 0);
    EXPECT_EQ(view.note, kSumError);
    design(2, "odd", 0, 0, 2, 1);
    EXPECT_EQ(view.note, kMultirateError);
}

// A failed check keeps the previous arrays but forbids saving.
TEST_F(ProjectModel, FailedCheckKeepsPreviousResults)
{
    design(1, "norm", 0, 0);
    const auto previous = model.timeDomainArray();
    design(1, "norm", 2, 2);
    EXPECT_FALSE(model.validResultsFlag());
    EXPECT_EQ(model.timeDomainArray(), previous);
    EXPECT_EQ(view.plots, 1);
}

// H[m] at L·fs: a 2000 KHz filter serves 1000 KHz signals with L = 2.
TEST_F(ProjectModel, MultirateFilterRate)
{
    library.signalRecords["k1"] = signal(1000.0, 1, 0, 25.0, cosine(1.0, 0.025));
    library.signalRecords["k2"] = signal(2000.0, 1, 0, 25.0, cosine(1.0, 0.025));
    library.filterRecords["k2000"] = filter(1, 2000.0, centreTap(25));
    design(2, "k2000", 0, 2, 2, 3, 0, "k1", "k1");
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.timeDomainArray()[0], 1000.0);
    EXPECT_EQ(model.timeDomainArray()[8], 2000.0 / 3);
    design(2, "k2000", 0, 2, 2, 1, 0, "k2", "k2");
    EXPECT_EQ(view.note, kMultirateError);
    EXPECT_FALSE(model.validResultsFlag());
    // The automatic filter is treated as normalised: no rate comparison.
    design(2, "k2000", 0, 2, 2, 1, 1, "k2", "k2");
    EXPECT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.timeDomainArray()[8], 4000.0);
}

TEST_F(ProjectModel, VoltageUnitsAndRescale)
{
    // x₁ in mV, x₂ in V: x₁ goes to volts; an output peaking at 0.5 V shows as 500 mV.
    library.signalRecords["mv"] = signal(1.0, 0, 1, 0.1, cosine(400.0, 0.1));
    library.signalRecords["v"] = signal(1.0, 0, 0, 0.1, cosine(0.1, 0.1));
    design(1, "norm", 0, 0, 1, 1, 0, "mv", "v");
    ASSERT_TRUE(model.validResultsFlag());
    const auto& t = model.timeDomainArray();
    EXPECT_EQ(t[2], 0.0);
    EXPECT_NEAR(t[4], 0.5, 1e-15);
    EXPECT_EQ(t[10], 1.0);
    EXPECT_NEAR(t[12], 500.0, 1e-12);
    const auto x = input();
    const auto y = output();
    EXPECT_NEAR(x[0], 0.5, 1e-15);
    for (std::size_t n = 0; n < 16356; ++n)
        ASSERT_NEAR(y[n], 1000.0 * x[n + 12], 1e-12) << n;

    library.signalRecords["mv2"] = signal(1.0, 0, 1, 0.1, cosine(0.5, 0.1));
    design(1, "norm", 0, 2, 1, 1, 0, "mv2", "mv");
    EXPECT_EQ(model.timeDomainArray()[2], 1.0);
    EXPECT_EQ(model.timeDomainArray()[10], 1.0);
    EXPECT_NEAR(model.timeDomainArray()[12], 0.5, 1e-15);  // already mV: not scaled
}

TEST_F(ProjectModel, SignsAndFrequencyUnits)
{
    library.signalRecords["same"] = library.signalRecords["one"];
    design(1, "norm", 0, 1, 1, 1, 0, "one", "same");
    for (double v : output())
        ASSERT_EQ(v, 0.0);
    design(1, "norm", 2, 0);  // only x₂ (KHz, 25): its unit and maximum
    EXPECT_EQ(model.timeDomainArray()[3], 1.0);
    EXPECT_EQ(model.timeDomainArray()[1], 25.0);
    EXPECT_EQ(input(), *library.signalRecords["two"].sampledSignalArray);
    design(1, "norm", 1, 2);
    EXPECT_EQ(model.timeDomainArray()[3], 0.0);
    EXPECT_EQ(input()[0], -2.0);
}

// L = M = 1 copies the input; the multirate output matches upfirdn.
TEST_F(ProjectModel, MultirateOutput)
{
    library.signalRecords["a"] = signal(1.0, 0, 0, 0.1, noise(1, 3.0));
    library.signalRecords["b"] = signal(1.0, 0, 0, 0.1, noise(2, 3.0));
    design(2, "norm", 0, 1, 1, 1, 1, "a", "b");
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(input(), output());
    EXPECT_EQ(model.timeDomainArray()[8], 1.0);

    design(2, "norm", 0, 1, 10, 3, 1, "a", "b");
    ASSERT_TRUE(model.validResultsFlag());
    std::vector<double> h(kAutoFilterTaps);
    autoGenLPF(10, 3, h);
    const QByteArray text = reference::numbersLine(h) + reference::numbersLine(input());
    QString error;
    const auto out = reference::runPython(QStringLiteral("project_systems.py"), {"multirate", "10", "3"}, text, &error);
    ASSERT_TRUE(out) << error.toStdString();
    const auto ref = reference::parseNumbers(*out);
    ASSERT_EQ(ref.size(), N);
    const auto y = output();
    const double scale = model.timeDomainArray()[10] == 1.0 ? 1000.0 : 1.0;
    for (std::size_t j = 0; j < N; ++j)
        ASSERT_NEAR(y[j], scale * ref[j], 1e-12 * scale * 6.0) << j;
    EXPECT_NEAR(model.timeDomainArray()[8], 10.0 / 3, 1e-15);
}

TEST_F(ProjectModel, OutOfRangeDictionaryDoesNothing)
{
    design(2, "norm", 0, 0, 13, 1);
    design(2, "norm", 0, 0, 1, 0);
    design(3, "norm", 0, 0);
    design(1, "norm", 3, 0);
    design(1, "norm", 0, 0, 1, 1, 2);
    design(1, "", 0, 0);
    auto d = GVRProjectModel::parameterDictionary(1, "norm", "one", "two", 0, 0, 1, 1, 0);
    d.remove(KEYMOD_MULTIRATE_FILT);
    model.designProjectWithParameters(d);
    d.insert(QStringLiteral("EXTRA"), 0);
    model.designProjectWithParameters(d);
    d = GVRProjectModel::parameterDictionary(1, "norm", "one", "two", 0, 0, 1, 1, 0);
    d.insert(KEYMOD_MULTIRATE_L, std::nan(""));
    model.designProjectWithParameters(d);
    EXPECT_EQ(view.notes, 0);
    EXPECT_EQ(view.plots, 0);
    EXPECT_FALSE(model.validResultsFlag());
    EXPECT_EQ(model.multirateL(), std::numeric_limits<int>::min());  // stored, refused
}

// Missing designs, missing fields and non-finite values stop the design.
TEST_F(ProjectModel, UnreadableDesignsGiveNoResults)
{
    design(1, "norm", 0, 0, 1, 1, 0, "one", "gone");
    EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"gone\""));
    GVRSignal partial = library.signalRecords["one"];
    partial.maxFreq.reset();
    library.signalRecords["partial"] = partial;
    GVRSignal bad = library.signalRecords["one"];
    (*bad.sampledSignalArray)[100] = std::nan("");
    library.signalRecords["nan"] = bad;
    GVRSignal shortOne = library.signalRecords["one"];
    shortOne.sampledSignalArray->resize(100);
    library.signalRecords["short"] = shortOne;
    GVRSignal oddUnits = library.signalRecords["one"];
    oddUnits.voltUnits = 4;
    library.signalRecords["units"] = oddUnits;
    for (const char* name : {"partial", "nan", "short", "units"}) {
        design(1, "norm", 0, 2, 1, 1, 0, "one", name);  // even a signal left out must be readable
        EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"%1\"").arg(name));
    }
    GVRFilter f = library.filterRecords["norm"];
    f.filterPrecisionCoefficients->resize(10);
    library.filterRecords["cut"] = f;
    f = library.filterRecords["norm"];
    f.dfFilterLengthN = 24.5;
    library.filterRecords["half"] = f;
    for (const char* name : {"cut", "half", "gone"}) {
        design(1, name, 0, 0);
        EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"%1\"").arg(name));
    }
    design(2, "gone", 0, 0, 2, 2, 1);  // the automatic filter still needs its named one
    EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"gone\""));
    EXPECT_EQ(view.plots, 0);
    EXPECT_FALSE(model.validResultsFlag());

    GVRProjectModel lonely(emptyLibrary);  // reads the empty library, not `library`
    lonely.setWinProject(&view);
    lonely.designProjectWithParameters(GVRProjectModel::parameterDictionary(1, "norm", "one", "two", 0, 0, 1, 1, 0));
    EXPECT_FALSE(lonely.validResultsFlag());
}

TEST_F(ProjectModel, OverflowIsRefused)
{
    library.signalRecords["huge"] = signal(1.0, 0, 0, 0.1, std::vector<double>(N, 1e308));
    design(1, "norm", 0, 0, 1, 1, 0, "huge", "huge");
    EXPECT_EQ(view.note, QStringLiteral("ERROR - Results are not finite numbers"));
    EXPECT_FALSE(model.validResultsFlag());
    EXPECT_EQ(view.plots, 0);
}
