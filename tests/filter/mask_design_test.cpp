// Design to a tolerance mask through the filter model: the shortest length
// meets the mask and two taps fewer miss it, refusals, misses at 255 taps,
// and the mask keys of the filter file (read by plistlib too).
#include "filter/mask_design.h"
#include "recording_filter_view.h"
#include "support/reference_python.h"

namespace {

using MaskDesign = FilterFixture;

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

} // namespace
