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
constexpr std::size_t kHeader = 8;

GVRSignal tone(double cyclesPerSample, double amplitude)
{
    GVRSignal s;
    s.samplingFreq = 1.0;
    s.yStepIndex = 0.0;
    s.freqUnits = 0;
    s.voltUnits = 0;
    s.maxFreq = cyclesPerSample;
    std::vector<double> x(N);
    for (std::size_t k = 0; k < N; ++k)
        x[k] = amplitude * std::cos(2 * std::numbers::pi * cyclesPerSample * double(k));
    s.sampledSignalArray = std::move(x);
    return s;
}

struct Multirate {
    Multirate(int L, int M, double amplitude = 1.0)
    {
        source.signalRecords["tone"] = tone(0.0625, amplitude); // bin 1024 of 16384
        GVRFilter unused;
        unused.unitsType = 0;
        unused.dfFilterLengthN = 1.0;
        unused.filterPrecisionCoefficients = std::vector<double>{1.0};
        source.filterRecords["f"] = unused;
        model.setDesignSource(&source);
        model.designProjectWithParameters(GVRProjectModel::parameterDictionary(
            2, QStringLiteral("f"), QStringLiteral("tone"), QStringLiteral("tone"), 0, 2, L, M, 1));
    }
    std::vector<double> samples(GVRProjectModel::MultirateStage stage) const
    {
        const auto time = model.multirateStageArrays(stage).time;
        return time.size() == GVRProjectModel::kStageTimeLength
                   ? std::vector<double>(time.begin() + kHeader, time.end())
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
        ASSERT_TRUE(run.model.validResultsFlag());
        const auto& t = run.model.timeDomainArray();
        const std::vector<double> x(t.begin() + 16, t.begin() + 16 + N);
        const std::vector<double> y(t.begin() + 16 + N, t.end());
        const double toOutputVolts = std::pow(1000.0, t[10] - t[2]);
        const auto w = run.samples(GVRProjectModel::MultirateStage::Upsampled);
        const auto p = run.samples(GVRProjectModel::MultirateStage::Filtered);
        ASSERT_EQ(w.size(), N);
        ASSERT_EQ(p.size(), N);
        for (std::size_t m = 0; m < N; ++m)
            ASSERT_EQ(w[m], m % std::size_t(L) == 0 ? x[m / std::size_t(L)] : 0.0) << m;
        for (std::size_t j = 0; j * std::size_t(M) < N; ++j)
            ASSERT_NEAR(p[j * std::size_t(M)] * toOutputVolts, y[j], 1e-12 * (1.0 + std::fabs(y[j]))) << j;
        if (L == 1 && M == 1) {
            EXPECT_EQ(p, x);
        }

        const auto header = run.model.multirateStageArrays(GVRProjectModel::MultirateStage::Filtered).time;
        EXPECT_EQ(header[0], double(L) * t[0]); // rate L·fs
        EXPECT_EQ(header[2], t[2]);             // the input's volt unit
    }
}

// A tone at f0 = fs/16, put through L = 4: the one-sided spectrum of w holds
// the tone and its images at k·fs ± f0 (rate L·fs), each |X|/16384 = 0.5/L;
// after the automatic low pass only the tone is left.
TEST(MultirateStages, SpectrumOfWShowsTheImagesAndPHasThemRemoved)
{
    constexpr int L = 4;
    const Multirate run(L, 1);
    const auto upsampled = run.model.multirateStageArrays(GVRProjectModel::MultirateStage::Upsampled).freq;
    const auto filtered = run.model.multirateStageArrays(GVRProjectModel::MultirateStage::Filtered).freq;
    ASSERT_EQ(upsampled.size(), GVRProjectModel::kStageFreqLength);
    ASSERT_EQ(filtered.size(), GVRProjectModel::kStageFreqLength);
    const std::size_t fsBins = N / L;    // fs at the rate L·fs
    const std::size_t f0Bins = 1024 / L; // fs/16
    std::set<std::size_t> expected{f0Bins};
    for (std::size_t k = 1; k * fsBins < N / 2 + f0Bins; ++k)
        for (std::size_t b : {k * fsBins - f0Bins, k * fsBins + f0Bins})
            if (b < N / 2)
                expected.insert(b);
    ASSERT_EQ(expected.size(), std::size_t(L)); // the tone and L − 1 images
    std::set<std::size_t> peaks;
    for (std::size_t b = 0; b < N / 2; ++b)
        if (upsampled[kHeader + b] > 0.1 / L)
            peaks.insert(b);
    EXPECT_EQ(peaks, expected);
    for (std::size_t b : expected)
        EXPECT_NEAR(upsampled[kHeader + b], 0.5 / L, 1e-9) << b;
    EXPECT_NEAR(upsampled[4], 0.5 / L, 1e-9); // the header's largest bin

    EXPECT_NEAR(filtered[kHeader + f0Bins], 0.5 / L, 0.01 / L);
    for (std::size_t b : expected)
        if (b != f0Bins) {
            EXPECT_LT(filtered[kHeader + b], 1e-3 / L) << b;
        }
}
