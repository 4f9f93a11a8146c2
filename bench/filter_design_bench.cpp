// Times a full 255-tap filter design through GVRFilterDesignerModel (Kaiser
// β = 5, 16-bit, band pass centred at 0.5 with half-width 0.2) beside the same
// job in scipy, and the stages of the pipeline on their own.
#include "bench_support.h"

#include "dsp/filter_measurements.h"
#include "dsp/fir_synthesis.h"
#include "dsp/frequency_response.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "filter/filter_design_view.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "library/design_library.h"

#include <hwy/targets.h>

#include <cstdio>
#include <vector>

#include <QTemporaryDir>

namespace {

class SilentView : public GVRFilterDesignView {
public:
    void displayNoteField(const QString&, double, bool) override {}
    void displayFilterDesignResults(const QVariantMap&) override {}
    void plotMagnitudeAndPhaseWithArray(const std::vector<double>&) override {}
    void clearFilterDesignResults() override {}
    void restoreFilterParameters(const QVariantMap&) override {}
};

} // namespace

int main()
{
    bench::loadFftWisdom();
    // The vector kernels run on the best Highway target built that this processor has.
    const std::int64_t targets = hwy::SupportedTargets() & HWY_TARGETS;
    std::printf("vector kernels: Highway %s\n", hwy::TargetName(targets & -targets));
    const QVariantMap parameters{
        {KEYFP_UNITS, 0},         {KEYFP_FILTER_TYPE, 1},   {KEYFP_SAMPLING_FREQ, 0.0},
        {KEYFP_CUTOFF_FREQ, 0.2}, {KEYFP_CENTER_FREQ, 0.5}, {KEYFP_FILTER_LENGTH, 255.0},
        {KEYFP_FILTER_WIDTH, 5},  {KEYFP_WINDOW_TYPE, 9},   {KEYFP_BETA_UPSILON, 5.0},
    };
    SilentView view;
    QTemporaryDir scratch; // nothing is saved; the model still needs a library
    DesignLibrary library(scratch.path());
    GVRFilterDesignerModel model(library);
    model.setWindow(&view);
    const int repeats = 2001;

    const double full = bench::medianMicros([&] { model.designFilterWithParameters(parameters); }, repeats);
    if (!model.validResultsFlag())
        std::printf("warning: the benchmark design found no 3 dB point\n");
    const auto scipy = bench::pythonMedianMicros("filter_design_scipy.py", "300");
    bench::report("255-tap Kaiser band pass, 16-bit (model)", full, scipy, "scipy firwin+freqz");

    // The stages, for seeing where the time goes.
    const std::size_t N = 255;
    std::vector<double> H(N), h(N), w(N), hw(N), c(N), cp(N);
    std::vector<std::int32_t> q(N);
    std::vector<double> dB(kResponsePoints), phase(kResponsePoints), U(kResponseHalf);
    idealLowPassSamples(passbandCount(N, 0.2), H);
    bench::report("  iDFTforSinc N=255 (M=26)", bench::medianMicros([&] { iDFTforSinc(H, h); }, repeats),
                  std::nullopt, "");
    bench::report("  kaiser window N=255",
                  bench::medianMicros([&] { winfun(kWindowKaiser, 5.0, w); }, repeats), std::nullopt, "");
    bench::report("  chebyshev window N=255",
                  bench::medianMicros([&] { winfun(kWindowChebyshev, 3.0, w); }, repeats), std::nullopt, "");
    winfun(kWindowKaiser, 5.0, w);
    winSync(h, w, hw);
    bench::report("  band transform N=255",
                  bench::medianMicros([&] { filt(kFilterBandPass, 0.5, hw, c); }, repeats), std::nullopt, "");
    bench::report("  quantisation + symmetry",
                  bench::medianMicros([&] { bitPrecison(5, c, q, cp), verifySymmetry(5, c, q); }, repeats),
                  std::nullopt, "");
    bench::report("  fftFilter dB only", bench::medianMicros([&] { fftFilter(cp, dB, {}); }, repeats),
                  std::nullopt, "");
    bench::report("  fftFilter dB + phase", bench::medianMicros([&] { fftFilter(c, dB, phase); }, repeats),
                  std::nullopt, "");
    bench::report("  unwrapPhase", bench::medianMicros([&] { unwrapPhase(phase, dB, U); }, repeats),
                  std::nullopt, "");
    bench::report(
        "  calcFilt3dB",
        bench::medianMicros([&] { calcFilt3dB(kFilterBandPass, std::span(dB).first(2048), 0.5); }, repeats),
        std::nullopt, "");
    return 0;
}
