// Every routine of the numerical core stops the test build on an array of the
// wrong size instead of returning with stale output; and the Highway kernels
// without transcendental functions give the same bits on every target.
#include "dsp/fast_elementary.h"
#include "dsp/filter_measurements.h"
#include "dsp/fir_synthesis.h"
#include "dsp/frequency_response.h"
#include "dsp/gaussian_noise.h"
#include "dsp/multirate.h"
#include "dsp/quantisation.h"
#include "dsp/real_fft.h"
#include "dsp/signal_spectrum.h"
#include "dsp/unit_conversion.h"
#include "dsp/window.h"
#include "vector_targets.h"

#include <gtest/gtest.h>

#include <complex>
#include <cstdint>
#include <functional>
#include <vector>

#ifndef NDEBUG
TEST(SizeContract, WrongSizesStopTheTestBuild)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    using V = std::vector<double>;
    std::vector<std::complex<double>> X(8);
    std::vector<std::uint16_t> zeros(8);
    std::vector<std::int32_t> q(24);
    std::vector<std::uint32_t> r(9);
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"dB short",
         [&] {
             V dB(7);
             decibelsAndPhaseOfBins(X, dB, {}, 1e-10, zeros);
         }},
        {"phase short",
         [&] {
             V dB(8), ph(7);
             decibelsAndPhaseOfBins(X, dB, ph, 1e-10, zeros);
         }},
        {"zero list short",
         [&] {
             V dB(8);
             std::vector<std::uint16_t> z(7);
             decibelsAndPhaseOfBins(X, dB, {}, 1e-10, z);
         }},
        {"q short",
         [&] {
             V c(25, 1.0), cp(25);
             bitPrecison(5, c, q, cp);
         }},
        {"even symmetry",
         [&] {
             V c(24);
             verifySymmetry(5, c, q);
         }},
        {"fftFilter dB",
         [&] {
             V c(5, 1.0), dB(4095);
             fftFilter(c, dB, {});
         }},
        {"fftFilterHalf past fs/2",
         [&] {
             V c(5, 1.0), dB(2050);
             fftFilterHalf(c, dB, {});
         }},
        {"fftFilter too many taps",
         [&] {
             V c(4097, 1.0), dB(4096);
             fftFilter(c, dB, {});
         }},
        {"unwrap short",
         [&] {
             V P(4), D(4), U(4);
             unwrapPhase(P, D, U);
         }},
        {"unwrap inputs",
         [&] {
             V P(9), D(8), U(9);
             unwrapPhase(P, D, U);
         }},
        {"winfun one point",
         [&] {
             V w(1);
             winfun(kWindowHann, 0.0, w);
         }},
        {"winfun too long",
         [&] {
             V w(513);
             winfun(kWindowHann, 0.0, w);
         }},
        {"cheby even",
         [&] {
             V w(24);
             cheby(3.0, w);
         }},
        {"kaiser",
         [&] {
             V x(25), w(24);
             kaiser(5.0, x, w);
         }},
        {"flatTop",
         [&] {
             V x(25), w(26);
             flatTop(x, w);
         }},
        {"vectAdd3s",
         [&] {
             V a(5), b(5), c(4), out(5);
             vectAdd3s(a, b, c, 0.0, out);
         }},
        {"cosineWinFunc",
         [&] {
             V x(6), w(5);
             cosineWinFunc(x, w);
         }},
        {"besselTaylor",
         [&] {
             V y(6), out(5);
             besselTaylor(y, out);
         }},
        {"idealLowPass",
         [&] {
             V H(513);
             idealLowPassSamples(3, H);
         }},
        {"iDFTforSinc even",
         [&] {
             V H(24), h(24);
             iDFTforSinc(H, h);
         }},
        {"inverseDFT",
         [&] {
             V X2(25), x(24);
             inverseDFT(X2, x);
         }},
        {"cosineTerm",
         [&] {
             V u(5), out(6);
             cosineTerm(1.0, 1.0, u, out);
         }},
        {"winSync",
         [&] {
             V h(25), w(25), hw(24);
             winSync(h, w, hw);
         }},
        {"filt",
         [&] {
             V hw(25), c(23);
             filt(kFilterLowPass, 0.0, hw, c);
         }},
        {"calcFilt3dB",
         [&] {
             V m(1);
             calcFilt3dB(kFilterLowPass, m, 0.0);
         }},
        {"autoGenLPF",
         [&] {
             V h(254);
             autoGenLPF(2, 3, h);
         }},
        {"magSpectrum",
         [&] {
             V x(8), mag(kSpectrumLength + 1);
             magSpectrum(x, mag);
         }},
        {"voltUnits",
         [&] {
             V a(5), b(5), out(4);
             voltUnits(a, b, 0, 1, out, b);
         }},
        {"rescale",
         [&] {
             V y(5), out(6);
             rescale(y, 0, out);
         }},
        {"boxMuller",
         [&] {
             V out(8);
             boxMullerSig(r, r, 1.0, 0.0, out);
         }},
        {"noise",
         [&] {
             V in(5), out(6);
             addGaussianNoiseSig(in, 1.0, 0.0, out);
         }},
        {"fft input",
         [&] {
             V x(9);
             RealFft(8).executePadded(x);
         }},
    };
    for (const auto& [name, call] : calls)
        EXPECT_DEATH(call(), "array-size contract broken") << name;
}
#endif

TEST(SizeContract, ExactKernelsGiveTheSameBitsOnEveryTarget)
{
    // No logarithm or arctangent here and no fused multiply-adds: lane width must not
    // change a single bit. Lengths leave tails of every size up to eight lanes.
    using V = std::vector<double>;
    std::vector<V> first;
    forEachVectorTarget([&](std::int64_t) {
        V out;
        for (const std::size_t N : {25u, 31u, 255u}) {
            V w(N);
            winfun(kWindowKaiser, 7.5, w);
            V c(N), cp(N), U(N + 4), P(N + 4), D(N + 4);
            std::vector<std::int32_t> q(N);
            for (std::size_t i = 0; i < N; ++i)
                c[i] = w[i] * ((i % 3) - 1.0);
            bitPrecison(9, c, q, cp);
            for (std::size_t i = 0; i < P.size(); ++i) {
                P[i] = std::sin(0.9 * static_cast<double>(i));
                D[i] = -std::fabs(std::cos(0.3 * static_cast<double>(i))) * 40.0;
            }
            unwrapPhase(P, D, U);
            for (const V* v : {&w, &cp, &U})
                out.insert(out.end(), v->begin(), v->end());
        }
        if (first.empty())
            first.push_back(out);
        ASSERT_EQ(out, first[0]);
    });
}
