// FIR synthesis: pass-band counts, the centred inverse DFT against direct sums
// (in C++ and in numpy), windowing with peak restoration and the band transforms.
#include "dsp/fir_synthesis.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "support/reference_python.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;

// inverseDFT against the textbook definition, one std::cos per term.
void expectInverseDFTIsTheDirectSum(const std::vector<double>& X, double tolerance)
{
    const std::size_t N = X.size();
    std::vector<double> x(N);
    inverseDFT(X, x);
    for (std::size_t k = 0; k < N; ++k) {
        double sum = 0.0;
        for (std::size_t i = 0; i < N; ++i)
            sum += X[i] * std::cos(2.0 * kPi * static_cast<double>(k * i) / static_cast<double>(N));
        ASSERT_NEAR(x[k], sum / static_cast<double>(N), tolerance) << "N=" << N << " k=" << k;
    }
}

std::vector<double> idealImpulse(std::size_t N, double theta)
{
    std::vector<double> H(N), h(N);
    idealLowPassSamples(passbandCount(N, theta), H);
    iDFTforSinc(H, h);
    return h;
}

std::vector<double> lowPass(std::size_t N, double theta, int window)
{
    const std::vector<double> h = idealImpulse(N, theta);
    std::vector<double> w(N), hw(N);
    winfun(window, 0.0, w);
    winSync(h, w, hw);
    return hw;
}

} // namespace

TEST(FirSynthesis, PassbandCountsAndMask)
{
    const struct {
        std::size_t N;
        double theta;
        std::size_t M;
    } counts[] = {{25, 0.5, 6},
                  {255, 0.99, 126},
                  {25, 0.01, 0} /* N·θ < 1 */,
                  {51, 0.2, 5} /* floor(11.2/2) */,
                  {25, 0.2, 3} /* N·θ = 5: floor(6/2), the half bin rounds up */};
    for (const auto& c : counts)
        EXPECT_EQ(passbandCount(c.N, c.theta), c.M) << c.N << " " << c.theta;

    std::vector<double> H(255);
    idealLowPassSamples(126, H);
    for (std::size_t k = 0; k < H.size(); ++k)
        EXPECT_EQ(H[k], k <= 126 || k >= 129 ? 1.0 : 0.0) << k;
}

TEST(FirSynthesis, RectangularLowPassOf25Taps)
{
    const std::vector<double> h = idealImpulse(25, 0.5);
    EXPECT_NEAR(h[12], 13.0 / 25.0, 1e-15);
    EXPECT_NEAR(h[11], 0.318519, 5e-7);
    EXPECT_NEAR(h[0], 0.027436, 5e-7);
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
        expectInverseDFTIsTheDirectSum(X, 1e-12);
    }
    // Pass-band masks and piecewise-constant spectra are summed in closed form.
    for (std::size_t N : {25u, 51u, 254u, 255u, 511u}) {
        for (std::size_t M : {std::size_t{0}, std::size_t{3}, std::size_t{4}, N / 5, (N - 1) / 2}) {
            std::vector<double> H(N);
            idealLowPassSamples(M, H);
            expectInverseDFTIsTheDirectSum(H, 1e-13);
        }
        std::vector<double> steps(N);
        for (std::size_t i = 0; i < N; ++i)
            steps[i] = static_cast<double>((i * 7 / N) % 3) - 0.5;
        expectInverseDFTIsTheDirectSum(steps, 1e-13);
    }
}

TEST(FirSynthesis, CentredInverseMatchesNumpy)
{
    std::mt19937 gen(11);
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    for (std::size_t N : {25u, 255u}) {
        std::vector<double> H(N), h(N);
        for (double& v : H)
            v = u(gen);
        iDFTforSinc(H, h);
        const auto ref = reference::numbers("filter_reference.py", {"idft", QString::number(N)},
                                            reference::numbersLine(H));
        ASSERT_EQ(ref.size(), N);
        for (std::size_t k = 0; k < N; ++k)
            EXPECT_NEAR(h[k], ref[k], 1e-12) << k;
    }
}

TEST(FirSynthesis, HighPassAndBandPassTransforms)
{
    std::vector<double> hw = lowPass(51, 0.4, kWindowHamming);
    std::vector<double> c(51);
    filt(kFilterHighPass, 0.0, hw, c);
    for (std::size_t n = 0; n < hw.size(); ++n)
        EXPECT_EQ(c[n], n % 2 == 0 ? -hw[n] : hw[n]) << n;
    std::vector<double> none(51, 5.0);
    filt(7, 0.5, hw, none);
    EXPECT_EQ(none, std::vector<double>(51, 0.0));

    // (N−1)·θ0 = 25: r = 0, modulation 2·cos(πn/2), centre tap 0, antisymmetric.
    hw = lowPass(51, 0.2, kWindowHann);
    filt(kFilterBandPass, 0.5, hw, c);
    for (std::size_t n = 0; n < 51; ++n)
        EXPECT_NEAR(c[n], 2.0 * std::cos(kPi * static_cast<double>(n) / 2.0) * hw[n], 1e-13) << n;
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
    std::vector<double> out(3);
    cosineTerm(-2.0, kPi, std::vector<double>{0.0, 0.25, 0.5}, out);
    EXPECT_NEAR(out[0], -2.0, 1e-15);
    EXPECT_NEAR(out[1], -std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(out[2], 0.0, 1e-15);
    // The peak is the largest value, not the largest magnitude.
    std::vector<double> hw(3);
    winSync(std::vector<double>{-3.0, 1.0, 2.0}, std::vector<double>{1.0, 0.5, 0.5}, hw);
    EXPECT_DOUBLE_EQ(hw[2], 2.0);
    EXPECT_DOUBLE_EQ(hw[0], -6.0);
}
