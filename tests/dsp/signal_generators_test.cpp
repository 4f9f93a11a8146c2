// Test signals against long-double references (numpy) and the facts a user
// can check by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "dsp/signal_generators.h"
#include "support/reference_python.h"

namespace {

constexpr std::size_t N = kSignalSamples;

// Samples from tests/reference/signal_generators.py, or an empty vector.
std::vector<double> generated(const char* mode, const char* kind, double fs, double a, double b, double c,
                              double d)
{
    QStringList args{mode, kind};
    for (const double v : {fs, double(N), a, b, c, d})
        args << QString::number(v, 'g', 17);
    return reference::numbers("signal_generators.py", args);
}

double maxAbsDiff(const std::vector<double>& a, const std::vector<double>& b)
{
    EXPECT_EQ(a.size(), b.size());
    double worst = 0.0;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        worst = std::max(worst, std::fabs(a[i] - b[i]));
    return worst;
}

struct Case {
    const char* kind;
    double fs, a, b, c, d;
    double scale; // largest possible |sample|
};

void fill(const Case& k, std::vector<double>& x)
{
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
}

} // namespace

// Whole records against the exact formula: high harmonics deep into the
// record (phases of 8000 cycles), both paths of the sums, large phases.
TEST(SignalGenerators, MatchExactFormulaThroughoutTheRecord)
{
    const Case cases[] = {
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
    for (const Case& k : cases) {
        SCOPED_TRACE(std::string(k.kind) + " fs " + std::to_string(k.fs) + " f " + std::to_string(k.b));
        std::vector<double> x(N);
        fill(k, x);
        const auto ref = generated("exact", k.kind, k.fs, k.a, k.b, k.c, k.d);
        EXPECT_LE(maxAbsDiff(x, ref), 1e-14 * k.scale);
    }
}

// Against the plain double evaluation the difference is that evaluation's
// own phase rounding, about |angle| · 2^-52 per harmonic.
TEST(SignalGenerators, AgreeWithPlainDoubleEvaluation)
{
    std::vector<double> x(N);
    cosineSumSig(1.0, 10.0, 0.3, 14.0, 300.0, x);
    const auto naive = generated("naive", "cossum", 300, 1.0, 10.0, 0.3, 14.0);
    const double largestAngle = 2 * std::numbers::pi * 140.0 * (N - 1) / 300.0;
    EXPECT_LE(maxAbsDiff(x, naive), 14 * 4 * largestAngle * 0x1p-52);

    cosineSig(1.0, 35.0, 0.0, 300.0, x);
    EXPECT_LE(maxAbsDiff(x, generated("naive", "cos", 300, 1.0, 35.0, 0.0, 0.0)), 1e-11);
}

TEST(SignalGenerators, HandCheckedSamples)
{
    std::vector<double> x(N);
    cosineSig(1.0, 35.0, 0.0, 300.0, x);
    EXPECT_EQ(x[0], 1.0);
    EXPECT_NEAR(x[1], std::cos(2 * std::numbers::pi * 35.0 / 300.0), 1e-15);
    // 37.5 of 300 is one cycle per eight samples.
    cosineSig(1.0, 37.5, 0.0, 300.0, x);
    for (std::size_t k = 0; k < N; k += 8)
        ASSERT_NEAR(x[k], 1.0, 1e-15) << k;

    sincBetaSig(1.0, 300.0, x);
    EXPECT_EQ(x[0], 1.0);
    EXPECT_NEAR(x[300], 0.0, 1e-15); // kT = 1: sin(π)/π
    EXPECT_NEAR(x[150], 2.0 / std::numbers::pi, 1e-15);

    sincSquaredBetaSig(1.0, 300.0, x);
    EXPECT_EQ(x[0], 1.0);
    for (double v : x)
        ASSERT_GE(v, 0.0);
}

TEST(SignalGenerators, HarmonicCountIsTheSaturatedFloor)
{
    EXPECT_EQ(harmonicCount(3.7), 3u);
    EXPECT_EQ(harmonicCount(0.5), 0u);
    EXPECT_EQ(harmonicCount(-2.0), 0u);
    EXPECT_EQ(harmonicCount(std::nan("")), 0u);
    EXPECT_EQ(harmonicCount(1e20), 4294967295u);
    EXPECT_EQ(harmonicCount(INFINITY), 4294967295u);

    std::vector<double> x(N, 7.0);
    sineSumSig(1.0, 10.0, 0.0, 0.5, 300.0, x);
    for (double v : x)
        ASSERT_EQ(v, 0.0);
}

// An enormous M costs the same as 65 and stays finite: at k = 0 every
// harmonic is cos ϕ.
TEST(SignalGenerators, HugeHarmonicCountUsesClosedForm)
{
    std::vector<double> x(N);
    cosineSumSig(1.0, 1e-12, 0.25, 1e30, 1.0, x);
    EXPECT_NEAR(x[0], 4294967295.0 * std::cos(0.25), 1e-6);
    for (double v : x)
        ASSERT_TRUE(std::isfinite(v));
    // f = fs/8: the sum over whole periods is exactly zero where the phase
    // does not line up, and M cos ϕ where it does.
    cosineSumSig(1.0, 37.5, 0.0, 800.0, 300.0, x);
    EXPECT_NEAR(x[0], 800.0, 1e-12 * 800);
    EXPECT_NEAR(x[8], 800.0, 1e-12 * 800);
    EXPECT_NEAR(x[3], 0.0, 1e-12 * 800);
}

TEST(SignalGenerators, RectangleEdgeOnTheTimeGrid)
{
    std::vector<double> x(N);
    const double fs = 3.0;
    rectSig(2.0, 10 * (1.0 / fs), fs, x);
    for (std::size_t k = 0; k < 10; ++k)
        ASSERT_EQ(x[k], 2.0);
    for (std::size_t k = 10; k < N; ++k)
        ASSERT_EQ(x[k], 0.0);
    rectSig(1.0, 16384.0, 1.0, x); // the whole record
    for (double v : x)
        ASSERT_EQ(v, 1.0);
}

TEST(SignalGenerators, DispatcherAddsNoiseAndReportsMaxFreq)
{
    std::vector<double> x(N);
    std::vector<double> clean(N);
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
    for (double v : x)
        ASSERT_EQ(v, 0.0);
    EXPECT_EQ(signalTimeDomain(-1, 300, 1, 35, 0, 0, 0, 0, x), 0.0);

    // Bad numbers give bad samples, never a crash or undefined behaviour (the sanitizers stop the test).
    for (double bad : {std::nan(""), double(INFINITY), -double(INFINITY), 0.0}) {
        for (int index = 0; index <= 10; ++index)
            signalTimeDomain(index, bad, bad, bad, bad, bad, bad, bad, x);
        cosineSumSig(1, 1, 0, 1e9, bad, x);
    }
}
