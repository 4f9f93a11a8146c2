// Test signals against long-double references (numpy) and the facts a user
// can check by hand, and their 16384-point magnitude spectrum against numpy.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "dsp/signal_generators.h"
#include "dsp/signal_spectrum.h"
#include "dsp_test_support.h"
#include "support/reference_python.h"

namespace {

constexpr std::size_t N = kSignalSamples;

} // namespace

// Whole records against the formula in long double: high harmonics deep into
// the record (phases of 8000 cycles), both paths of the sums, large phases.
TEST(SignalGenerators, MatchTheExactFormulaThroughoutTheRecord)
{
    const struct {
        const char* kind;
        double fs, a, b, c, d;
        double scale; // largest possible |sample|
    } cases[] = {
        {"cos", 300, 1.0, 37.5, 0.0, 0, 1.0},
        {"cos", 300, 2.5, 149.9, 0.7, 0, 2.5},
        {"sin", 1.0, -3.0, 0.123456789, 1000.0, 0, 3.0},
        {"cossum", 300, 1.0, 10.0, 0.3, 14.9, 14.0},
        {"sinsum", 2.7, 0.5, 0.0123, -2.0, 3.7, 1.5},
        {"sinsum", 1000, 1.0, 8.1, 0.4, 64.5, 64.0},      // longest table recurrence
        {"cossum", 300, 1.0, 1.45, 0.2, 100.0, 100.0},    // closed form
        {"sinsum", 1000, 2.0, 0.49, 1.1, 1000.5, 2000.0}, // closed form
        {"mixer", 100, 2.0, 25.0, 3.0, 5.0, 6.0},
        {"sinc", 300, 1.0, 0, 0, 0, 1.0},
        {"sinc", 1e6, 0.37, 0, 0, 0, 1.0}, // arguments below 1 for every sample
        {"sinc2", 7.0, -2.5, 0, 0, 0, 1.0},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(std::string(k.kind) + " fs " + std::to_string(k.fs) + " f " + std::to_string(k.b));
        std::vector<double> x(N);
        const std::string kind = k.kind;
        if (kind == "cos")
            cosineSig(k.a, k.b, k.c, k.fs, x);
        else if (kind == "sin")
            sineSig(k.a, k.b, k.c, k.fs, x);
        else if (kind == "cossum")
            cosineSumSig(k.a, k.b, k.c, k.d, k.fs, x);
        else if (kind == "sinsum")
            sineSumSig(k.a, k.b, k.c, k.d, k.fs, x);
        else if (kind == "mixer")
            mixerSig(k.a, k.b, k.c, k.d, k.fs, x);
        else if (kind == "sinc")
            sincBetaSig(k.a, k.fs, x);
        else
            sincSquaredBetaSig(k.a, k.fs, x);
        QStringList args{"exact", k.kind};
        for (const double v : {k.fs, double(N), k.a, k.b, k.c, k.d})
            args << QString::number(v, 'g', 17);
        const auto ref = reference::numbers("signal_generators.py", args);
        ASSERT_EQ(ref.size(), N);
        for (std::size_t i = 0; i < N; ++i)
            ASSERT_NEAR(x[i], ref[i], 1e-14 * k.scale) << i;
    }
}

TEST(SignalGenerators, HandCheckedSamplesAndHarmonicCounts)
{
    std::vector<double> x(N);
    cosineSig(1.0, 37.5, 0.0, 300.0, x); // one cycle per eight samples
    for (std::size_t k = 0; k < N; k += 8)
        ASSERT_NEAR(x[k], 1.0, 1e-15) << k;
    sincBetaSig(1.0, 300.0, x);
    EXPECT_EQ(x[0], 1.0);
    EXPECT_NEAR(x[300], 0.0, 1e-15); // kT = 1: sin(π)/π
    EXPECT_NEAR(x[150], 2.0 / std::numbers::pi, 1e-15);

    // The harmonic count is the saturated floor of M.
    for (const auto& [M, count] : {std::pair{3.7, 3u},
                                   {0.5, 0u},
                                   {-2.0, 0u},
                                   {std::nan(""), 0u},
                                   {1e20, 4294967295u},
                                   {double(INFINITY), 4294967295u}})
        EXPECT_EQ(harmonicCount(M), count) << M;
    x.assign(N, 7.0);
    sineSumSig(1.0, 10.0, 0.0, 0.5, 300.0, x);
    EXPECT_EQ(x, std::vector<double>(N, 0.0));
    // An enormous M costs the same as 65 and stays finite: at k = 0 every harmonic is cos ϕ.
    cosineSumSig(1.0, 1e-12, 0.25, 1e30, 1.0, x);
    EXPECT_NEAR(x[0], 4294967295.0 * std::cos(0.25), 1e-6);
    for (double v : x)
        ASSERT_TRUE(std::isfinite(v));
    // f = fs/8: the sum over whole periods is exactly zero where the phase does not line up.
    cosineSumSig(1.0, 37.5, 0.0, 800.0, 300.0, x);
    EXPECT_NEAR(x[0], 800.0, 1e-12 * 800);
    EXPECT_NEAR(x[8], 800.0, 1e-12 * 800);
    EXPECT_NEAR(x[3], 0.0, 1e-12 * 800);

    // The rectangle's edge lies on the time grid.
    rectSig(2.0, 10 * (1.0 / 3.0), 3.0, x);
    for (std::size_t k = 0; k < N; ++k)
        ASSERT_EQ(x[k], k < 10 ? 2.0 : 0.0) << k;
    rectSig(1.0, 16384.0, 1.0, x); // the whole record
    EXPECT_EQ(x, std::vector<double>(N, 1.0));
}

TEST(SignalGenerators, DispatcherAddsNoiseAndReportsMaxFreq)
{
    std::vector<double> x(N), clean(N);
    EXPECT_EQ(signalTimeDomain(0, 300, 1, 35, 0, 0, 0, 0, x), 35.0);
    cosineSig(1, 35, 0, 300, clean);
    EXPECT_EQ(x, clean);
    // σ = 0 adds exactly μ.
    EXPECT_EQ(signalTimeDomain(8, 3, 2, 5, 0, 0.25, 0, 0, x), 1.0 / 5);
    rectSig(2, 5, 3, clean);
    for (std::size_t k = 0; k < N; ++k)
        ASSERT_EQ(x[k], clean[k] + 0.25);
    // The highest frequency each kind holds.
    const struct {
        int index;
        double a, b, c, d, maxFreq;
    } kinds[] = {{1, 1, 20, 1, 30, 30}, {4, 1, 40, 1, 30, 40}, {2, 1, 10, 0, 3.7, 37}, {5, 1, 10, 0, 0.5, 5},
                 {7, 1, 20, 1, 30, 50}, {6, 1, 5, 0, 0, 3},    {9, 1, 0, 0, 0, 3},     {10, 1, 0, 0, 0, 3}};
    for (const auto& k : kinds)
        EXPECT_EQ(signalTimeDomain(k.index, 300, k.a, k.b, k.c, k.d, 0, 0, x), k.maxFreq) << k.index;
    EXPECT_EQ(signalTimeDomain(11, 300, 1, 35, 0, 0, 0, 0, x), 0.0);
    EXPECT_EQ(x, std::vector<double>(N, 0.0));
    EXPECT_EQ(signalTimeDomain(-1, 300, 1, 35, 0, 0, 0, 0, x), 0.0);

    // Bad numbers give bad samples, never a crash or undefined behaviour (the sanitizers stop the test).
    for (double bad : {std::nan(""), double(INFINITY), -double(INFINITY), 0.0}) {
        for (int index = 0; index <= 10; ++index)
            signalTimeDomain(index, bad, bad, bad, bad, bad, bad, bad, x);
        cosineSumSig(1, 1, 0, 1e9, bad, x);
    }
}

TEST(SignalSpectrum, MatchesNumpyFftAndHandValues)
{
    // Arbitrary data, zero-padded from 10000 samples; the extremes cover the mirrored half as well.
    const std::vector<double> x = dsptest::randomSignal(10000, 7, 3.0);
    std::vector<double> mag(N);
    SignalExtremes e = magSpectrum(x, mag);
    const auto ref = reference::numbers("signal_spectrum.py", {}, reference::numbersLine(x));
    ASSERT_EQ(ref.size(), N + 2);
    for (std::size_t k = 0; k < N; ++k)
        ASSERT_NEAR(mag[k], ref[k], 1e-13) << k;
    EXPECT_NEAR(e.max, ref[N], 1e-13);
    EXPECT_NEAR(e.min, ref[N + 1], 1e-13);

    // A cosine on bin 2048 (37.5 of fs 300) shows A/2 there and in its mirror.
    std::vector<double> cosine(N);
    cosineSig(1.0, 37.5, 0.0, 300.0, cosine);
    e = magSpectrum(cosine, mag);
    EXPECT_NEAR(e.max, 0.5, 1e-12);
    for (std::size_t k = 0; k < N; ++k)
        ASSERT_NEAR(mag[k], k == 2048 || k == N - 2048 ? 0.5 : 0.0, 1e-12) << k;
    // A rectangle over the whole record is all DC.
    rectSig(1.0, 16384.0 / 7.0, 7.0, cosine);
    mag.resize(N / 2);
    e = magSpectrum(cosine, mag);
    EXPECT_DOUBLE_EQ(mag[0], 1.0);
    EXPECT_DOUBLE_EQ(e.max, 1.0);
    for (std::size_t k = 1; k < mag.size(); ++k)
        ASSERT_LT(mag[k], 1e-15);
}
