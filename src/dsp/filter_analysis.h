// Measured analysis of a designed filter on a fine 16384-point response:
// reference gain, -3/-6 dB edges found by scanning outward from the passband
// peak, stopband depth beyond the first null, passband ripple up to the
// last extremum, and the bits the integer coefficients really need. The
// results panel keeps its own fixed rules; this is the second, measured view.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Zero-padded transform length of the analysis and its bins from 0 to fs/2.
inline constexpr std::size_t kAnalysisFftSize = 16384;
inline constexpr std::size_t kAnalysisBins = kAnalysisFftSize / 2 + 1;

// Power |X[k]|² of c (1..16384 coefficients) zero padded to 16384 points; power.size() = 8193.
void analysisPower(std::span<const double> c, std::span<double> power);

// The nominal passband in normalised frequency (1.0 = fs/2), clipped to [0, 1].
struct NominalBand {
    double low = 0.0;
    double high = 0.0;
};
// type 0 low pass [0, fc], 2 high pass [fc, 1], 1 band pass [f0 − fc, f0 + fc]; fc is the cutoff as typed
// (not complemented), normalised.
NominalBand nominalPassband(int type, double cutoff, double center);

// Bins of the stopband: [0, lowerEnd] and [upperStart, 8192]; −1 marks a side without one.
struct StopbandBins {
    std::ptrdiff_t lowerEnd = -1;
    std::ptrdiff_t upperStart = -1;
    bool empty() const { return lowerEnd < 0 && upperStart < 0; }
};

// What the response itself says. Frequencies are normalised; NaN where a crossing does not exist.
// A low or high pass fills edge[0] only; a band pass fills edge[0] (lower) and edge[1] (upper).
struct ResponseAnalysis {
    double referenceGainDb = 0.0;
    double peakFrequency = 0.0;
    int edgeCount = 1;
    double edges3dB[2] = {0.0, 0.0};
    double edges6dB[2] = {0.0, 0.0};
    double passbandRippleDb = 0.0;
    StopbandBins stopband;
};

// Analyses power (8193 bins, from analysisPower) of a filter of type 0, 1 or 2 over its nominal band.
ResponseAnalysis analyseResponse(int type, NominalBand band, std::span<const double> power);

// referenceGainDb minus the largest dB value over the stopband bins; NaN when there are none.
double stopbandAttenuation(std::span<const double> power, double referenceGainDb,
                           const StopbandBins& stopband);

// Smallest B with every q in B-bit two's complement (at least 1 bit); 0 for an empty q.
int bitsNeeded(std::span<const std::int32_t> q);

// Everything the Measured panel and `"measured"` report.
struct FilterMeasurement {
    ResponseAnalysis response;                   // of c
    double stopbandAttenuationDb = 0.0;          // c over its own stopband
    double stopbandAttenuationQuantisedDb = 0.0; // cp, own reference, over c's stopband
    int bitsNeeded = 0;                          // 0 for "Double"
    bool fitsWidth = true;
    double groupDelaySamples = 0.0;
};

// Measures c (double) and cp (quantised, same size) with integers q of width index `widthIndex`
// (0 "Double": q unused); cutoff as typed and centre normalised (see nominalPassband).
FilterMeasurement measureFilter(int type, double cutoff, double center, int widthIndex,
                                std::span<const double> c, std::span<const double> cp,
                                std::span<const std::int32_t> q);
