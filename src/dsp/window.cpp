// Window functions. The cosine-sum windows keep their published coefficients
// exactly and are not renormalised; Flat Top, Kaiser and Chebyshev are scaled
// to peak at 1.
#include "dsp/window.h"

#include "dsp/contract.h"
#include "dsp/fir_synthesis.h"
#include "dsp/vector_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;
using Buffer = std::array<double, kFirMaxTaps>;

// w = a0 − a1·cos(2πx) + a2·cos(4πx) − a3·cos(6πx), each term its own array, a0 added last.
void cosineSum(double a0, double a1, double a2, double a3, std::span<const double> x, std::span<double> w)
{
    const std::size_t N = x.size();
    Buffer t1{}, t2{}, t3{};
    std::span<double> s1(t1.data(), N), s2(t2.data(), N), s3(t3.data(), N);
    cosineTerm(-a1, 2.0 * kPi, x, s1);
    cosineTerm(a2, 4.0 * kPi, x, s2);
    cosineTerm(-a3, 6.0 * kPi, x, s3);
    vectAdd3s(s1, s2, s3, a0, w);
}

void scaleToPeak(std::span<double> w)
{
    if (w.empty())
        return;
    const double peak = *std::max_element(w.begin(), w.end());
    if (peak == 0.0 || !std::isfinite(peak))
        return;
    for (double& v : w)
        v /= peak;
}

} // namespace

void vectAdd3s(std::span<const double> A, std::span<const double> B, std::span<const double> C, double s,
               std::span<double> out)
{
    const std::size_t n = out.size();
    if (!DSP_EXPECTS(A.size() == n && B.size() == n && C.size() == n))
        return;
    for (std::size_t i = 0; i < n; ++i)
        out[i] = A[i] + B[i] + C[i] + s;
}

void cosineWinFunc(std::span<const double> x, std::span<double> w)
{
    const std::size_t n = w.size();
    if (!DSP_EXPECTS(x.size() == n))
        return;
    for (std::size_t i = 0; i < n; ++i)
        w[i] = std::cos(kPi * x[i] - kPi / 2.0);
}

void flatTop(std::span<const double> x, std::span<double> w)
{
    const std::size_t N = x.size();
    if (!DSP_EXPECTS(N > 0 && N <= kFirMaxTaps && w.size() == N))
        return;
    Buffer t1{}, t2{}, t3{}, t4{};
    std::span<double> s1(t1.data(), N), s2(t2.data(), N), s3(t3.data(), N), s4(t4.data(), N);
    cosineTerm(-1.93, 2.0 * kPi, x, s1);
    cosineTerm(1.29, 4.0 * kPi, x, s2);
    cosineTerm(-0.388, 6.0 * kPi, x, s3);
    cosineTerm(0.032, 8.0 * kPi, x, s4);
    vectAdd3s(s1, s2, s3, 1.0, w);
    for (std::size_t i = 0; i < N; ++i)
        w[i] += s4[i];
    scaleToPeak(w);
}

void besselTaylor(std::span<const double> y, std::span<double> out)
{
    if (DSP_EXPECTS(y.size() == out.size()))
        vector_kernels::besselSeries(y, out);
}

void kaiser(double beta, std::span<const double> x, std::span<double> w)
{
    const std::size_t N = x.size();
    if (DSP_EXPECTS(N > 0 && N <= kFirMaxTaps && w.size() == N))
        vector_kernels::kaiserWindow(beta, x, w);
}

void cheby(double upsilon, std::span<double> w)
{
    const std::size_t N = w.size();
    if (!DSP_EXPECTS(N >= 3 && N % 2 == 1 && N <= kFirMaxTaps))
        return;
    const std::size_t L = N - 1;
    const double l = static_cast<double>(L);
    const double x0 = std::cosh(std::acosh(std::pow(10.0, upsilon)) / l);

    Buffer W{};
    for (std::size_t i = 0; i < L; ++i) {
        const double d = std::fabs(x0 * std::cos(kPi * static_cast<double>(i) / l));
        const double t = d <= 1.0 ? std::cos(l * std::acos(d)) : std::cosh(l * std::acosh(d));
        const double signed_t = (i % 2 == 0) ? t : -t;
        W[i] = static_cast<double>(static_cast<float>(signed_t));
    }
    Buffer u{};
    inverseDFT(std::span<const double>(W.data(), L), std::span<double>(u.data(), L));

    for (std::size_t i = 1; i < L; ++i)
        w[i] = u[i];
    w[0] = u[0] / 2.0;
    w[N - 1] = u[0] / 2.0;
    scaleToPeak(w);
}

void winfun(int index, double parameter, std::span<double> w)
{
    const std::size_t N = w.size();
    if (!DSP_EXPECTS(N >= 2 && N <= kFirMaxTaps) || index < 0 || index >= kWindowCount)
        return;
    Buffer ramp{};
    const double step = 1.0 / static_cast<double>(N - 1);
    for (std::size_t n = 0; n < N; ++n)
        ramp[n] = static_cast<double>(n) * step;
    const std::span<const double> x(ramp.data(), N);

    switch (index) {
    case kWindowRectangular:
        std::fill(w.begin(), w.end(), 1.0);
        break;
    case kWindowBlackman:
        cosineSum(0.42, 0.5, 0.08, 0.0, x, w);
        break;
    case kWindowHamming:
        cosineSum(0.54, 0.46, 0.0, 0.0, x, w);
        break;
    case kWindowHann:
        cosineSum(0.5, 0.5, 0.0, 0.0, x, w);
        break;
    case kWindowBlackmanHarris:
        cosineSum(0.35875, 0.48829, 0.14128, 0.01168, x, w);
        break;
    case kWindowCosine:
        cosineWinFunc(x, w);
        break;
    case kWindowNutall:
        cosineSum(0.355768, 0.487396, 0.144232, 0.012604, x, w);
        break;
    case kWindowBlackmanNutall:
        cosineSum(0.3635819, 0.4891775, 0.1365995, 0.0106411, x, w);
        break;
    case kWindowFlatTop:
        flatTop(x, w);
        break;
    case kWindowKaiser:
        kaiser(parameter, x, w);
        break;
    case kWindowChebyshev:
        cheby(parameter, w);
        break;
    default:
        break;
    }
}
