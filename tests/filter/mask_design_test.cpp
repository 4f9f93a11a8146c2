// Design to a tolerance mask through the filter model: the shortest length
// meets the mask and two taps fewer miss it, refusals, misses at 255 taps,
// and the mask keys of the filter file (read by plistlib too).
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "filter/mask_design.h"
#include "library/design_library.h"
#include "recording_filter_view.h"
#include "support/reference_python.h"
#include "support/temp_library.h"

#include <gtest/gtest.h>

namespace {

ToleranceMask lowPass(double fp, double fst, double rp, double as)
{
    ToleranceMask m;
    m.passband[0] = fp;
    m.stopband[0] = fst;
    m.rippleDb = rp;
    m.attenuationDb = as;
    return m;
}

QVariantMap form(int type, int width)
{
    return {{KEYFP_UNITS, 0}, {KEYFP_FILTER_TYPE, type}, {KEYFP_SAMPLING_FREQ, 0.0}, {KEYFP_FILTER_WIDTH, width}};
}

TEST(MaskDesign, ShortestLengthMeetsAndTwoFewerMiss)
{
    ToleranceMask band;
    band.type = 1;
    band.stopband[0] = 0.25, band.passband[0] = 0.3, band.passband[1] = 0.5, band.stopband[1] = 0.55;
    band.rippleDb = 1.0, band.attenuationDb = 50.0;
    const struct {
        int method;
        ToleranceMask mask;
        int width;
    } cases[] = {{kMaskKaiser, lowPass(0.2, 0.3, 1.0, 40.0), 0},
                 {kMaskEquiripple, lowPass(0.2, 0.25, 0.5, 60.0), 0},
                 {kMaskEquiripple, band, 5}};
    for (const auto& c : cases) {
        RecordingFilterView view;
        TempLibrary temp;
        DesignLibrary library(temp.root());
        GVRFilterDesignerModel model(library);
        model.setWindow(&view);
        ASSERT_TRUE(model.designFilterToMask(form(c.mask.type, c.width), c.method, c.mask));
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

TEST(MaskDesign, RefusalsAndMisses)
{
    RecordingFilterView view;
    TempLibrary temp;
    DesignLibrary library(temp.root());
    GVRFilterDesignerModel model(library);
    model.setWindow(&view);
    for (const ToleranceMask& bad : {lowPass(0.3, 0.2, 1, 40), lowPass(0.2, 1.2, 1, 40), lowPass(0.2, 0.3, 0, 40),
                                     lowPass(0.2, 0.3, 1, -3)}) {
        EXPECT_FALSE(model.designFilterToMask(form(0, 0), kMaskEquiripple, bad));
        EXPECT_TRUE(view.note.startsWith("VALID RANGE: ")) << view.note.toStdString();
    }
    EXPECT_FALSE(model.validResultsFlag());
    ASSERT_TRUE(model.designFilterToMask(form(0, 0), kMaskKaiser, lowPass(0.2, 0.201, 0.1, 90)));
    EXPECT_EQ(model.filterLengthN(), 255.0);
    EXPECT_TRUE(view.note.startsWith("Mask missed by ")) << view.note.toStdString();
    ASSERT_TRUE(model.designFilterToMask(form(0, 0), kMaskEquiripple, lowPass(0.2, 0.6, 3, 10)));
    EXPECT_EQ(model.filterLengthN(), 25.0);
    // A plain design afterwards is a window design again.
    QVariantMap plain = form(0, 0);
    plain.insert({{KEYFP_CUTOFF_FREQ, 0.3}, {KEYFP_CENTER_FREQ, 0.0}, {KEYFP_FILTER_LENGTH, 51.0},
                  {KEYFP_WINDOW_TYPE, 3}, {KEYFP_BETA_UPSILON, 0.0}});
    model.designFilterWithParameters(plain);
    EXPECT_FALSE(model.maskCheck());
}

TEST(MaskDesign, FilesKeepTheMaskAndStayReadable)
{
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    GVRFilterDesignerModel model(library);
    ASSERT_TRUE(model.designFilterToMask(form(2, 8), kMaskEquiripple, [] {
        ToleranceMask m;
        m.type = 2, m.stopband[0] = 0.4, m.passband[0] = 0.5, m.rippleDb = 1.0, m.attenuationDb = 40.0;
        return m;
    }()));
    ASSERT_TRUE(model.saveFilterDesignWithFileName("masked")) << model.lastFileError().toStdString();
    GVRFilterDesignerModel reader(library);
    ASSERT_TRUE(reader.openFilterDesignWithFileName("masked"));
    ASSERT_TRUE(reader.restoredMask());
    EXPECT_EQ(reader.restoredMask()->first, kMaskEquiripple);
    EXPECT_EQ(reader.restoredMask()->second.passband[0], 0.5);
    EXPECT_EQ(reader.restoredMask()->second.attenuationDb, 40.0);
    // plistlib reads the record: the nineteen keys, then the mask keys, Rectangular as the window.
    const auto json = reference::runPython("archive_check.py", {library.filterPath("masked")});
    ASSERT_TRUE(json);
    EXPECT_TRUE(json->contains("\"designMethod\"") && json->contains("\"dfMaskAttenuation\""));
    EXPECT_TRUE(json->contains("\"filterPrecisionCoefficients\""));

    // A window design writes no mask keys and opens without a mask.
    QVariantMap plain = form(0, 0);
    plain.insert({{KEYFP_CUTOFF_FREQ, 0.3}, {KEYFP_CENTER_FREQ, 0.0}, {KEYFP_FILTER_LENGTH, 51.0},
                  {KEYFP_WINDOW_TYPE, 3}, {KEYFP_BETA_UPSILON, 0.0}});
    model.designFilterWithParameters(plain);
    ASSERT_TRUE(model.saveFilterDesignWithFileName("plain"));
    ASSERT_TRUE(reader.openFilterDesignWithFileName("plain"));
    EXPECT_FALSE(reader.restoredMask());
    const auto plainJson = reference::runPython("archive_check.py", {library.filterPath("plain")});
    ASSERT_TRUE(plainJson);
    EXPECT_FALSE(plainJson->contains("designMethod"));
}

} // namespace
