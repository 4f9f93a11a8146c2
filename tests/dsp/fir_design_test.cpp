// The window method: pass-band counts, the centred inverse DFT against direct
// sums (C++ and numpy), every window against scipy, the band transforms, and
// the frequency response against numpy's FFT with its phase unwrapped.
#include "dsp/frequency_response.h"
#include "dsp/quantisation.h"
#include "dsp_test_support.h"
#include "support/reference_python.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

using dsptest::design;

namespace {

constexpr double kPi = std::numbers::pi;

// inverseDFT, and for odd N the centred iDFTforSinc, against the textbook sum.
void expectInverseIsTheDirectSum(const std::vector<double>& X, double tolerance)
{
    const std::size_t N = X.size();
    std::vector<double> x(N), h(N);
    inverseDFT(X, x);
    if (N % 2 == 1)
        iDFTforSinc(X, h);
    for (std::size_t k = 0; k < N; ++k) {
        double sum = 0.0;
        for (std::size_t i = 0; i < N; ++i)
            sum += X[i] * std::cos(2.0 * kPi * static_cast<double>(k * i) / static_cast<double>(N));
        ASSERT_NEAR(x[k], sum / static_cast<double>(N), tolerance) << "N=" << N << " k=" << k;
        if (N % 2 == 1) {
            ASSERT_NEAR(h[(k + (N - 1) / 2) % N], sum / static_cast<double>(N), tolerance) << N << " " << k;
        }
    }
}

struct Response {
    std::vector<double> dB = std::vector<double>(kResponsePoints);
    std::vector<double> phase = std::vector<double>(kResponsePoints);
};

Response respond(const std::vector<double>& c)
{
    Response r;
    fftFilter(c, r.dB, r.phase);
    return r;
}

} // namespace

TEST(FirSynthesis, PassbandCountsAndTheIdealLowPass)
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

    // 25 taps, rectangular: hand-computed values; an all-ones window scales by exactly 1.
    const std::vector<double> h = design(25, 0.5, kFilterLowPass, 0.0, kWindowRectangular);
    EXPECT_NEAR(h[12], 13.0 / 25.0, 1e-15);
    EXPECT_NEAR(h[11], 0.318519, 5e-7);
    EXPECT_NEAR(h[0], 0.027436, 5e-7);
    for (std::size_t n = 0; n < 25; ++n)
        EXPECT_NEAR(h[n], h[24 - n], 1e-15);
}

TEST(FirSynthesis, InverseTransformsMatchDirectSumsAndNumpy)
{
    for (std::size_t N : {1u, 2u, 3u, 24u, 25u, 64u, 127u, 254u, 255u, 511u, 512u})
        expectInverseIsTheDirectSum(dsptest::randomSignal(N, unsigned(N)), 1e-12);
    // Pass-band masks and piecewise-constant spectra are summed in closed form.
    for (std::size_t N : {25u, 51u, 254u, 255u, 511u}) {
        for (std::size_t M : {std::size_t{0}, std::size_t{3}, std::size_t{4}, N / 5, (N - 1) / 2}) {
            std::vector<double> H(N);
            idealLowPassSamples(M, H);
            expectInverseIsTheDirectSum(H, 1e-13);
        }
        std::vector<double> steps(N);
        for (std::size_t i = 0; i < N; ++i)
            steps[i] = static_cast<double>((i * 7 / N) % 3) - 0.5;
        expectInverseIsTheDirectSum(steps, 1e-13);
    }
    for (std::size_t N : {25u, 255u}) {
        const std::vector<double> H = dsptest::randomSignal(N, 11, 2.0);
        std::vector<double> h(N);
        iDFTforSinc(H, h);
        const auto ref = reference::numbers("filter_reference.py", {"idft", QString::number(N)},
                                            reference::numbersLine(H));
        ASSERT_EQ(ref.size(), N);
        for (std::size_t k = 0; k < N; ++k)
            EXPECT_NEAR(h[k], ref[k], 1e-12) << k;
    }
}

TEST(Window, EverySymmetricAndMatchesScipyOrNumpy)
{
    for (std::size_t N : {25u, 51u, 255u, 511u}) {
        for (int index = 0; index < kWindowCount; ++index) {
            std::vector<double> w(N, -7.0);
            winfun(index, index == kWindowChebyshev ? 3.0 : 5.0, w);
            for (std::size_t n = 0; n < N; ++n) {
                ASSERT_TRUE(std::isfinite(w[n])) << index << " " << n;
                ASSERT_NEAR(w[n], w[N - 1 - n], 1e-12) << "window " << index << " N " << N << " n " << n;
            }
        }
    }
    const struct {
        int index;
        const char* name;
        double parameter, tolerance;
    } refs[] = {
        {kWindowRectangular, "rectangular", 0.0, 0.0},
        {kWindowBlackman, "blackman", 0.0, 1e-14},
        {kWindowHamming, "hamming", 0.0, 1e-14},
        {kWindowHann, "hann", 0.0, 1e-14},
        {kWindowBlackmanHarris, "blackmanharris", 0.0, 1e-14},
        {kWindowCosine, "cosine", 0.0, 1e-14},
        {kWindowNutall, "nutall", 0.0, 1e-14},
        {kWindowBlackmanNutall, "blackmannutall", 0.0, 1e-14},
        {kWindowFlatTop, "flattop", 0.0, 1e-14},
        {kWindowKaiser, "kaiserseries", 5.0, 1e-14},
        {kWindowKaiser, "kaiserseries", 14.0, 1e-13},
        {kWindowKaiser, "kaiser", 5.0,
         1e-7}, // scipy's I0 is exact; the eleven-term series is close for moderate β
        // The window's spectrum samples pass through single precision.
        {kWindowChebyshev, "chebyshev", 3.0, 1e-6},
        {kWindowChebyshev, "chebyshev", 5.0, 1e-6},
    };
    for (std::size_t N : {25u, 255u}) {
        QStringList args{QStringLiteral("window"), QString::number(N)};
        for (const auto& r : refs)
            args << QStringLiteral("%1:%2").arg(QString::fromLatin1(r.name)).arg(r.parameter);
        const auto ref = reference::numbers("filter_reference.py", args);
        ASSERT_EQ(ref.size(), N * std::size(refs));
        for (std::size_t i = 0; i < std::size(refs); ++i) {
            std::vector<double> w(N);
            winfun(refs[i].index, refs[i].parameter, w);
            for (std::size_t n = 0; n < N; ++n)
                EXPECT_NEAR(w[n], ref[i * N + n], refs[i].tolerance)
                    << refs[i].name << " " << refs[i].parameter << " N " << N << " n " << n;
        }
    }
}

TEST(FirSynthesis, BandTransformsAndPeakRestoration)
{
    std::vector<double> hw = design(51, 0.4, kFilterLowPass, 0.0, kWindowHamming);
    std::vector<double> c(51);
    filt(kFilterHighPass, 0.0, hw, c);
    for (std::size_t n = 0; n < hw.size(); ++n)
        EXPECT_EQ(c[n], n % 2 == 0 ? -hw[n] : hw[n]) << n;
    std::vector<double> none(51, 5.0);
    filt(7, 0.5, hw, none);
    EXPECT_EQ(none, std::vector<double>(51, 0.0));

    // (N−1)·θ0 = 25: r = 0, modulation 2·cos(πn/2), centre tap 0, antisymmetric.
    hw = design(51, 0.2, kFilterLowPass, 0.0, kWindowHann);
    filt(kFilterBandPass, 0.5, hw, c);
    for (std::size_t n = 0; n < 51; ++n)
        EXPECT_NEAR(c[n], 2.0 * std::cos(kPi * static_cast<double>(n) / 2.0) * hw[n], 1e-13) << n;
    std::vector<std::int32_t> q(51, 0);
    EXPECT_EQ(verifySymmetry(0, c, q), kSymmetryNegative);
    // (N−1)·θ0 = 24.5 lies halfway and rounds to the even 24: r = +0.5, so tap 1 keeps 2·hw[1].
    hw = design(99, 0.1, kFilterLowPass, 0.0, kWindowHann);
    c = design(99, 0.1, kFilterBandPass, 0.25, kWindowHann);
    EXPECT_NEAR(c[0], std::sqrt(2.0) * hw[0], 1e-13);
    EXPECT_NEAR(c[1], 2.0 * hw[1], 1e-13);
    // 25.5 rounds to 26: r = −0.5 and tap 1 is cos(π/2) = 0.
    EXPECT_NEAR(design(103, 0.1, kFilterBandPass, 0.25, kWindowHann)[1], 0.0, 1e-13);

    std::vector<double> out(3);
    cosineTerm(-2.0, kPi, std::vector<double>{0.0, 0.25, 0.5}, out);
    EXPECT_NEAR(out[0], -2.0, 1e-15);
    EXPECT_NEAR(out[1], -std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(out[2], 0.0, 1e-15);
    // The peak is the largest value, not the largest magnitude.
    winSync(std::vector<double>{-3.0, 1.0, 2.0}, std::vector<double>{1.0, 0.5, 0.5}, out);
    EXPECT_EQ(out, (std::vector<double>{-6.0, 1.0, 2.0}));
}

TEST(FrequencyResponse, MatchesNumpyAndItsLowerHalf)
{
    const std::vector<std::vector<double>> filters = {
        design(25, 0.5, kFilterLowPass, 0.0, kWindowRectangular),
        design(255, 0.2, kFilterBandPass, 0.5, kWindowKaiser, 5.0),
        design(101, 0.3, kFilterHighPass, 0.0, kWindowBlackman),
        design(51, 0.5, kFilterBandPass, 0.5, kWindowHann),
        {1.0, 1.0},  // exact zero at fs/2
        {1.0, -1.0}, // exact zero at DC
    };
    for (std::size_t f = 0; f < filters.size(); ++f) {
        const Response r = respond(filters[f]);
        const auto ref =
            reference::numbers("filter_reference.py", {"response"}, reference::numbersLine(filters[f]));
        ASSERT_EQ(ref.size(), 2 * kResponsePoints);
        for (std::size_t k = 0; k < kResponsePoints; ++k) {
            // Deep stop-band bins carry the FFT's absolute rounding (~1e-16), which in dB grows as 1/|X|.
            const double tol = 1e-10 + 1e-13 / std::pow(10.0, ref[k] / 20.0);
            ASSERT_NEAR(r.dB[k], ref[k], tol) << "filter " << f << " bin " << k;
            // Where Re X is rounding noise the sign of ±π/2 is arbitrary: compare modulo π.
            const double d = std::fmod(std::fabs(r.phase[k] - ref[kResponsePoints + k]), kPi);
            ASSERT_LT(std::min(d, kPi - d), tol) << "filter " << f << " bin " << k;
        }
        // The designer computes only the bins it reads: the full response's, bit for bit.
        std::vector<double> dB(kResponseHalf), phase(kResponseHalf), dBOnly(kResponseHalf);
        fftFilterHalf(filters[f], dB, phase);
        fftFilterHalf(filters[f], dBOnly, {});
        for (std::size_t k = 0; k < kResponseHalf; ++k) {
            ASSERT_EQ(dB[k], r.dB[k]) << k;
            ASSERT_EQ(phase[k], r.phase[k]) << k;
            ASSERT_EQ(dBOnly[k], r.dB[k]) << k;
        }
    }
    // A near-zero bin takes its lower neighbour exactly (its mirror has the opposite phase).
    Response r = respond({1.0, 1.0});
    EXPECT_EQ(r.dB[2048], r.dB[2047]);
    EXPECT_EQ(r.phase[2048], r.phase[2047]);
    r = respond({1.0, -1.0});
    EXPECT_EQ(r.phase[0], r.phase[1]);
    std::vector<double> dB(kResponsePoints, 5.0);
    fftFilter(std::vector<double>{1.0}, dB, {});
    EXPECT_EQ(dB, std::vector<double>(kResponsePoints, 0.0));
}

TEST(FrequencyResponse, UnwrappedPhase)
{
    // In the pass band the phase of a symmetric filter is −ω(N−1)/2.
    const std::size_t N = 51;
    const Response r = respond(design(N, 0.4, kFilterLowPass, 0.0, kWindowHamming));
    std::vector<double> U(kResponseHalf);
    const PhaseRange range = unwrapPhase(r.phase, r.dB, U);
    for (std::size_t k = 0; k < 700; ++k)
        ASSERT_NEAR(U[k], -2.0 * kPi * static_cast<double>(k) / 4096.0 * (N - 1) / 2.0, 1e-9) << k;
    EXPECT_EQ(range.largest, *std::max_element(U.begin(), U.end()));
    EXPECT_EQ(range.smallest, *std::min_element(U.begin(), U.end()));

    // Magnitude falls into a notch at point 5 and climbs out of it (0.5 dB steps, slowing).
    std::vector<double> D{0, -1, -2, -3, -4, -5, -4, -3, -2.5, -2.4, -2.3, -2.2, -2.1, -2.0, -1.9, -1.8};
    // Wrapped phase: falling by 0.1 except a rise at 3→4 (a wrap) and at the notch 5→6 a fall.
    const std::vector<double> P{0.0, -0.1, -0.2, 1.3, 1.2, 1.1, 1.0, 0.9,
                                0.8, 0.7,  0.6,  0.5, 0.4, 0.3, 0.2, 0.1};
    U.resize(16);
    unwrapPhase(P, D, U);
    EXPECT_DOUBLE_EQ(U[2], -0.2);
    EXPECT_DOUBLE_EQ(U[3], 1.3 - kPi); // rise away from a notch: wrap
    EXPECT_DOUBLE_EQ(U[5], 1.1 - kPi);
    EXPECT_DOUBLE_EQ(U[6], 1.0); // fall at the notch: +π
    EXPECT_DOUBLE_EQ(U[15], 0.1);
    // NaN in the magnitude counts as no rise and never makes a notch.
    D[6] = std::numeric_limits<double>::quiet_NaN();
    unwrapPhase(P, D, U);
    EXPECT_DOUBLE_EQ(U[6], 1.0 - kPi);
}
