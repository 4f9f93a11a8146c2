// Times the measured analysis of a 255-tap design (filter measurements and
// window properties), the 14-row word-length sweep, and the search for the
// minimum-length equiripple low pass (fp 0.2, fst 0.25, Rp 0.5 dB, As 60 dB)
// including every trial design.
#include "bench_support.h"

#include "dsp/filter_analysis.h"
#include "dsp/fir_synthesis.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "dsp/window_properties.h"
#include "dsp/word_length_sweep.h"
#include "filter/mask_design.h"

#include <cstdio>
#include <vector>

int main()
{
    bench::loadFftWisdom();
    const std::size_t N = 255;
    std::vector<double> H(N), h(N), w(N), hw(N), c(N), cp(N);
    std::vector<std::int32_t> q(N);
    idealLowPassSamples(passbandCount(N, 0.2), H);
    iDFTforSinc(H, h);
    winfun(kWindowKaiser, 5.0, w);
    winSync(h, w, hw);
    filt(kFilterBandPass, 0.5, hw, c);
    bitPrecison(5, c, q, cp);

    const int repeats = 501;
    const double filter =
        bench::medianMicros([&] { measureFilter(kFilterBandPass, 0.2, 0.5, 5, c, cp, q); }, repeats);
    const double window = bench::medianMicros([&] { windowProperties(w); }, repeats);
    bench::report("measured analysis, 255-tap band pass, 16-bit (filter)", filter, std::nullopt, "");
    bench::report("measured analysis, 255-tap Kaiser window properties", window, std::nullopt, "");
    bench::report("measured analysis, both", filter + window, std::nullopt, "");

    std::vector<SweepRow> rows(kSweepRows);
    bench::report("word-length sweep, 14 rows",
                  bench::medianMicros([&] { wordLengthSweep(kFilterBandPass, 0.2, 0.5, c, rows); }, 101),
                  std::nullopt, "");

    ToleranceMask mask;
    mask.passband[0] = 0.2;
    mask.stopband[0] = 0.25;
    mask.rippleDb = 0.5;
    mask.attenuationDb = 60.0;
    int taps = 0;
    const double search = bench::medianMicros(
        [&] {
            const auto found = designToMask(kMaskEquiripple, mask, 0);
            taps = found ? found->taps : 0;
        },
        21);
    bench::report("minimum-length equiripple search (fp 0.2, fst 0.25, 0.5 dB, 60 dB)", search, std::nullopt,
                  "");
    std::printf("  found N = %d\n", taps);
    return 0;
}
