// Project model over an in-memory library: rate checks and their messages,
// unit handling, both systems against references, and unreadable designs.
// Projects saved and opened over the sample designs: the nine choices in the
// file, open checking the library for the designs named, and refusals.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include <QFile>
#include <QTemporaryDir>

#include "archive/atomic_write.h"
#include "archive/project_archive.h"
#include "dsp/multirate.h"
#include "library/design_library.h"
#include "library/memory_design_source.h"
#include "project/project_keys.h"
#include "project/project_model.h"
#include "project/project_view.h"
#include "shell/sample_designs.h"
#include "support/reference_python.h"
#include "support/temp_library.h"

namespace {

class RecordingProjectView : public ProjectView {
public:
    void displayNoteField(const QString& text, double, bool withValue) override
    {
        note = text;
        EXPECT_FALSE(withValue); // project notes never carry a number
        ++notes;
    }
    void plotTimeWithArray(const std::vector<double>&) override { ++plots; }
    void plotFreqWithArray(const std::vector<double>&) override {}
    void restoreProjectParameters(const QVariantMap& p) override
    {
        restored = p;
        ++restores;
    }

    QString note;
    QVariantMap restored;
    int notes = 0, plots = 0, restores = 0;
};

constexpr std::size_t N = 16384;
const QString kSumError = QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]");
const QString kMultirateError =
    QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs; H[m] requires rate of L*fs");

// A cosine of `cycles` per sample, or uniform noise of that amplitude when `seed` is set.
std::vector<double> samples(double amplitude, double cycles, unsigned seed = 0)
{
    std::mt19937 gen(seed);
    std::uniform_real_distribution<double> d(-amplitude, amplitude);
    std::vector<double> x(N);
    for (std::size_t k = 0; k < N; ++k)
        x[k] = seed ? d(gen) : amplitude * std::cos(2 * std::numbers::pi * cycles * static_cast<double>(k));
    return x;
}

GVRSignal signal(double fs, std::int64_t freqUnits, std::int64_t voltUnits, double maxFreq,
                 std::vector<double> x)
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

// A 25-tap filter that only delays by 12 samples.
GVRFilter filter(std::int64_t units, double fs)
{
    GVRFilter f;
    f.unitsType = units;
    f.dfThetaSamplingFreq = fs;
    f.dfFilterLengthN = 25.0;
    f.filterPrecisionCoefficients = std::vector<double>(25, 0.0);
    (*f.filterPrecisionCoefficients)[12] = 1.0;
    return f;
}

class ProjectModel : public ::testing::Test {
protected:
    ProjectModel()
    {
        model.setDesignSource(&library);
        model.setWinProject(&view);
        library.signalRecords["one"] = signal(1.0, 0, 0, 0.1, samples(2.0, 0.1));
        library.signalRecords["two"] = signal(1000.0, 1, 0, 25.0, samples(1.5, 0.025));
        library.filterRecords["norm"] = filter(0, 0.0);
        library.filterRecords["khz"] = filter(1, 1000.0);
    }
    void design(int diagram, const char* filterName, int sign1, int sign2, int L = 1, int M = 1,
                int automatic = 0, const char* one = "one", const char* two = "two")
    {
        model.designProjectWithParameters(GVRProjectModel::parameterDictionary(
            diagram, QString::fromUtf8(filterName), QString::fromUtf8(one), QString::fromUtf8(two), sign1,
            sign2, L, M, automatic));
    }
    const std::vector<double>& t() const { return model.timeDomainArray(); }
    std::vector<double> input() const { return {t().begin() + 16, t().begin() + 16 + N}; }
    std::vector<double> output() const { return {t().begin() + 16400, t().end()}; }

    MemoryDesignSource library;
    RecordingProjectView view;
    TempLibrary temp;
    DesignLibrary emptyLibrary{temp.root()};
    GVRProjectModel model{emptyLibrary};
};

} // namespace

// The rate checks: 1.0 MHz and 1000 KHz agree once in one unit; a normalised
// filter is not compared; a signal left out does not count; H[m] runs at L·fs
// (a 2000 KHz filter serves 1000 KHz signals with L = 2) unless it is the
// automatic filter, which is normalised. Headers give the rates in the unit
// they state (MHz when the signals' units differ).
TEST_F(ProjectModel, RateChecks)
{
    library.signalRecords["fast"] = signal(2.0, 0, 0, 0.1, samples(1.0, 0.1));
    library.signalRecords["k1"] = signal(1000.0, 1, 0, 25.0, samples(1.0, 0.025));
    library.signalRecords["k2"] = signal(2000.0, 1, 0, 25.0, samples(1.0, 0.025));
    library.filterRecords["khz500"] = filter(1, 500.0);
    library.filterRecords["odd"] = filter(5, 1000.0);
    library.filterRecords["k2000"] = filter(1, 2000.0);
    const struct {
        int diagram;
        const char* filter;
        int sign2, L, M, automatic;
        const char *one, *two;
        QString note; // empty: designed, with input and output rates
        double fsIn = 0, fsOut = 0;
    } cases[] = {{1, "norm", 0, 1, 1, 0, "one", "two", {}, 1.0, 1.0},
                 {1, "khz", 0, 1, 1, 0, "one", "two", {}, 1.0, 1.0},
                 {1, "norm", 0, 1, 1, 0, "one", "fast", kSumError},
                 {1, "norm", 2, 1, 1, 0, "one", "fast", {}, 1.0, 1.0},
                 {1, "khz500", 0, 1, 1, 0, "one", "two", kSumError},
                 {1, "odd", 0, 1, 1, 0, "one", "two", kSumError},
                 {2, "odd", 0, 2, 1, 0, "one", "two", kMultirateError},
                 {2, "k2000", 2, 2, 3, 0, "k1", "k1", {}, 1000.0, 2000.0 / 3},
                 {2, "k2000", 2, 2, 1, 0, "k2", "k2", kMultirateError},
                 {2, "k2000", 2, 2, 1, 1, "k2", "k2", {}, 2000.0, 4000.0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.filter << " " << c.one << " " << c.two << " L " << c.L);
        design(c.diagram, c.filter, 0, c.sign2, c.L, c.M, c.automatic, c.one, c.two);
        EXPECT_EQ(view.note, c.note);
        ASSERT_EQ(model.validResultsFlag(), c.note.isEmpty());
        if (c.note.isEmpty()) {
            EXPECT_TRUE(t()[0] == c.fsIn && t()[8] == c.fsOut && model.freqDomainArray()[0] == c.fsIn);
        }
    }
}

// The headers of the first design; a failed check keeps the previous arrays but forbids saving.
TEST_F(ProjectModel, HeadersAndAFailedCheck)
{
    design(1, "norm", 0, 0);
    ASSERT_EQ(t().size(), 32784u);
    ASSERT_EQ(model.freqDomainArray().size(), 16400u);
    // Rate, max(0.1 MHz, 25 KHz = 0.025 MHz), MHz; the output half repeats them.
    EXPECT_TRUE(t()[0] == 1.0 && t()[1] == 0.1 && t()[3] == 0.0) << t()[0] << " " << t()[1] << " " << t()[3];
    EXPECT_TRUE(t()[8] == 1.0 && t()[9] == t()[1] && t()[11] == t()[3]);
    const auto previous = t();
    design(1, "norm", 2, 2);
    EXPECT_EQ(view.note, kSumError);
    EXPECT_FALSE(model.validResultsFlag());
    EXPECT_EQ(t(), previous);
    EXPECT_EQ(view.plots, 1);
}

TEST_F(ProjectModel, VoltageUnitsSignsAndFrequencyUnits)
{
    // x₁ in mV, x₂ in V: x₁ goes to volts; an output peaking at 0.5 V shows as 500 mV.
    library.signalRecords["mv"] = signal(1.0, 0, 1, 0.1, samples(400.0, 0.1));
    library.signalRecords["v"] = signal(1.0, 0, 0, 0.1, samples(0.1, 0.1));
    design(1, "norm", 0, 0, 1, 1, 0, "mv", "v");
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_TRUE(t()[2] == 0.0 && t()[10] == 1.0);
    EXPECT_NEAR(t()[4], 0.5, 1e-15);
    EXPECT_NEAR(t()[12], 500.0, 1e-12);
    const auto x = input();
    const auto y = output();
    EXPECT_NEAR(x[0], 0.5, 1e-15);
    for (std::size_t n = 0; n < 16356; ++n)
        ASSERT_NEAR(y[n], 1000.0 * x[n + 12], 1e-12) << n;
    library.signalRecords["mv2"] = signal(1.0, 0, 1, 0.1, samples(0.5, 0.1));
    design(1, "norm", 0, 2, 1, 1, 0, "mv2", "mv");
    EXPECT_TRUE(t()[2] == 1.0 && t()[10] == 1.0);
    EXPECT_NEAR(t()[12], 0.5, 1e-15); // already mV: not scaled

    library.signalRecords["same"] = library.signalRecords["one"];
    design(1, "norm", 0, 1, 1, 1, 0, "one", "same");
    const auto difference = output();
    EXPECT_TRUE(std::all_of(difference.begin(), difference.end(), [](double v) { return v == 0.0; }));
    design(1, "norm", 2, 0); // only x₂ (KHz, 25): its unit and maximum
    EXPECT_TRUE(t()[3] == 1.0 && t()[1] == 25.0);
    EXPECT_EQ(input(), *library.signalRecords["two"].sampledSignalArray);
    design(1, "norm", 1, 2);
    EXPECT_EQ(t()[3], 0.0);
    EXPECT_EQ(input()[0], -2.0);
}

// L = M = 1 copies the input; the multirate output matches upfirdn.
TEST_F(ProjectModel, MultirateOutput)
{
    library.signalRecords["a"] = signal(1.0, 0, 0, 0.1, samples(3.0, 0, 1));
    library.signalRecords["b"] = signal(1.0, 0, 0, 0.1, samples(3.0, 0, 2));
    design(2, "norm", 0, 1, 1, 1, 1, "a", "b");
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_EQ(input(), output());
    EXPECT_EQ(t()[8], 1.0);

    design(2, "norm", 0, 1, 10, 3, 1, "a", "b");
    ASSERT_TRUE(model.validResultsFlag());
    std::vector<double> h(kAutoFilterTaps);
    autoGenLPF(10, 3, h);
    QString error;
    const auto out =
        reference::runPython(QStringLiteral("project_systems.py"), {"multirate", "10", "3"},
                             reference::numbersLine(h) + reference::numbersLine(input()), &error);
    ASSERT_TRUE(out) << error.toStdString();
    const auto ref = reference::parseNumbers(*out);
    ASSERT_EQ(ref.size(), N);
    const auto y = output();
    const double scale = t()[10] == 1.0 ? 1000.0 : 1.0;
    for (std::size_t j = 0; j < N; ++j)
        ASSERT_NEAR(y[j], scale * ref[j], 1e-12 * scale * 6.0) << j;
    EXPECT_NEAR(t()[8], 10.0 / 3, 1e-15);
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
    EXPECT_EQ(model.multirateL(), std::numeric_limits<int>::min()); // stored, refused
}

// Missing designs, missing fields, non-finite values and overflow stop the design.
TEST_F(ProjectModel, UnreadableDesignsGiveNoResults)
{
    const auto broken = [&](const char* name, auto change) {
        GVRSignal s = library.signalRecords["one"];
        change(s);
        library.signalRecords[name] = s;
    };
    broken("partial", [](GVRSignal& s) { s.maxFreq.reset(); });
    broken("nan", [](GVRSignal& s) { (*s.sampledSignalArray)[100] = std::nan(""); });
    broken("short", [](GVRSignal& s) { s.sampledSignalArray->resize(100); });
    broken("units", [](GVRSignal& s) { s.voltUnits = 4; });
    for (const char* name : {"gone", "partial", "nan", "short", "units"}) {
        design(1, "norm", 0, 2, 1, 1, 0, "one", name); // even a signal left out must be readable
        EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"%1\"").arg(name));
    }
    library.filterRecords["cut"] = library.filterRecords["half"] = library.filterRecords["norm"];
    library.filterRecords["cut"].filterPrecisionCoefficients->resize(10);
    library.filterRecords["half"].dfFilterLengthN = 24.5;
    for (const char* name : {"cut", "half", "gone"}) {
        design(1, name, 0, 0);
        EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"%1\"").arg(name));
    }
    design(2, "gone", 0, 0, 2, 2, 1); // the automatic filter still needs its named one
    EXPECT_EQ(view.note, QStringLiteral("ERROR - Cannot read the design \"gone\""));

    library.signalRecords["huge"] = signal(1.0, 0, 0, 0.1, std::vector<double>(N, 1e308));
    design(1, "norm", 0, 0, 1, 1, 0, "huge", "huge");
    EXPECT_EQ(view.note, QStringLiteral("ERROR - Results are not finite numbers"));
    EXPECT_EQ(view.plots, 0);
    EXPECT_FALSE(model.validResultsFlag());

    GVRProjectModel lonely(emptyLibrary); // reads the empty library, not `library`
    lonely.setWinProject(&view);
    lonely.designProjectWithParameters(
        GVRProjectModel::parameterDictionary(1, "norm", "one", "two", 0, 0, 1, 1, 0));
    EXPECT_FALSE(lonely.validResultsFlag());
}

namespace {

class ProjectFile : public ::testing::Test {
protected:
    // The sample designs are made once for the whole suite.
    static void SetUpTestSuite()
    {
        samples_ = new QTemporaryDir;
        ASSERT_TRUE(makeSampleDesigns(samples_->path()).isEmpty());
    }
    static void TearDownTestSuite() { delete std::exchange(samples_, nullptr); }
    void SetUp() override
    {
        ASSERT_TRUE(prepareLibrary(library, samples_->path()).isEmpty());
        model.setWinProject(&view);
    }
    static QVariantMap multirate(int automatic)
    {
        return GVRProjectModel::parameterDictionary(2, "lpNormfcp333", "Cos35Fs300", "Cos10M3Fs300", 0, 1, 3,
                                                    2, automatic);
    }
    // A Sum & Filter project of two sample signals and a sample filter.
    static GVRProject sum()
    {
        GVRProject p;
        p.blockDiagramNumber = 1;
        p.signalOneSign = p.signalTwoSign = 0;
        p.multirateL = p.multirateM = 1;
        p.multirateFilterType = 0;
        p.filterName = "lp300fc25";
        p.signalOneName = "Cos10M3Fs300";
        p.signalTwoName = "Cos35Fs300";
        return p;
    }

    static inline QTemporaryDir* samples_ = nullptr;
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    RecordingProjectView view;
    GVRProjectModel model{library};
};

} // namespace

TEST_F(ProjectFile, SaveThenOpenRestoresTheNineValuesAndTheSameDesign)
{
    const QVariantMap chosen = multirate(0);
    model.designProjectWithParameters(chosen);
    ASSERT_TRUE(model.validResultsFlag());
    const QString path = library.projectPath(2, QStringLiteral("mine"));
    ASSERT_TRUE(model.saveProjectWithFilePath(path)) << model.lastFileError().toStdString();

    const auto record = readProjectFile(path);
    ASSERT_TRUE(record.has_value());
    EXPECT_TRUE(record->blockDiagramNumber == 2 && record->signalOneSign == 0 && record->signalTwoSign == 1);
    EXPECT_TRUE(record->multirateL == 3 && record->multirateM == 2);
    EXPECT_EQ(record->filterName, std::string("lpNormfcp333"));

    GVRProjectModel other(library);
    RecordingProjectView otherView;
    other.setWinProject(&otherView);
    ASSERT_TRUE(other.openProjectWithFilePath(path)) << other.lastFileError().toStdString();
    ASSERT_EQ(otherView.restores, 1);
    EXPECT_EQ(otherView.restored.size(), 9);
    for (auto it = chosen.begin(); it != chosen.end(); ++it)
        EXPECT_EQ(otherView.restored.value(it.key()).toString(), it.value().toString())
            << it.key().toStdString();
    other.designProjectWithParameters(otherView.restored);
    ASSERT_TRUE(other.validResultsFlag());
    EXPECT_EQ(other.timeDomainArray(), model.timeDomainArray());
}

TEST_F(ProjectFile, SaveRefusesWithoutValidResults)
{
    const QString path = library.projectPath(1, QStringLiteral("early"));
    EXPECT_FALSE(model.saveProjectWithFilePath(path));
    // Mismatched rates: Cos1MHz (20 MHz) with a 300 KHz filter.
    model.designProjectWithParameters(
        GVRProjectModel::parameterDictionary(1, "lp300fc25", "Cos1MHz", "Cos35Fs300", 0, 0, 1, 1, 0));
    ASSERT_FALSE(model.validResultsFlag());
    EXPECT_FALSE(model.saveProjectWithFilePath(path));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_FALSE(QFile::exists(path));
    model.designProjectWithParameters(multirate(1));
    ASSERT_TRUE(model.validResultsFlag());
    EXPECT_FALSE(model.saveProjectWithFilePath(QString()));
}

TEST_F(ProjectFile, OpenFailsWhenANamedDesignIsGone)
{
    model.designProjectWithParameters(multirate(1));
    const QString path = library.projectPath(2, QStringLiteral("auto"));
    ASSERT_TRUE(model.saveProjectWithFilePath(path));
    ASSERT_TRUE(model.openProjectWithFilePath(path));
    // The automatic filter still needs its saved filter in the library.
    ASSERT_TRUE(QFile::remove(library.filterPath(QStringLiteral("lpNormfcp333"))));
    view.restores = 0;
    EXPECT_FALSE(model.openProjectWithFilePath(path));
    EXPECT_TRUE(model.lastFileError().contains(QStringLiteral("lpNormfcp333")));
    EXPECT_EQ(view.restores, 0);

    GVRProject p = sum();
    const QString sumPath = library.projectPath(1, QStringLiteral("sum"));
    ASSERT_TRUE(writeProjectFile(sumPath, p));
    ASSERT_TRUE(model.openProjectWithFilePath(sumPath));
    p.signalTwoName = "cos35fs300"; // names compare exactly
    ASSERT_TRUE(writeProjectFile(sumPath, p));
    EXPECT_FALSE(model.openProjectWithFilePath(sumPath));
    ASSERT_TRUE(writeProjectFile(sumPath, sum()));
    ASSERT_TRUE(QFile::remove(library.signalPath(QStringLiteral("Cos35Fs300"))));
    EXPECT_FALSE(model.openProjectWithFilePath(sumPath));
}

TEST_F(ProjectFile, OpenUsesTheLastRecordAndRefusesIncompleteOrForeignFiles)
{
    GVRProject second = sum();
    second.signalOneSign = 1;
    second.signalTwoName = "Cos10M3Fs300";
    const QString path = library.projectPath(1, QStringLiteral("two"));
    ASSERT_TRUE(writeFileAtomically(path, encodeProjectArchive({sum(), second})));
    ASSERT_TRUE(model.openProjectWithFilePath(path));
    EXPECT_EQ(view.restored.value(KEYMOD_SIG_ONE_SIGN).toInt(), 1);
    EXPECT_EQ(view.restored.value(KEYMOD_SIG_TWO_NAME).toString(), QStringLiteral("Cos10M3Fs300"));

    GVRProject partial = sum();
    partial.multirateM.reset();
    ASSERT_TRUE(writeFileAtomically(path, encodeProjectArchive(partial)));
    view.restores = 0;
    // Incomplete, a filter file (not a project), missing, no name.
    for (const QString& p : {path, library.filterPath(QStringLiteral("lp300fc25")),
                             library.projectPath(1, QStringLiteral("missing")), QString()}) {
        EXPECT_FALSE(model.openProjectWithFilePath(p)) << p.toStdString();
        EXPECT_FALSE(model.lastFileError().isEmpty());
    }
    EXPECT_EQ(view.restores, 0);
}
