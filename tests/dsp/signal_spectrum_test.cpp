// Signal extremes and the 16384-point magnitude spectrum.
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "dsp/signal_generators.h"
#include "dsp/signal_spectrum.h"
#include "support/reference_python.h"

namespace {
constexpr std::size_t N = kSpectrumLength;
}

// A cosine on bin 2048 (37.5 of fs 300) shows A/2 there and in its mirror.
TEST(SignalSpectrum, CosineOnABinHasHalfItsAmplitudeThere)
{
    std::vector<double> x(N);
    cosineSig(1.0, 37.5, 0.0, 300.0, x);
    std::vector<double> mag(N);
    const SignalExtremes e = magSpectrum(x, mag);
    EXPECT_NEAR(mag[2048], 0.5, 1e-12);
    EXPECT_NEAR(mag[N - 2048], 0.5, 1e-12);
    EXPECT_NEAR(e.max, 0.5, 1e-12);
    for (std::size_t k = 0; k < N; ++k) {
        if (k != 2048 && k != N - 2048) {
            ASSERT_LT(mag[k], 1e-12) << k;
        }
    }
}

TEST(SignalSpectrum, FullRectangleIsAllDc)
{
    std::vector<double> x(N);
    rectSig(1.0, 16384.0 / 7.0, 7.0, x);
    std::vector<double> mag(N / 2);
    const SignalExtremes e = magSpectrum(x, mag);
    EXPECT_DOUBLE_EQ(mag[0], 1.0);
    for (std::size_t k = 1; k < mag.size(); ++k)
        ASSERT_LT(mag[k], 1e-15);
    EXPECT_DOUBLE_EQ(e.max, 1.0);
}

// Arbitrary data, zero-padded from 10000 samples, against numpy's FFT;
// the extremes cover the mirrored half as well.
TEST(SignalSpectrum, MatchesNumpyFft)
{
    std::mt19937 gen(7);
    std::uniform_real_distribution<double> u(-3.0, 3.0);
    std::vector<double> x(10000);
    for (double& v : x)
        v = u(gen);
    std::vector<double> mag(N);
    const SignalExtremes e = magSpectrum(x, mag);
    const auto ref = reference::numbers("signal_spectrum.py", {}, reference::numbersLine(x));
    ASSERT_EQ(ref.size(), N + 2);
    for (std::size_t k = 0; k < N; ++k)
        ASSERT_NEAR(mag[k], ref[k], 1e-13) << k;
    EXPECT_NEAR(e.max, ref[N], 1e-13);
    EXPECT_NEAR(e.min, ref[N + 1], 1e-13);
}
