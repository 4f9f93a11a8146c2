// The Multirate model's inner sequences w[m] and p[m] as the model hands them
// to the charts: zero insertion, the filtered sequence that decimation reads,
// and the images of a tone in the spectrum of w.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <set>

#include "library/design_library.h"
#include "library/memory_design_source.h"
#include "project/project_model.h"
#include "support/temp_library.h"

namespace {

constexpr std::size_t N = 16384;
using Stage = GVRProjectModel::MultirateStage;

// A tone at fs/16 (bin 1024) of `amplitude` volts through L, M and the automatic filter.
struct Multirate {
    Multirate(int L, int M, double amplitude = 1.0)
    {
        GVRSignal& s = source.signalRecords["tone"];
        s.samplingFreq = 1.0, s.yStepIndex = 0.0, s.freqUnits = 0, s.voltUnits = 0, s.maxFreq = 0.0625;
        s.sampledSignalArray = std::vector<double>(N);
        for (std::size_t k = 0; k < N; ++k)
            (*s.sampledSignalArray)[k] = amplitude * std::cos(2 * std::numbers::pi * 0.0625 * double(k));
        GVRFilter& unused = source.filterRecords["f"];
        unused.unitsType = 0, unused.dfFilterLengthN = 1.0, unused.filterPrecisionCoefficients = {{1.0}};
        model.setDesignSource(&source);
        model.designProjectWithParameters(
            GVRProjectModel::parameterDictionary(2, "f", "tone", "tone", 0, 2, L, M, 1));
    }
    std::vector<double> samples(Stage stage) const
    {
        const auto time = model.multirateStageArrays(stage).time;
        return time.size() == GVRProjectModel::kStageTimeLength
                   ? std::vector<double>(time.begin() + 8, time.end())
                   : std::vector<double>();
    }

    MemoryDesignSource source;
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    GVRProjectModel model{library};
};

} // namespace

// w carries x[i] at m = L·i and zeros between; p read every M-th sample from
// 0 is the model's output y (before its volt rescaling). L = M = 1 filters nothing.
TEST(MultirateStages, ZeroInsertionAndDecimationOfTheFilteredSequence)
{
    for (const auto& [L, M, amplitude] : {std::tuple{3, 2, 1.0}, std::tuple{4, 1, 1.0}, std::tuple{1, 3, 1.0},
                                          std::tuple{5, 7, 1e-4}, std::tuple{1, 1, 1.0}}) {
        SCOPED_TRACE(testing::Message() << "L " << L << " M " << M);
        const Multirate run(L, M, amplitude);
        const auto& t = run.model.timeDomainArray();
        ASSERT_EQ(t.size(), 32784u);
        const std::vector<double> x(t.begin() + 16, t.begin() + 16 + N);
        const double toOutputVolts = std::pow(1000.0, t[10] - t[2]);
        const auto w = run.samples(Stage::Upsampled);
        const auto p = run.samples(Stage::Filtered);
        ASSERT_EQ(w.size(), N);
        ASSERT_EQ(p.size(), N);
        for (std::size_t m = 0; m < N; ++m)
            ASSERT_EQ(w[m], m % std::size_t(L) == 0 ? x[m / std::size_t(L)] : 0.0) << m;
        for (std::size_t j = 0; j * std::size_t(M) < N; ++j) {
            const double y = t[16 + N + j];
            ASSERT_NEAR(p[j * std::size_t(M)] * toOutputVolts, y, 1e-12 * (1.0 + std::fabs(y))) << j;
        }
        EXPECT_TRUE(L != 1 || M != 1 || p == x);
        const auto header = run.model.multirateStageArrays(Stage::Filtered).time;
        EXPECT_EQ(header[0], double(L) * t[0]); // rate L·fs
        EXPECT_EQ(header[2], t[2]);             // the input's volt unit
    }
}

// Through L = 4 the one-sided spectrum of w holds the tone f0 = fs/16 and its
// L − 1 images at k·fs ± f0 (rate L·fs), each |X|/16384 = 0.5/L; after the
// automatic low pass only the tone is left.
TEST(MultirateStages, SpectrumOfWShowsTheImagesAndPHasThemRemoved)
{
    constexpr int L = 4;
    const Multirate run(L, 1);
    const auto w = run.model.multirateStageArrays(Stage::Upsampled).freq;
    const auto p = run.model.multirateStageArrays(Stage::Filtered).freq;
    ASSERT_EQ(w.size(), GVRProjectModel::kStageFreqLength);
    ASSERT_EQ(p.size(), GVRProjectModel::kStageFreqLength);
    const std::size_t fsBins = N / L, f0Bins = 1024 / L;
    const std::set<std::size_t> expected{f0Bins, fsBins - f0Bins, fsBins + f0Bins, 2 * fsBins - f0Bins};
    std::set<std::size_t> peaks;
    for (std::size_t b = 0; b < N / 2; ++b)
        if (w[8 + b] > 0.1 / L)
            peaks.insert(b);
    EXPECT_EQ(peaks, expected);
    for (std::size_t b : expected) {
        EXPECT_NEAR(w[8 + b], 0.5 / L, 1e-9) << b;
        EXPECT_NEAR(p[8 + b], b == f0Bins ? 0.5 / L : 0.0, b == f0Bins ? 0.01 / L : 1e-3 / L) << b;
    }
}
