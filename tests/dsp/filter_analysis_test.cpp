// 3 dB measurements on curves whose crossings are known; measured analysis,
// window properties, word-length sweep, Kaiser's formulas and equiripple
// designs against closed forms and published values.
#include "dsp/equiripple.h"
#include "dsp/filter_analysis.h"
#include "dsp/filter_measurements.h"
#include "dsp/kaiser_design_formulas.h"
#include "dsp/quantisation.h"
#include "dsp/window_properties.h"
#include "dsp/word_length_sweep.h"
#include "dsp_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <algorithm>
#include <complex>
#include <numbers>
#include <vector>

namespace {

struct Design {
    std::vector<double> c, cp;
    std::vector<std::int32_t> q;
};

// The window-method pipeline; cutoff as typed (a high pass is complemented here, as the model does).
Design design(int type, std::size_t N, double cutoff, double center, int window, double param, int width)
{
    Design d{dsptest::design(N, type == kFilterHighPass ? 1.0 - cutoff : cutoff, type, center, window, param),
             std::vector<double>(N), std::vector<std::int32_t>(N)};
    bitPrecison(width, d.c, d.q, d.cp);
    return d;
}

// Falls 0.01 dB a point from `start` (at `top` before it): crosses −3 dB exactly at start + 300 + 100·top.
std::vector<double> slope(std::size_t start, double top = 0.0)
{
    std::vector<double> m(2048);
    for (std::size_t k = 0; k < m.size(); ++k)
        m[k] = k <= start ? top : top - 0.01 * static_cast<double>(k - start);
    return m;
}

TEST(WindowProperties, ClosedFormsAndPublishedTables)
{
    const double pi = std::numbers::pi;
    for (const std::size_t N : {25u, 255u}) {
        const double n = static_cast<double>(N);
        std::vector<double> w(N);
        winfun(kWindowRectangular, 0.0, w);
        const WindowProperties r = windowProperties(w);
        EXPECT_NEAR(r.coherentGain, 1.0, 1e-12);
        EXPECT_NEAR(r.enbwBins, 1.0, 1e-12);
        // |Σ e^(−iπn/N)| = 1/sin(π/2N): the Dirichlet kernel half a bin off.
        EXPECT_NEAR(r.scallopLossDb, -20.0 * std::log10(1.0 / (n * std::sin(pi / (2.0 * n)))), 1e-9);
        EXPECT_NEAR(r.scallopLossDb, 3.92, 0.01);
        winfun(kWindowHann, 0.0, w);
        // Σw = (N−1)/2 and Σw² = 3(N−1)/8 for the symmetric Hann window.
        EXPECT_NEAR(windowProperties(w).enbwBins, 1.5 * n / (n - 1.0), 1e-9);
    }
    // Published values (Harris 1978) for large N; a symmetric 255-point window differs by ~1/N.
    for (const int index :
         {kWindowRectangular, kWindowHann, kWindowHamming, kWindowBlackman, kWindowBlackmanHarris}) {
        std::vector<double> w(255);
        winfun(index, 0.0, w);
        const WindowProperties m = windowProperties(w);
        const WindowProperties t = *textbookWindowProperties(index);
        SCOPED_TRACE(index);
        EXPECT_NEAR(m.coherentGain, t.coherentGain, 0.01);
        EXPECT_NEAR(m.enbwBins, t.enbwBins, 0.02);
        EXPECT_NEAR(m.scallopLossDb, t.scallopLossDb, 0.05);
        // The tables round their widths loosely (Blackman's 1.68 is 1.65 by the formula).
        EXPECT_NEAR(m.mainLobe3dBBins, t.mainLobe3dBBins, 0.05);
        EXPECT_NEAR(m.mainLobe6dBBins, t.mainLobe6dBBins, 0.05);
        EXPECT_NEAR(m.highestSidelobeDb, t.highestSidelobeDb, 0.8);
    }
    EXPECT_FALSE(textbookWindowProperties(kWindowKaiser));
    // Dolph–Chebyshev: every side lobe at the design level, ϒ = 3 is 60 dB.
    std::vector<double> w(101);
    winfun(kWindowChebyshev, 3.0, w);
    EXPECT_NEAR(windowProperties(w).highestSidelobeDb, -60.0, 0.05);
    // Flat Top's shoulder lies before its first zero and is not a side lobe.
    winfun(kWindowFlatTop, 0.0, w);
    EXPECT_LT(windowProperties(w).highestSidelobeDb, -60.0);
}

TEST(FilterAnalysis, EdgesStopbandRippleAndBits)
{
    // Low pass: the −6 dB edge of a window design lies at the ideal cutoff (2M+1)/N ≈ the typed one.
    const Design lp = design(kFilterLowPass, 101, 0.3, 0.0, kWindowHamming, 0.0, kWidthDouble);
    const FilterMeasurement m = measureFilter(kFilterLowPass, 0.3, 0.0, kWidthDouble, lp.c, lp.cp, lp.q);
    EXPECT_EQ(m.response.edgeCount, 1);
    EXPECT_NEAR(m.response.edges6dB[0], 0.3, 0.01);
    EXPECT_LT(m.response.edges3dB[0], m.response.edges6dB[0]);
    // Hamming's side lobes lie near −43 dB; the windowed filter goes deeper, though not the textbook
    // 53 dB: the ideal response here is a sampled (periodic) sinc.
    EXPECT_GT(m.stopbandAttenuationDb, 45.0);
    EXPECT_LT(m.stopbandAttenuationDb, 56.0);
    EXPECT_EQ(m.stopbandAttenuationQuantisedDb, m.stopbandAttenuationDb);
    EXPECT_EQ(m.groupDelaySamples, 50.0);
    EXPECT_EQ(m.bitsNeeded, 0);

    // Rectangular: Gibbs' overshoot, about 1.5 dB of ripple and some 20 dB of stopband.
    const Design box = design(kFilterLowPass, 255, 0.3, 0.0, kWindowRectangular, 0.0, kWidthDouble);
    const FilterMeasurement b = measureFilter(kFilterLowPass, 0.3, 0.0, kWidthDouble, box.c, box.cp, box.q);
    EXPECT_NEAR(b.stopbandAttenuationDb, 19.0, 3.0);
    EXPECT_NEAR(b.response.passbandRippleDb, 1.5, 0.5);

    // High pass at 8 bits: the negated centre tap is far larger than the largest positive one.
    const Design hp = design(kFilterHighPass, 25, 0.2, 0.0, kWindowHann, 0.0, 13);
    const FilterMeasurement h = measureFilter(kFilterHighPass, 0.2, 0.0, 13, hp.c, hp.cp, hp.q);
    EXPECT_GT(h.bitsNeeded, 8);
    EXPECT_FALSE(h.fitsWidth);
    EXPECT_EQ(h.bitsNeeded, bitsNeeded(hp.q));

    // Band pass: two edges, lower first, about the centre.
    const Design bp = design(kFilterBandPass, 127, 0.1, 0.5, kWindowBlackman, 0.0, kWidthDouble);
    const FilterMeasurement p = measureFilter(kFilterBandPass, 0.1, 0.5, kWidthDouble, bp.c, bp.cp, bp.q);
    EXPECT_EQ(p.response.edgeCount, 2);
    EXPECT_NEAR(p.response.edges6dB[0], 0.4, 0.01);
    EXPECT_NEAR(p.response.edges6dB[1], 0.6, 0.01);
    EXPECT_GT(p.stopbandAttenuationDb, 70.0);

    // All ones in the ideal samples: a single impulse, flat, no crossing and no stopband.
    const Design flat = design(kFilterLowPass, 25, 0.99, 0.0, kWindowRectangular, 0.0, kWidthDouble);
    const FilterMeasurement f =
        measureFilter(kFilterLowPass, 0.99, 0.0, kWidthDouble, flat.c, flat.cp, flat.q);
    EXPECT_TRUE(std::isnan(f.response.edges3dB[0]));
    EXPECT_TRUE(std::isnan(f.stopbandAttenuationDb));
    EXPECT_NEAR(f.response.passbandRippleDb, 0.0, 1e-9);

    for (const auto& [values, bits] : std::vector<std::pair<std::vector<std::int32_t>, int>>{
             {{127, -128}, 8}, {{128}, 9}, {{-129}, 9}, {{0}, 1}, {{-1}, 1}, {{1}, 2}})
        EXPECT_EQ(bitsNeeded(values), bits);
}

TEST(WordLengthSweep, RowsAreTheMeasurementAtEachWidth)
{
    const Design d = design(kFilterBandPass, 255, 0.15, 0.45, kWindowKaiser, 9.0, kWidthDouble);
    std::vector<SweepRow> rows(kSweepRows);
    wordLengthSweep(kFilterBandPass, 0.15, 0.45, d.c, rows);
    EXPECT_EQ(rows.front().bits, 8);
    EXPECT_EQ(rows[12].bits, 20);
    EXPECT_EQ(rows.back().bits, 0);
    EXPECT_NEAR(rows[12].stopbandAttenuationDb, rows.back().stopbandAttenuationDb, 0.5);
    EXPECT_LT(rows.front().stopbandAttenuationDb, rows.back().stopbandAttenuationDb - 20.0);
    for (int i = 0; i < kSweepRows - 1; ++i) {
        const int width = 21 - rows[i].bits;
        const Design at = design(kFilterBandPass, 255, 0.15, 0.45, kWindowKaiser, 9.0, width);
        const FilterMeasurement m = measureFilter(kFilterBandPass, 0.15, 0.45, width, at.c, at.cp, at.q);
        EXPECT_EQ(rows[i].stopbandAttenuationDb, m.stopbandAttenuationQuantisedDb) << rows[i].bits;
        EXPECT_EQ(rows[i].bitsNeeded, m.bitsNeeded);
    }
}

TEST(KaiserFormulas, TextbookValues)
{
    EXPECT_NEAR(kaiserBeta(60.0), 5.653, 5e-4);
    EXPECT_NEAR(kaiserBeta(30.0), 0.5842 * std::pow(9.0, 0.4) + 0.07886 * 9.0, 1e-12);
    EXPECT_EQ(kaiserBeta(20.0), 0.0);
    // (60 − 8)/(2.285 · 0.1π) = 72.44: N − 1 = 73 → N = 74, up to odd 75.
    EXPECT_EQ(kaiserLength(60.0, 0.1 * std::numbers::pi), 75);
    EXPECT_NEAR(passbandDeviation(0.5), 0.028774, 1e-6);
    EXPECT_NEAR(stopbandDeviation(60.0), 1e-3, 1e-15);
}

TEST(Equiripple, RipplesEqualInTheRatioOfTheWeights)
{
    ToleranceMask mask;
    mask.type = 0;
    mask.passband[0] = 0.2;
    mask.stopband[0] = 0.3;
    mask.rippleDb = 0.5;
    mask.attenuationDb = 50.0;
    const std::size_t N = 61;
    std::vector<double> h(N);
    ASSERT_TRUE(equirippleDesign(mask, h));
    // Zero-phase amplitude on a fine grid.
    double passDev = 0.0, stopDev = 0.0, passMin = 1.0;
    for (int k = 0; k <= 4000; ++k) {
        const double f = k / 4000.0;
        double a = 0.0;
        for (std::size_t n = 0; n < N; ++n)
            a += h[n] * std::cos(std::numbers::pi * f * (static_cast<double>(n) - 30.0));
        if (f <= 0.2) {
            passDev = std::max(passDev, std::fabs(a - 1.0));
            passMin = std::min(passMin, std::fabs(a - 1.0));
        } else if (f >= 0.3) {
            stopDev = std::max(stopDev, std::fabs(a));
        }
    }
    const double ratio = passbandDeviation(0.5) / stopbandDeviation(50.0);
    EXPECT_NEAR(passDev / stopDev, ratio, 0.01 * ratio);
    ToleranceMask backwards = mask;
    backwards.stopband[0] = 0.1;
    EXPECT_FALSE(equirippleDesign(backwards, h));
}

TEST(FilterMeasurements, CrossingsRippleAndExtremes)
{
    const double kNaN = std::nan("");
    const double pad =
        (2047.0 + 1.0 / -2.0) / 2047.0; // above −3 dB to the end: interpolated against the 0 dB pad
    std::vector<double> lastPoint(2048, -2.0), ripple = slope(100, 0.25), high = slope(0), band = slope(1024);
    lastPoint[0] = -10.0;
    ripple[40] = -0.75; // the ripple is the largest magnitude in the pass band
    std::reverse(high.begin(), high.end());
    for (std::size_t k = 0; k < 1024; ++k) // symmetric about the centre 0.5
        band[k] = band[2047 - k];
    const struct {
        const char* name;
        int type;
        std::vector<double> m;
        double theta0, low, high, bandwidth, ripple;
    } cases[] = {
        {"low pass", kFilterLowPass, slope(0), 0.0, 300.0 / 2047, -1.0, 300.0 / 2047, 0.0},
        {"ripple", kFilterLowPass, ripple, 0.0, 425.0 / 2047, kNaN, 425.0 / 2047, 0.75},
        {"high pass", kFilterHighPass, high, 0.0, 1.0 - 300.0 / 2047, -1.0, 300.0 / 2047, kNaN},
        {"band pass", kFilterBandPass, band, 0.5, 723.0 / 2047, 1324.0 / 2047, 601.0 / 2047, kNaN},
        {"last point", kFilterLowPass, lastPoint, 0.0, pad, kNaN, kNaN, kNaN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Filt3dBResult r = calcFilt3dB(c.type, c.m, c.theta0);
        ASSERT_TRUE(r.valid);
        const std::pair<double, double> checks[] = {
            {r.low, c.low}, {r.high, c.high}, {r.bandwidth, c.bandwidth}, {r.ripple, c.ripple}};
        for (const auto& [got, want] : checks) {
            if (!std::isnan(want)) { // NaN: not checked in this row
                EXPECT_NEAR(got, want, 1e-12);
            }
        }
    }
    const Filt3dBResult lp = calcFilt3dB(kFilterLowPass, slope(0), 0.0);
    EXPECT_EQ(lp.largest, 0.0);
    EXPECT_NEAR(lp.smallest, -20.47, 1e-9);
    // No crossing leaves the flag down.
    Filt3dBResult r = calcFilt3dB(kFilterLowPass, std::vector<double>(2048, -1.0), 0.0);
    EXPECT_FALSE(r.valid);
    EXPECT_EQ(r.low, -1.0);
    EXPECT_EQ(r.ripple, -1.0);
    EXPECT_EQ(r.largest, -1.0);
    r = calcFilt3dB(kFilterLowPass, std::vector<double>(2048, -4.0), 0.0);
    EXPECT_FALSE(r.valid);
    EXPECT_EQ(r.smallest, -4.0);
}

} // namespace
