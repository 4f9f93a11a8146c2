// The mask search. Each trial designs, quantises and checks the response on
// 16384 points; the Kaiser method only grows N from Kaiser's estimate (the
// window method's cutoff sits on a coarse grid, so the estimate is a floor),
// while the equiripple search steps either way from its estimate.
#include "filter/mask_design.h"

#include "dsp/equiripple.h"
#include "dsp/filter_analysis.h"
#include "dsp/fir_synthesis.h"
#include "dsp/kaiser_design_formulas.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace {

constexpr int kMinTaps = kDesignMinTaps;
constexpr int kMaxTaps = kDesignMaxTaps;

int clampTaps(int n)
{
    n = std::clamp(n, kMinTaps, kMaxTaps);
    return n % 2 == 0 ? n + 1 : n;
}

// Kaiser's cutoff and centre: the middle of each transition.
void middleOfTransitions(const ToleranceMask& m, double& cutoff, double& center)
{
    center = 0.0;
    if (m.type == 1) {
        const double low = 0.5 * (m.stopband[0] + m.passband[0]);
        const double high = 0.5 * (m.passband[1] + m.stopband[1]);
        center = 0.5 * (low + high);
        cutoff = 0.5 * (high - low);
    } else {
        cutoff = 0.5 * (m.passband[0] + m.stopband[0]);
    }
}

} // namespace

MaskProblem maskProblem(const ToleranceMask& m, double half)
{
    const bool bandPass = m.type == 1;
    const double edges[4] = {m.passband[0], m.stopband[0], m.passband[1], m.stopband[1]};
    for (int i = 0; i < (bandPass ? 4 : 2); ++i)
        if (!(edges[i] > 0.0 && edges[i] < half))
            return {QStringLiteral("VALID RANGE: 0 < mask edges < "), half, true};
    if (m.type == 0 && !(m.passband[0] < m.stopband[0]))
        return {QStringLiteral("VALID RANGE: fpass < fstop")};
    if (m.type == 2 && !(m.stopband[0] < m.passband[0]))
        return {QStringLiteral("VALID RANGE: fstop < fpass")};
    if (bandPass &&
        !(m.stopband[0] < m.passband[0] && m.passband[0] < m.passband[1] && m.passband[1] < m.stopband[1]))
        return {QStringLiteral("VALID RANGE: fstop1 < fpass1 < fpass2 < fstop2")};
    if (!(m.rippleDb > 0.0) || !std::isfinite(m.rippleDb))
        return {QStringLiteral("VALID RANGE: Rp > 0")};
    if (!(m.attenuationDb > 0.0) || !std::isfinite(m.attenuationDb))
        return {QStringLiteral("VALID RANGE: As > 0")};
    return {};
}

std::optional<MaskDesign> maskTrial(int method, const ToleranceMask& m, int widthIndex, int taps)
{
    const auto N = static_cast<std::size_t>(taps);
    MaskDesign d;
    d.taps = taps;
    d.coefficients.assign(N, 0.0);
    middleOfTransitions(m, d.cutoff, d.center);
    if (method == kMaskEquiripple) {
        if (!equirippleDesign(m, d.coefficients))
            return std::nullopt;
    } else {
        const double A =
            -20.0 * std::log10(std::min(passbandDeviation(m.rippleDb), stopbandDeviation(m.attenuationDb)));
        d.beta = kaiserBeta(A);
        std::vector<double> H(N), h(N), w(N), hw(N);
        // The window pipeline designs a high pass as the low pass of the complementary cutoff.
        idealLowPassSamples(passbandCount(N, m.type == 2 ? 1.0 - d.cutoff : d.cutoff), H);
        iDFTforSinc(H, h);
        // β = 0 is the rectangular window, which the Kaiser formula gives at β → 0.
        winfun(d.beta > 0.0 ? kWindowKaiser : kWindowRectangular, d.beta, w);
        winSync(h, w, hw);
        filt(m.type, d.center, hw, d.coefficients);
    }
    std::vector<double> cp(N);
    std::vector<std::int32_t> q(N);
    bitPrecison(widthIndex, d.coefficients, q, cp);
    std::vector<double> power(kAnalysisBins);
    analysisPower(cp, power);
    d.check = checkMask(m, power);
    return d;
}

std::optional<MaskDesign> designToMask(int method, const ToleranceMask& m, int widthIndex,
                                       std::optional<int> taps)
{
    if (taps)
        return maskTrial(method, m, widthIndex, clampTaps(*taps));
    const double transition = narrowestTransition(m);
    const double dp = passbandDeviation(m.rippleDb);
    const double ds = stopbandDeviation(m.attenuationDb);
    int n = method == kMaskEquiripple
                ? equirippleLengthEstimate(dp, ds, transition / 2.0)
                : kaiserLength(-20.0 * std::log10(std::min(dp, ds)), transition * std::numbers::pi);
    n = clampTaps(n);
    std::optional<MaskDesign> best = maskTrial(method, m, widthIndex, n);
    if (method == kMaskEquiripple) {
        // Down while the shorter one still meets the mask.
        while (best && best->check.met && n > kMinTaps) {
            auto shorter = maskTrial(method, m, widthIndex, n - 2);
            if (!shorter || !shorter->check.met)
                break;
            n -= 2;
            best = std::move(shorter);
        }
    }
    // Up until one meets it, or the longest is reached.
    while ((!best || !best->check.met) && n < kMaxTaps) {
        n += 2;
        if (auto longer = maskTrial(method, m, widthIndex, n))
            best = std::move(longer);
    }
    return best;
}
