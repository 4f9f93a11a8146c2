// Spectral masks: a designed low, band and high pass, measured by a direct
// sum of their coefficients (not our FFT), stay within 0.01 dB of 0 dB in
// the pass band and under -70 dB in the stop band; the response the model
// plots is that same measurement. Design to a tolerance mask through the
// filter model: the shortest length meets the mask and two taps fewer miss
// it, refusals, misses at 255 taps, and the mask keys of the filter file
// (read by plistlib too).
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "filter/mask_design.h"
#include "recording_filter_view.h"
#include "support/reference_python.h"

namespace {

using MaskDesign = FilterFixture;
using SpectralMask = FilterFixture;

struct Band {
    double from, to; // normalised: 1 is half the sampling rate
};

struct Mask {
    const char* name;
    FilterParams p;
    std::vector<Band> pass, stop;
};

// |H| in dB at θ = k / 2048, the points the model plots.
double directDecibels(const std::vector<double>& c, std::size_t k)
{
    std::complex<double> sum = 0.0;
    const double w = std::numbers::pi * static_cast<double>(k) / 2048.0;
    for (std::size_t n = 0; n < c.size(); ++n)
        sum += c[n] * std::polar(1.0, -w * static_cast<double>(n));
    return 20.0 * std::log10(std::abs(sum));
}

bool inside(const std::vector<Band>& bands, double theta)
{
    for (const Band& b : bands)
        if (theta >= b.from && theta <= b.to)
            return true;
    return false;
}

ToleranceMask lowPass(double fp, double fst, double rp, double as)
{
    return {.passband = {fp, 0}, .stopband = {fst, 0}, .rippleDb = rp, .attenuationDb = as};
}

TEST_F(MaskDesign, ShortestLengthMeetsAndTwoFewerMiss)
{
    const struct {
        int method;
        ToleranceMask mask;
        int width;
    } cases[] = {{kMaskKaiser, lowPass(0.2, 0.3, 1.0, 40.0), 0},
                 {kMaskEquiripple, lowPass(0.2, 0.25, 0.5, 60.0), 0},
                 {kMaskEquiripple, {1, {0.3, 0.5}, {0.25, 0.55}, 1.0, 50.0}, 5}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mask.type);
        ASSERT_TRUE(model.designFilterToMask(
            FilterParams{.type = double(c.mask.type), .width = double(c.width)}.map(), c.method, c.mask));
        ASSERT_TRUE(model.validResultsFlag());
        const auto check = model.maskCheck();
        ASSERT_TRUE(check);
        EXPECT_TRUE(check->met);
        EXPECT_LE(check->passbandRippleDb, c.mask.rippleDb);
        const int N = static_cast<int>(model.filterLengthN());
        ASSERT_GT(N, 25);
        const auto shorter = maskTrial(c.method, c.mask, c.width, N - 2);
        ASSERT_TRUE(shorter);
        EXPECT_FALSE(shorter->check.met) << N;
        // The model's coefficients are the trial's at N.
        EXPECT_EQ(maskTrial(c.method, c.mask, c.width, N)->coefficients, model.filterCoefficients());
    }
}

TEST_F(MaskDesign, RefusalsAndMisses)
{
    const QVariantMap form = FilterParams{}.map();
    for (const ToleranceMask& bad : {lowPass(0.3, 0.2, 1, 40), lowPass(0.2, 1.2, 1, 40),
                                     lowPass(0.2, 0.3, 0, 40), lowPass(0.2, 0.3, 1, -3)}) {
        EXPECT_FALSE(model.designFilterToMask(form, kMaskEquiripple, bad));
        EXPECT_TRUE(view.note.startsWith("VALID RANGE: ")) << view.note.toStdString();
    }
    EXPECT_FALSE(model.validResultsFlag());
    ASSERT_TRUE(model.designFilterToMask(form, kMaskKaiser, lowPass(0.2, 0.201, 0.1, 90)));
    EXPECT_EQ(model.filterLengthN(), 255.0);
    EXPECT_TRUE(view.note.startsWith("Mask missed by ")) << view.note.toStdString();
    ASSERT_TRUE(model.designFilterToMask(form, kMaskEquiripple, lowPass(0.2, 0.6, 3, 10)));
    EXPECT_EQ(model.filterLengthN(), 25.0);
    // A plain design afterwards is a window design again.
    design({.cutoff = 0.3, .window = 3});
    EXPECT_FALSE(model.maskCheck());
}

TEST_F(MaskDesign, FilesKeepTheMaskAndStayReadable)
{
    const ToleranceMask highPass{
        .type = 2, .passband = {0.5, 0}, .stopband = {0.4, 0}, .rippleDb = 1.0, .attenuationDb = 40.0};
    ASSERT_TRUE(
        model.designFilterToMask(FilterParams{.type = 2, .width = 8}.map(), kMaskEquiripple, highPass));
    ASSERT_TRUE(model.saveFilterDesignWithFileName("masked")) << model.lastFileError().toStdString();
    GVRFilterDesignerModel reader(library);
    ASSERT_TRUE(reader.openFilterDesignWithFileName("masked"));
    ASSERT_TRUE(reader.restoredMask());
    EXPECT_EQ(reader.restoredMask()->first, kMaskEquiripple);
    EXPECT_EQ(reader.restoredMask()->second.passband[0], 0.5);
    EXPECT_EQ(reader.restoredMask()->second.attenuationDb, 40.0);
    // plistlib reads the record: the nineteen keys, then the mask keys.
    const auto json = reference::runPython("archive_check.py", {library.filterPath("masked")});
    ASSERT_TRUE(json);
    EXPECT_TRUE(json->contains("\"designMethod\"") && json->contains("\"dfMaskAttenuation\""));
    EXPECT_TRUE(json->contains("\"filterPrecisionCoefficients\""));

    // A window design writes no mask keys and opens without a mask.
    design({.cutoff = 0.3, .window = 3});
    ASSERT_TRUE(model.saveFilterDesignWithFileName("plain"));
    ASSERT_TRUE(reader.openFilterDesignWithFileName("plain"));
    EXPECT_FALSE(reader.restoredMask());
    const auto plainJson = reference::runPython("archive_check.py", {library.filterPath("plain")});
    ASSERT_TRUE(plainJson);
    EXPECT_FALSE(plainJson->contains("designMethod"));
}

TEST_F(SpectralMask, EachFilterTypeStaysInsideItsMask)
{
    // 101-tap Blackman designs (side lobes near -75 dB); width 0 is double, 5 is 16-bit.
    const Mask masks[] = {
        {"low pass", {.cutoff = 0.3}, {{0.0, 0.2}}, {{0.4, 1.0}}},
        {"low pass, 16-bit", {.cutoff = 0.3, .width = 5}, {{0.0, 0.2}}, {{0.4, 1.0}}},
        {"band pass", {.type = 1, .cutoff = 0.1, .center = 0.5}, {{0.47, 0.53}}, {{0.0, 0.3}, {0.7, 1.0}}},
        {"high pass", {.type = 2, .cutoff = 0.3}, {{0.4, 1.0}}, {{0.0, 0.2}}},
    };
    for (const Mask& m : masks) {
        SCOPED_TRACE(m.name);
        FilterParams p = m.p;
        p.length = 101;
        p.window = 1;
        design(p);
        ASSERT_TRUE(model.validResultsFlag());
        const std::vector<double>& c = model.filterPrecisionCoefficients();
        const std::vector<double>& plotted = model.dBmagAndPhaseArray();
        ASSERT_EQ(c.size(), 101u);
        ASSERT_EQ(plotted.size(), 8u + 2 * 2048u);
        int passPoints = 0, stopPoints = 0;
        for (std::size_t k = 0; k < 2048; ++k) {
            const double theta = static_cast<double>(k) / 2048.0;
            const double dB = directDecibels(c, k);
            if (dB > -110.0) {
                ASSERT_NEAR(plotted[8 + k], dB, 1e-3) << "θ " << theta;
            }
            if (inside(m.pass, theta)) {
                ASSERT_NEAR(dB, 0.0, 0.01) << "θ " << theta;
                ++passPoints;
            }
            if (inside(m.stop, theta)) {
                ASSERT_LT(dB, -70.0) << "θ " << theta;
                ++stopPoints;
            }
        }
        EXPECT_GT(passPoints, 100);
        EXPECT_GT(stopPoints, 400);
    }
}

} // namespace
