// FIR synthesis: pass-band counts, the centred inverse DFT against direct sums
// (in C++ and in numpy), windowing with peak restoration and the band transforms.
#include "dsp/fir_synthesis.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "filter_reference_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;

// The textbook definition, one std::cos per term.
std::vector<double> slowInverseDFT(const std::vector<double>& X)
{
    const std::size_t N = X.size();
    std::vector<double> x(N);
    for (std::size_t k = 0; k < N; ++k) {
        double sum = 0.0;
        for (std::size_t i = 0; i < N; ++i)
            sum += X[i] * std::cos(2.0 * kPi * static_cast<double>(k * i) / static_cast<double>(N));
        x[k] = sum / static_cast<double>(N);
    }
    return x;
}

std::vector<double> idealImpulse(std::size_t N, double theta)
{
    std::vector<double> H(N), h(N);
    idealLowPassSamples(passbandCount(N, theta), H);
    iDFTforSinc(H, h);
    return h;
}

std::vector<double> lowPass(std::size_t N, double theta, int window, double parameter = 0.0)
{
    const std::vector<double> h = idealImpulse(N, theta);
    std::vector<double> w(N), hw(N);
    winfun(window, parameter, w);
    winSync(h, w, hw);
    return hw;
}

} // namespace

TEST(FirSynthesis, PassbandCountsAndMask)
{
    EXPECT_EQ(passbandCount(25, 0.5), 6u);
    EXPECT_EQ(passbandCount(255, 0.99), 126u);
    EXPECT_EQ(passbandCount(25, 0.01), 0u); // N·θ < 1
    EXPECT_EQ(passbandCount(51, 0.2), 5u);  // floor(11.2/2)
    EXPECT_EQ(passbandCount(25, 0.2), 3u);  // N·θ = 5: floor(6/2), the half bin rounds up

    std::vector<double> H(255);
    idealLowPassSamples(126, H);
    int ones = 0;
    for (std::size_t k = 0; k < H.size(); ++k) {
        const bool pass = k <= 126 || k >= 129;
        EXPECT_EQ(H[k], pass ? 1.0 : 0.0) << k;
        ones += H[k] == 1.0;
    }
    EXPECT_EQ(ones, 253);
}

TEST(FirSynthesis, RectangularLowPassOf25Taps)
{
    const std::vector<double> h = idealImpulse(25, 0.5);
    EXPECT_NEAR(h[12], 13.0 / 25.0, 1e-15);
    EXPECT_NEAR(h[11], 0.318519, 5e-7);
    EXPECT_NEAR(h[13], 0.318519, 5e-7);
    EXPECT_NEAR(h[0], 0.027436, 5e-7);
    EXPECT_NEAR(h[24], 0.027436, 5e-7);
    for (std::size_t n = 0; n < 25; ++n)
        EXPECT_NEAR(h[n], h[24 - n], 1e-15);

    std::vector<double> c(25);
    filt(kFilterLowPass, 0.0, lowPass(25, 0.5, kWindowRectangular), c);
    EXPECT_EQ(c, h); // peak restoration with an all-ones window scales by exactly 1
}

TEST(FirSynthesis, InverseTransformsMatchDirectSums)
{
    std::mt19937 gen(7);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    for (std::size_t N : {1u, 2u, 3u, 24u, 25u, 64u, 127u, 254u, 255u, 511u, 512u}) {
        std::vector<double> X(N);
        for (double& v : X)
            v = u(gen);
        std::vector<double> x(N);
        inverseDFT(X, x);
        const std::vector<double> ref = slowInverseDFT(X);
        for (std::size_t k = 0; k < N; ++k)
            ASSERT_NEAR(x[k], ref[k], 1e-12) << "N=" << N << " k=" << k;

        if (N % 2 == 1) {
            std::vector<double> h(N);
            iDFTforSinc(X, h);
            for (std::size_t k = 0; k < N; ++k)
                ASSERT_NEAR(h[(k + (N - 1) / 2) % N], ref[k], 1e-12) << "N=" << N << " k=" << k;
        }
    }
}

TEST(FirSynthesis, RunsOfEqualBinsMatchDirectSums)
{
    // Pass-band masks and piecewise-constant spectra are summed in closed form.
    for (std::size_t N : {25u, 51u, 254u, 255u, 511u}) {
        for (std::size_t M : {std::size_t{0}, std::size_t{3}, std::size_t{4}, N / 5, (N - 1) / 2}) {
            std::vector<double> H(N);
            idealLowPassSamples(M, H);
            std::vector<double> x(N);
            inverseDFT(H, x);
            const std::vector<double> ref = slowInverseDFT(H);
            for (std::size_t k = 0; k < N; ++k)
                ASSERT_NEAR(x[k], ref[k], 1e-13) << "N=" << N << " M=" << M << " k=" << k;
        }
        std::vector<double> steps(N);
        for (std::size_t i = 0; i < N; ++i)
            steps[i] = static_cast<double>((i * 7 / N) % 3) - 0.5;
        std::vector<double> x(N);
        inverseDFT(steps, x);
        const std::vector<double> ref = slowInverseDFT(steps);
        for (std::size_t k = 0; k < N; ++k)
            ASSERT_NEAR(x[k], ref[k], 1e-13) << "N=" << N << " k=" << k;
    }
}

TEST(FirSynthesis, CentredInverseMatchesNumpy)
{
    std::mt19937 gen(11);
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    for (std::size_t N : {25u, 255u}) {
        std::vector<double> H(N);
        for (double& v : H)
            v = u(gen);
        std::vector<double> h(N);
        iDFTforSinc(H, h);
        const auto ref = filterref::run({QStringLiteral("idft"), QString::number(N)}, H);
        ASSERT_EQ(ref.size(), N);
        for (std::size_t k = 0; k < N; ++k)
            EXPECT_NEAR(h[k], ref[k], 1e-12) << k;
    }
}

TEST(FirSynthesis, HighPassReversesEveryEvenTap)
{
    const std::vector<double> hw = lowPass(51, 0.4, kWindowHamming);
    std::vector<double> c(51);
    filt(kFilterHighPass, 0.0, hw, c);
    for (std::size_t n = 0; n < hw.size(); ++n)
        EXPECT_EQ(c[n], n % 2 == 0 ? -hw[n] : hw[n]) << n;
    std::vector<double> none(51, 5.0);
    filt(7, 0.5, hw, none);
    EXPECT_EQ(none, std::vector<double>(51, 0.0));
}

TEST(FirSynthesis, BandPassModulation)
{
    // (N−1)·θ0 = 25: r = 0, modulation 2·cos(πn/2), centre tap 0, antisymmetric.
    std::vector<double> hw = lowPass(51, 0.2, kWindowHann);
    std::vector<double> c(51);
    filt(kFilterBandPass, 0.5, hw, c);
    for (std::size_t n = 0; n < 51; ++n)
        EXPECT_NEAR(c[n], 2.0 * std::cos(kPi * static_cast<double>(n) / 2.0) * hw[n], 1e-13) << n;
    EXPECT_NEAR(c[25], 0.0, 1e-13);
    std::vector<std::int32_t> q(51, 0);
    EXPECT_EQ(verifySymmetry(0, c, q), kSymmetryNegative);

    // (N−1)·θ0 = 24.5 lies halfway and rounds to the even 24: r = +0.5, so tap 1 keeps 2·hw[1].
    hw = lowPass(99, 0.1, kWindowHann);
    c.assign(99, 0.0);
    filt(kFilterBandPass, 0.25, hw, c);
    EXPECT_NEAR(c[0], std::sqrt(2.0) * hw[0], 1e-13);
    EXPECT_NEAR(c[1], 2.0 * hw[1], 1e-13);
    // 25.5 rounds to 26: r = −0.5 and tap 1 is cos(π/2) = 0.
    hw = lowPass(103, 0.1, kWindowHann);
    c.assign(103, 0.0);
    filt(kFilterBandPass, 0.25, hw, c);
    EXPECT_NEAR(c[1], 0.0, 1e-13);
}

TEST(FirSynthesis, CosineTermAndPeakRestoration)
{
    const std::vector<double> u{0.0, 0.25, 0.5};
    std::vector<double> out(3);
    cosineTerm(-2.0, kPi, u, out);
    EXPECT_NEAR(out[0], -2.0, 1e-15);
    EXPECT_NEAR(out[1], -std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(out[2], 0.0, 1e-15);

    // The peak is the largest value, not the largest magnitude.
    const std::vector<double> h{-3.0, 1.0, 2.0};
    const std::vector<double> w{1.0, 0.5, 0.5};
    std::vector<double> hw(3);
    winSync(h, w, hw);
    EXPECT_DOUBLE_EQ(hw[2], 2.0);
    EXPECT_DOUBLE_EQ(hw[0], -6.0);
}
