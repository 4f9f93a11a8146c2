// Frequency response against numpy's FFT (dB and one-argument-arctangent
// phase), the near-zero bin rule, and phase unwrapping of linear-phase filters.
#include "dsp/fir_synthesis.h"
#include "dsp/frequency_response.h"
#include "dsp/window.h"
#include "support/reference_python.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <tuple>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;

std::vector<double> design(std::size_t N, double theta, int type, double theta0, int window, double p = 0.0)
{
    std::vector<double> H(N), h(N), w(N), hw(N), c(N);
    idealLowPassSamples(passbandCount(N, theta), H);
    iDFTforSinc(H, h);
    winfun(window, p, w);
    winSync(h, w, hw);
    filt(type, theta0, hw, c);
    return c;
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

TEST(FrequencyResponse, MatchesNumpy)
{
    const std::vector<std::vector<double>> filters = {
        design(25, 0.5, kFilterLowPass, 0.0, kWindowRectangular),
        design(255, 0.2, kFilterBandPass, 0.5, kWindowKaiser, 5.0),
        design(101, 0.3, kFilterHighPass, 0.0, kWindowBlackman),
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
    }
}

TEST(FrequencyResponse, NearZeroBinsTakeTheirNeighbour)
{
    Response r = respond({1.0, 1.0});
    EXPECT_EQ(r.dB[2048], r.dB[2047]);
    EXPECT_EQ(r.phase[2048], r.phase[2047]);
    EXPECT_NEAR(r.dB[0], 20.0 * std::log10(2.0), 1e-14);

    r = respond({1.0, -1.0});
    EXPECT_EQ(r.dB[0], r.dB[1]);
    EXPECT_EQ(r.phase[0], r.phase[1]);
    EXPECT_TRUE(std::isfinite(r.dB[0]));
    for (std::size_t k = 0; k < kResponsePoints; ++k)
        ASSERT_TRUE(std::isfinite(r.dB[k]) && std::isfinite(r.phase[k])) << k;
}

TEST(FrequencyResponse, PhaseIsTheOneArgumentArctangent)
{
    // A pure delay of 3 samples: phase −3ω, folded into [−π/2, π/2].
    const Response r = respond({0.0, 0.0, 0.0, 1.0});
    for (std::size_t k = 0; k < kResponsePoints; k += 97) {
        const double phi = -3.0 * 2.0 * kPi * static_cast<double>(k) / 4096.0;
        EXPECT_NEAR(r.phase[k], std::atan(std::tan(phi)), 1e-12) << k;
        EXPECT_NEAR(r.dB[k], 0.0, 1e-12);
    }
    std::vector<double> dB(kResponsePoints, 5.0);
    fftFilter(std::vector<double>{1.0}, dB, {});
    EXPECT_EQ(dB, std::vector<double>(kResponsePoints, 0.0));
}

TEST(FrequencyResponse, UnwrappedPhaseOfALinearPhaseLowPass)
{
    // In the pass band the phase of a symmetric filter is −ω(N−1)/2.
    const std::size_t N = 51;
    const Response r = respond(design(N, 0.4, kFilterLowPass, 0.0, kWindowHamming));
    std::vector<double> U(kResponseHalf);
    const PhaseRange range = unwrapPhase(r.phase, r.dB, U);
    for (std::size_t k = 0; k < 700; ++k) {
        const double omega = 2.0 * kPi * static_cast<double>(k) / 4096.0;
        ASSERT_NEAR(U[k], -omega * (N - 1) / 2.0, 1e-9) << k;
    }
    EXPECT_EQ(range.largest, *std::max_element(U.begin(), U.end()));
    EXPECT_EQ(range.smallest, *std::min_element(U.begin(), U.end()));
}

TEST(FrequencyResponse, UnwrapFollowsTheNotchRule)
{
    const std::size_t n = 16;
    // Magnitude falls into a notch at point 5 and climbs out of it (0.5 dB steps, slowing).
    std::vector<double> D{0, -1, -2, -3, -4, -5, -4, -3, -2.5, -2.4, -2.3, -2.2, -2.1, -2.0, -1.9, -1.8};
    // Wrapped phase: falling by 0.1 except a rise at 3→4 (a wrap) and at the notch 5→6 a fall.
    std::vector<double> P{0.0, -0.1, -0.2, 1.3, 1.2, 1.1, 1.0, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3, 0.2, 0.1};
    std::vector<double> U(n);
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

TEST(FrequencyResponse, LowerHalfEqualsTheFullResponse)
{
    // The designer computes only the bins it reads; they must be the full response's, bit for bit,
    // near-zero bins included (a zero at DC borrows bin 1, a zero at fs/2 borrows bin 2047).
    const std::vector<std::vector<double>> filters = {
        design(255, 0.2, kFilterBandPass, 0.5, kWindowKaiser, 5.0),
        design(51, 0.5, kFilterBandPass, 0.5, kWindowHann),
        {1.0, 1.0},
        {1.0, -1.0},
    };
    for (const auto& c : filters) {
        const Response full = respond(c);
        std::vector<double> dB(2049), phase(2049), dBOnly(2049);
        fftFilterHalf(c, dB, phase);
        fftFilterHalf(c, dBOnly, {});
        for (std::size_t k = 0; k < dB.size(); ++k) {
            ASSERT_EQ(dB[k], full.dB[k]) << k;
            ASSERT_EQ(phase[k], full.phase[k]) << k;
            ASSERT_EQ(dBOnly[k], full.dB[k]) << k;
        }
    }
}
