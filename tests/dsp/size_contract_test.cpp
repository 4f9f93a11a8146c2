// Every routine of the numerical core stops the test build on an array of the
// wrong size instead of returning with stale output.
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
    std::vector<std::uint16_t> z7(7), z8(8);
    std::vector<std::int32_t> q(24);
    std::vector<std::uint32_t> r(9);
    V v1(1), v4(4), v5(5, 1.0), v6(6), v7(7), v8(8), v9(9), v23(23), v24(24), v25(25, 1.0), v26(26);
    V v254(254), v513(513), v2050(2050), v4095(4095), v4096(4096), v4097(4097), v16385(kSpectrumLength + 1);
    const std::function<void()> calls[] = {
        [&] { decibelsAndPhaseOfBins(X, v7, {}, 1e-10, z8); },
        [&] { decibelsAndPhaseOfBins(X, v8, v7, 1e-10, z8); },
        [&] { decibelsAndPhaseOfBins(X, v8, {}, 1e-10, z7); },
        [&] { bitPrecison(5, v25, q, v25); },
        [&] { verifySymmetry(5, v24, q); },
        [&] { fftFilter(v5, v4095, {}); },
        [&] { fftFilterHalf(v5, v2050, {}); },
        [&] { fftFilter(v4097, v4096, {}); },
        [&] { unwrapPhase(v4, v4, v4); },
        [&] { unwrapPhase(v9, v8, v9); },
        [&] { winfun(kWindowHann, 0.0, v1); },
        [&] { winfun(kWindowHann, 0.0, v513); },
        [&] { cheby(3.0, v24); },
        [&] { kaiser(5.0, v25, v24); },
        [&] { flatTop(v25, v26); },
        [&] { vectAdd3s(v5, v5, v4, 0.0, v5); },
        [&] { cosineWinFunc(v6, v5); },
        [&] { besselTaylor(v6, v5); },
        [&] { idealLowPassSamples(3, v513); },
        [&] { iDFTforSinc(v24, v24); },
        [&] { inverseDFT(v25, v24); },
        [&] { cosineTerm(1.0, 1.0, v5, v6); },
        [&] { winSync(v25, v25, v24); },
        [&] { filt(kFilterLowPass, 0.0, v25, v23); },
        [&] { calcFilt3dB(kFilterLowPass, v1, 0.0); },
        [&] { autoGenLPF(2, 3, v254); },
        [&] { magSpectrum(v8, v16385); },
        [&] { voltUnits(v5, v5, 0, 1, v4, v5); },
        [&] { rescale(v5, 0, v6); },
        [&] { boxMullerSig(r, r, 1.0, 0.0, v8); },
        [&] { addGaussianNoiseSig(v5, 1.0, 0.0, v6); },
        [&] { RealFft(8).executePadded(v9); },
    };
    for (std::size_t i = 0; i < std::size(calls); ++i)
        EXPECT_DEATH(calls[i](), "array-size contract broken") << "call " << i;
}
#endif
