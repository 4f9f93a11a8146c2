// Word-length sweep over the measured analysis: one transform per width.
#include "dsp/word_length_sweep.h"

#include "dsp/filter_analysis.h"
#include "dsp/quantisation.h"

#include <cstdint>
#include <vector>

void wordLengthSweep(int type, double cutoff, double center, std::span<const double> c,
                     std::span<SweepRow> rows)
{
    if (rows.size() != kSweepRows || c.empty() || c.size() > 512)
        return;
    const NominalBand band = nominalPassband(type, cutoff, center);
    std::vector<double> power(kAnalysisBins);
    analysisPower(c, power);
    const ResponseAnalysis exact = analyseResponse(type, band, power);

    std::vector<double> cp(c.size());
    std::vector<std::int32_t> q(c.size());
    std::vector<double> quantisedPower(kAnalysisBins);
    for (int row = 0; row < kSweepRows; ++row) {
        SweepRow& r = rows[row];
        if (row == kSweepRows - 1) {
            r = {0, stopbandAttenuation(power, exact.referenceGainDb, exact.stopband), exact.passbandRippleDb,
                 0};
            continue;
        }
        r.bits = 8 + row;
        const int widthIndex = widthIndexForBits(r.bits);
        bitPrecison(widthIndex, c, q, cp);
        analysisPower(cp, quantisedPower);
        const ResponseAnalysis own = analyseResponse(type, band, quantisedPower);
        r.stopbandAttenuationDb = stopbandAttenuation(quantisedPower, own.referenceGainDb, exact.stopband);
        r.passbandRippleDb = own.passbandRippleDb;
        r.bitsNeeded = bitsNeeded(q);
    }
}
