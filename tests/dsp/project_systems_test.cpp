// The project's two systems: the signed sum and the FIR stage that reads
// N_H − 1 samples ahead, interpolation, decimation, the automatic low pass and
// the fused rate changer, against the definitions, numpy and scipy's upfirdn;
// and the units of the project's signals.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "dsp/multirate.h"
#include "dsp/sum_and_filter.h"
#include "dsp/unit_conversion.h"
#include "dsp_test_support.h"
#include "support/reference_python.h"

using dsptest::randomSignal;

namespace {

constexpr std::size_t N = 16384;

std::vector<double> autoFilter(int L, int M)
{
    std::vector<double> h(kAutoFilterTaps);
    EXPECT_TRUE(autoGenLPF(L, M, h));
    return h;
}

} // namespace

TEST(SumAndFilter, SignedSums)
{
    const auto x1 = randomSignal(N, 1);
    const auto x2 = randomSignal(N, 2);
    std::vector<double> x(N);
    // Signs: 0 adds, 1 subtracts, 2 leaves the signal out.
    for (const auto& [sign1, sign2] : {std::pair{0, 1}, {2, 0}, {1, 2}, {0, 0}, {1, 1}}) {
        sumTwoSignals(x1, x2, sign1, sign2, x);
        const double s1 = sign1 == 0 ? 1.0 : sign1 == 1 ? -1.0 : 0.0;
        const double s2 = sign2 == 0 ? 1.0 : sign2 == 1 ? -1.0 : 0.0;
        for (std::size_t i = 0; i < N; ++i)
            ASSERT_EQ(x[i], s1 * x1[i] + s2 * x2[i]) << sign1 << sign2 << " " << i;
    }
    // A signal left out contributes nothing, even infinities.
    sumTwoSignals(x1, std::vector<double>(N, INFINITY), 0, 2, x);
    EXPECT_EQ(x, x1);
}

TEST(SumAndFilter, CentreTapReadAheadAndZeroTail)
{
    const auto x = randomSignal(N, 3);
    std::vector<double> h(25, 0.0);
    h[12] = 1.0;
    std::vector<double> y(N);
    convolutionSysOut(x, h, y);
    for (std::size_t n = 0; n <= 16355; ++n)
        ASSERT_EQ(y[n], x[n + 12]) << n;
    for (std::size_t n = 16356; n < N; ++n)
        ASSERT_EQ(y[n], 0.0) << n;

    std::vector<double> h255(255, 1.0 / 255);
    convolutionSysOut(x, h255, y);
    EXPECT_NE(y[16127], 0.0);
    for (std::size_t n = 16128; n < N; ++n)
        ASSERT_EQ(y[n], 0.0) << n;
    EXPECT_EQ(convolutionOutputLength(N, 255), 16128u);
    EXPECT_EQ(convolutionOutputLength(N, 25), 16356u);
    EXPECT_EQ(convolutionOutputLength(10, 25), 0u);
}

// Random filters of 25 and 255 taps against numpy's convolution.
TEST(SumAndFilter, MatchesNumpyConvolution)
{
    for (std::size_t taps : {25u, 101u, 255u}) {
        const auto x = randomSignal(N, 4);
        const auto h = randomSignal(taps, 5);
        std::vector<double> y(N);
        convolutionSysOut(x, h, y);
        const auto ref = reference::numbers("project_systems.py", {"conv"},
                                            reference::numbersLine(h) + reference::numbersLine(x));
        ASSERT_EQ(ref.size(), N);
        for (std::size_t n = 0; n < N; ++n)
            ASSERT_NEAR(y[n], ref[n], 1e-12 * std::sqrt(static_cast<double>(taps))) << taps << " " << n;
    }
}

// Each output sums its products in tap order, so it equals the plain double
// loop of the definition bit for bit; in place gives the same.
TEST(SumAndFilter, EqualsTheDefinitionExactly)
{
    const auto x = randomSignal(N, 6);
    const auto h = randomSignal(37, 7);
    std::vector<double> y(N);
    convolutionSysOut(x, h, y);
    const std::size_t count = convolutionOutputLength(N, h.size());
    for (std::size_t n = 0; n < count; ++n) {
        double acc = 0.0;
        for (std::size_t p = 0; p < h.size(); ++p)
            acc += x[n + p] * h[h.size() - 1 - p];
        ASSERT_EQ(y[n], acc) << n;
    }
    std::vector<double> inPlace = x;
    convolutionSysOut(inPlace, h, inPlace);
    EXPECT_EQ(inPlace, y);
    // A short input reads as zeros past its end.
    std::vector<double> shortOut(12, 9.0);
    convolutionSysOut(std::vector<double>{1.0, 2.0, 3.0}, std::vector<double>{1.0}, shortOut);
    EXPECT_EQ(shortOut, (std::vector<double>{1, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(Multirate, InterpolationInsertsZerosAndDecimationKeepsEveryMth)
{
    const std::vector<double> x{1, 2, 3};
    std::vector<double> u(9, 7.0), copy(3);
    EXPECT_TRUE(interpolateSignal(x, 3, u));
    EXPECT_EQ(u, (std::vector<double>{1, 0, 0, 2, 0, 0, 3, 0, 0}));
    interpolateSignal(x, 1, copy);
    EXPECT_EQ(copy, x);
    EXPECT_FALSE(interpolateSignal(x, 0, u));
    EXPECT_EQ(u, std::vector<double>(9, 0.0));

    std::vector<double> y(7, 9.0);
    EXPECT_TRUE(decimateSignal(std::vector<double>{0, 1, 2, 3, 4, 5, 6}, 3, y));
    EXPECT_EQ(y, (std::vector<double>{0, 3, 6, 0, 0, 0, 0}));
    EXPECT_FALSE(decimateSignal(x, -2, y));
}

// Against scipy's Chebyshev window; the window rounds its spectrum through
// single precision, hence 1e-6.
TEST(Multirate, AutoFilterMatchesScipyDesign)
{
    const std::size_t passBins[] = {128, 64, 43, 32, 26, 21, 18, 16, 14, 13, 12, 11};
    for (int top = 1; top <= 12; ++top) {
        EXPECT_EQ(autoFilterPassBins(top, 1), passBins[top - 1]) << top;
        EXPECT_EQ(autoFilterPassBins(1, top), passBins[top - 1]) << top;
    }
    for (auto [L, M] : {std::pair{2, 3}, std::pair{10, 3}, std::pair{1, 12}}) {
        const auto h = autoFilter(L, M);
        const auto ref =
            reference::numbers("project_auto_filter.py", {QString::number(L), QString::number(M)});
        ASSERT_EQ(ref.size(), kAutoFilterTaps);
        for (std::size_t i = 0; i < kAutoFilterTaps; ++i)
            ASSERT_NEAR(h[i], ref[i], 1e-6) << L << "/" << M << " tap " << i;
    }
    const auto h = autoFilter(2, 3);
    for (std::size_t i = 0; i < kAutoFilterTaps; ++i)
        ASSERT_NEAR(h[i], h[kAutoFilterTaps - 1 - i], 1e-15);
    EXPECT_EQ(std::max_element(h.begin(), h.end()) - h.begin(), 127);
    EXPECT_NEAR(h[127], 87.0 / 255.0, 1e-12); // (2k + 1)/N with k = 43, window peak 1
    std::vector<double> right(255);
    EXPECT_FALSE(autoGenLPF(0, 3, right));
}

// The fused rate changer equals the three stages and scipy's upfirdn to
// rounding (relative to Σ|h| · max|x|, the largest possible output).
TEST(Multirate, FusedSystemEqualsChainAndUpfirdn)
{
    const auto x = randomSignal(N, 11);
    const auto userFilter = randomSignal(101, 12);
    struct Case {
        int L, M;
        bool automatic;
    };
    for (const Case c : {Case{10, 3, true}, Case{1, 3, true}, Case{3, 1, false}, Case{2, 2, false},
                         Case{12, 12, true}, Case{7, 11, false}}) {
        SCOPED_TRACE(std::to_string(c.L) + "/" + std::to_string(c.M));
        const auto h = c.automatic ? autoFilter(c.L, c.M) : userFilter;
        std::vector<double> y(N);
        ASSERT_TRUE(multirateSysOut(x, h, c.L, c.M, y));
        double scale = 0.0;
        for (double v : h)
            scale += std::fabs(v);
        // The system as its three stages, each over L·n samples.
        const std::size_t nl = static_cast<std::size_t>(c.L) * N;
        std::vector<double> u(nl), v(nl), w(nl);
        interpolateSignal(x, c.L, u);
        convolutionSysOut(u, h, v);
        decimateSignal(v, c.M, w);
        for (std::size_t j = 0; j < N; ++j)
            ASSERT_NEAR(y[j], w[j], 1e-15 * scale) << j;
        const auto ref = reference::numbers("project_systems.py",
                                            {"multirate", QString::number(c.L), QString::number(c.M)},
                                            reference::numbersLine(h) + reference::numbersLine(x));
        ASSERT_EQ(ref.size(), N);
        for (std::size_t j = 0; j < N; ++j)
            ASSERT_NEAR(y[j], ref[j], 1e-12 * scale) << j;
    }
}

TEST(Multirate, UnitFactorsInPlaceAndTheZeroTail)
{
    const auto x = randomSignal(N, 13);
    std::vector<double> y(N);
    ASSERT_TRUE(multirateSysOut(x, autoFilter(1, 1), 1, 1, y));
    EXPECT_EQ(y, x); // copied without filtering
    std::vector<double> inPlace = x;
    const auto h = autoFilter(10, 3);
    multirateSysOut(x, h, 10, 3, y);
    multirateSysOut(inPlace, h, 10, 3, inPlace);
    EXPECT_EQ(inPlace, y);
    EXPECT_FALSE(multirateSysOut(x, x, 0, 1, y));
    EXPECT_FALSE(multirateSysOut(x, x, 1, 17, y));
    // M > L: decimation of 1/3 leaves the tail of the 16384 positions zero.
    multirateSysOut(x, autoFilter(1, 3), 1, 3, y);
    const std::size_t kept = (convolutionOutputLength(N, 255) + 2) / 3;
    EXPECT_NE(y[kept - 1], 0.0);
    for (std::size_t j = kept; j < N; ++j)
        ASSERT_EQ(y[j], 0.0);
}

TEST(UnitConversion, VoltAndFrequencyUnitsAndTheMillivoltRescale)
{
    using V = std::vector<double>;
    const V a{1.0, -2.0}, b{500.0, 250.0};
    V a2(2), b2(2);
    EXPECT_EQ(voltUnits(a, b, 1, 1, a2, b2), 1); // both mV: unchanged
    EXPECT_EQ(a2, a);
    EXPECT_EQ(b2, b);
    EXPECT_EQ(voltUnits(a, b, 0, 1, a2, b2), 0); // V and mV: mV becomes V
    EXPECT_EQ(a2, a);
    EXPECT_EQ(b2, (V{0.5, 0.25}));
    EXPECT_EQ(voltUnits(b, a, 1, 0, b2, a2), 0);
    EXPECT_EQ(b2, (V{0.5, 0.25}));
    EXPECT_EQ(a2, a);
    V c = b; // in place
    voltUnits(a, c, 0, 1, a2, c);
    EXPECT_EQ(c, (V{0.5, 0.25}));

    const struct {
        int code1, code2;
        double max1, max2;
        int sign1, sign2, code;
        double maxFreq;
    } cases[] = {
        {0, 1, 3.0, 35.0, 0, 2, 0, 3.0},   // only x₁
        {0, 1, 3.0, 35.0, 2, 1, 1, 35.0},  // only x₂
        {1, 1, 3.0, 35.0, 0, 0, 1, 35.0},  // both KHz
        {1, 0, 3500.0, 2.0, 0, 1, 0, 3.5}, // KHz and MHz → MHz
        {0, 1, 3.0, 500.0, 1, 0, 0, 3.0},
    };
    for (const auto& f : cases) {
        const auto got = freqUnits(f.code1, f.code2, f.max1, f.max2, f.sign1, f.sign2);
        EXPECT_EQ(got.code, f.code) << f.max1 << " " << f.max2;
        EXPECT_EQ(got.maxFreq, f.maxFreq) << f.max1 << " " << f.max2;
    }

    const V y{0.5, -3.0, 0.25}; // largest sample 0.5, magnitude 3
    V out(3);
    EXPECT_EQ(rescale(y, 0, out), 1);
    EXPECT_EQ(out, (V{500.0, -3000.0, 250.0}));
    EXPECT_EQ(rescale(y, 1, out), 1); // already mV: unchanged
    EXPECT_EQ(out, y);
    out.resize(2);
    EXPECT_EQ(rescale(V{1.0, 0.0}, 0, out), 0);
    EXPECT_EQ(out[0], 1.0);
}
