// Test-signal synthesis. Everything periodic goes through one phasor
// routine: the phase of sample k is c·k cycles with c = f / fs kept in
// double-double, reduced exactly to [-1/2, 1/2], so accuracy does not
// depend on how far into the record a sample lies. Samples are formed as
// (block anchor) × (in-block rotation), two tables of accurately computed
// phasors; only the harmonic sums step their tables from one harmonic to
// the next, and recompute them exactly every few harmonics.
#include "dsp/signal_generators.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "dsp/gaussian_noise.h"

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr std::size_t kBlock = 128;            // samples per anchor
constexpr std::uint32_t kDirectHarmonics = 64; // above this the sums use their closed form
constexpr std::uint32_t kExactEvery = 8;       // harmonics between exactly computed tables

// A value carried as hi + lo, |lo| ≤ ulp(hi)/2.
struct Wide {
    double hi;
    double lo;
};

// a / b in double-double (the remainder of the division is exact under fma).
Wide divideWide(double a, double b)
{
    const double q = a / b;
    if (!std::isfinite(q))
        return {q, 0.0};
    return {q, std::fma(-q, b, a) / b};
}

// m · x for a whole number m < 2^53.
Wide timesWide(double m, Wide x)
{
    const double p = m * x.hi;
    if (!std::isfinite(p))
        return {p, 0.0};
    return {p, std::fma(m, x.hi, -p) + m * x.lo};
}

// The fractional part of x, in [-1/2, 1/2], still as hi + lo.
Wide reduceCycles(Wide x)
{
    const double whole = std::nearbyint(x.hi);
    const double hi = x.hi - whole; // exact: both share x.hi's ulp
    const double s = hi + x.lo;
    return {s, x.lo - (s - hi)};
}

// The same folded into one double.
double fractionOf(Wide x)
{
    const Wide r = reduceCycles(x);
    return r.hi + r.lo;
}

struct Phasor {
    double re;
    double im;
};

Phasor unitPhasor(double cycles)
{
    const double a = kTwoPi * cycles;
    return {std::cos(a), std::sin(a)};
}

Phasor times(Phasor a, Phasor b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

// e^{i2π c j} for the offsets j < kBlock inside a block, and e^{i2π c k0} for
// the block starts k0, so that sample k0 + j is anchor × rotation.
struct PhasorTables {
    std::array<double, kBlock> rotRe{};
    std::array<double, kBlock> rotIm{};
    std::vector<Phasor> anchors;
};

// Every entry from its exactly reduced phase; n samples to cover.
void exactTables(Wide c, std::size_t n, PhasorTables& t)
{
    for (std::size_t j = 0; j < kBlock; ++j) {
        const Phasor r = unitPhasor(fractionOf(timesWide(static_cast<double>(j), c)));
        t.rotRe[j] = r.re;
        t.rotIm[j] = r.im;
    }
    t.anchors.resize((n + kBlock - 1) / kBlock);
    for (std::size_t b = 0; b < t.anchors.size(); ++b)
        t.anchors[b] = unitPhasor(fractionOf(timesWide(static_cast<double>(b * kBlock), c)));
}

// The tables of frequency c + c₁ from those of c and c₁, entry by entry;
// each step adds about two ulp to the entries.
void advanceTables(PhasorTables& t, const PhasorTables& step)
{
    for (std::size_t j = 0; j < kBlock; ++j) {
        const Phasor r = times({t.rotRe[j], t.rotIm[j]}, {step.rotRe[j], step.rotIm[j]});
        t.rotRe[j] = r.re;
        t.rotIm[j] = r.im;
    }
    for (std::size_t b = 0; b < t.anchors.size(); ++b)
        t.anchors[b] = times(t.anchors[b], step.anchors[b]);
}

// cosOut[k] += scale · cos(2π c k + ϕ) and sinOut[k] += scale · sin(...) with
// phase = e^{iϕ}; either output may be empty, both n long when present.
void accumulate(const PhasorTables& t, Phasor phase, double scale, std::span<double> cosOut,
                std::span<double> sinOut)
{
    const std::size_t n = std::max(cosOut.size(), sinOut.size());
    for (std::size_t b = 0, k0 = 0; k0 < n; ++b, k0 += kBlock) {
        Phasor a = times(t.anchors[b], phase);
        a.re *= scale;
        a.im *= scale;
        const std::size_t len = std::min(kBlock, n - k0);
        if (!cosOut.empty()) {
            double* dst = cosOut.data() + k0;
            for (std::size_t j = 0; j < len; ++j)
                dst[j] += a.re * t.rotRe[j] - a.im * t.rotIm[j];
        }
        if (!sinOut.empty()) {
            double* dst = sinOut.data() + k0;
            for (std::size_t j = 0; j < len; ++j)
                dst[j] += a.re * t.rotIm[j] + a.im * t.rotRe[j];
        }
    }
}

Phasor phasorOf(double phi)
{
    return {std::cos(phi), std::sin(phi)};
}

void addPhasors(Wide c, double phi, double scale, std::span<double> cosOut, std::span<double> sinOut)
{
    PhasorTables t;
    exactTables(c, std::max(cosOut.size(), sinOut.size()), t);
    accumulate(t, phasorOf(phi), scale, cosOut, sinOut);
}

void sinusoid(bool cosine, double A, double fa, double phi, double fs, std::span<double> out)
{
    std::fill(out.begin(), out.end(), 0.0);
    const Wide c = divideWide(fa, fs);
    if (cosine)
        addPhasors(c, phi, A, out, {});
    else
        addPhasors(c, phi, A, {}, out);
}

void twoSinusoids(bool cosine, double A1, double fa1, double A2, double fa2, double fs, std::span<double> out)
{
    // (0 + x₁) + x₂ per sample: the same sum as adding two finished records.
    std::fill(out.begin(), out.end(), 0.0);
    for (const auto& [A, fa] : {std::pair{A1, fa1}, std::pair{A2, fa2}}) {
        if (cosine)
            addPhasors(divideWide(fa, fs), 0.0, A, out, {});
        else
            addPhasors(divideWide(fa, fs), 0.0, A, {}, out);
    }
}

// Σ_{m=1..M} e^{i(2π m f + ϕ)} = e^{i(π(M+1)f + ϕ)} · sin(πMf) / sin(πf) for the
// reduced phase f of one sample; every angle is reduced before use so the
// quotient keeps full relative accuracy next to its poles.
double closedFormSum(bool cosine, double M, Wide f, Phasor phase)
{
    if (f.hi == 0.0 && f.lo == 0.0)
        return M * (cosine ? phase.re : phase.im);
    const double den = std::sin(std::numbers::pi * (f.hi + f.lo));
    // M·f modulo 2, then folded to [-1/2, 1/2] (sin(πg) = sin(π(±1 − g))).
    Wide g = timesWide(M, f);
    const double pairs = 2.0 * std::nearbyint(0.5 * g.hi);
    g.hi -= pairs;
    double gs = g.hi + g.lo;
    if (gs > 0.5)
        gs = (1.0 - g.hi) - g.lo;
    else if (gs < -0.5)
        gs = (-1.0 - g.hi) - g.lo;
    const double num = std::sin(std::numbers::pi * gs);
    // Phase of the middle harmonic: (M+1)·f / 2 cycles.
    Wide h = timesWide(M + 1.0, f);
    h.hi *= 0.5;
    h.lo *= 0.5;
    const Phasor mid = times(unitPhasor(fractionOf(h)), phase);
    return num / den * (cosine ? mid.re : mid.im);
}

void harmonicSum(bool cosine, double A, double fa, double phi, double M, double fs, std::span<double> out)
{
    std::fill(out.begin(), out.end(), 0.0);
    const std::uint32_t count = harmonicCount(M);
    const Wide c = divideWide(fa, fs);
    if (count == 0) {
        return;
    } else if (count <= kDirectHarmonics) {
        // Harmonic m's tables are harmonic m−1's times the fundamental's,
        // recomputed exactly every kExactEvery harmonics to bound the drift.
        const std::size_t n = out.size();
        const Phasor phase = phasorOf(phi);
        PhasorTables fundamental;
        exactTables(c, n, fundamental);
        PhasorTables current = fundamental;
        for (std::uint32_t m = 1; m <= count; ++m) {
            if (m > 1) {
                if ((m - 1) % kExactEvery == 0)
                    exactTables(timesWide(static_cast<double>(m), c), n, current);
                else
                    advanceTables(current, fundamental);
            }
            if (cosine)
                accumulate(current, phase, 1.0, out, {});
            else
                accumulate(current, phase, 1.0, {}, out);
        }
    } else {
        const Phasor phase = phasorOf(phi);
        const double m = static_cast<double>(count);
        for (std::size_t k = 0; k < out.size(); ++k)
            out[k] = closedFormSum(cosine, m, reduceCycles(timesWide(static_cast<double>(k), c)), phase);
    }
    for (double& v : out)
        v *= A;
}

// sin(βπ k/fs) / (βπ k/fs) for k ≥ 1, out[0] = 1. The numerator comes from
// the phasor table (absolute accuracy); where the argument is below 1 the
// quotient would magnify that, so libm's sin of the argument itself is used.
void sinc(double beta, double fs, std::span<double> out)
{
    std::fill(out.begin(), out.end(), 0.0);
    if (out.empty())
        return;
    addPhasors(divideWide(0.5 * beta, fs), 0.0, 1.0, {}, out);
    const double b = std::numbers::pi * beta / fs;
    for (std::size_t k = 1; k < out.size(); ++k) {
        const double u = b * static_cast<double>(k);
        out[k] = (std::fabs(u) < 1.0 ? std::sin(u) : out[k]) / u;
    }
    out[0] = 1.0;
}

} // namespace

std::uint32_t harmonicCount(double M)
{
    const double f = std::floor(M);
    if (!(f > 0.0))
        return 0;
    constexpr double top = 4294967295.0;
    return f >= top ? 4294967295u : static_cast<std::uint32_t>(f);
}

void cosineSig(double A, double fa, double phi, double fs, std::span<double> out)
{
    sinusoid(true, A, fa, phi, fs, out);
}

void sineSig(double A, double fa, double phi, double fs, std::span<double> out)
{
    sinusoid(false, A, fa, phi, fs, out);
}

void cosineTwoSig(double A1, double fa1, double A2, double fa2, double fs, std::span<double> out)
{
    twoSinusoids(true, A1, fa1, A2, fa2, fs, out);
}

void sineTwoSig(double A1, double fa1, double A2, double fa2, double fs, std::span<double> out)
{
    twoSinusoids(false, A1, fa1, A2, fa2, fs, out);
}

void cosineSumSig(double A, double fa, double phi, double M, double fs, std::span<double> out)
{
    harmonicSum(true, A, fa, phi, M, fs, out);
}

void sineSumSig(double A, double fa, double phi, double M, double fs, std::span<double> out)
{
    harmonicSum(false, A, fa, phi, M, fs, out);
}

void mixerSig(double A1, double fa1, double A2, double fa2, double fs, std::span<double> out)
{
    std::vector<double> x2(out.size());
    sinusoid(false, A1, fa1, 0.0, fs, out);
    sinusoid(false, A2, fa2, 0.0, fs, x2);
    for (std::size_t k = 0; k < out.size(); ++k)
        out[k] = (out[k] * x2[k]) + 0.0;
}

void rectSig(double A, double tau, double fs, std::span<double> out)
{
    // The edge is decided on the rounded time grid k·(1/fs), so τ = 10·T
    // entered as such ends the pulse exactly after ten samples.
    const double T = 1.0 / fs;
    for (std::size_t k = 0; k < out.size(); ++k) {
        const double t = k == 0 ? 0.0 : static_cast<double>(k) * T;
        out[k] = (t >= tau ? 0.0 : A) + 0.0;
    }
}

void sincBetaSig(double beta, double fs, std::span<double> out)
{
    sinc(beta, fs, out);
    for (double& v : out)
        v = v + 0.0;
}

void sincSquaredBetaSig(double beta, double fs, std::span<double> out)
{
    sinc(beta, fs, out);
    for (double& v : out)
        v = v * v + 0.0;
}

double signalTimeDomain(int index, double fs, double p1, double p2, double p3, double p4, double p5,
                        double p6, std::span<double> out)
{
    // The clean signal is made in out and the noise added in place.
    double sigma = 0.0;
    double mu = 0.0;
    double maxFreq = 0.0;
    switch (index) {
    case 0:
        cosineSig(p1, p2, p3, fs, out);
        sigma = p4, mu = p5, maxFreq = p2;
        break;
    case 1:
        cosineTwoSig(p1, p2, p3, p4, fs, out);
        sigma = p5, mu = p6, maxFreq = p2 > p4 ? p2 : p4;
        break;
    case 2:
        cosineSumSig(p1, p2, p3, p4, fs, out);
        sigma = p5, mu = p6, maxFreq = p4 * p2;
        break;
    case 3:
        sineSig(p1, p2, p3, fs, out);
        sigma = p4, mu = p5, maxFreq = p2;
        break;
    case 4:
        sineTwoSig(p1, p2, p3, p4, fs, out);
        sigma = p5, mu = p6, maxFreq = p2 > p4 ? p2 : p4;
        break;
    case 5:
        sineSumSig(p1, p2, p3, p4, fs, out);
        sigma = p5, mu = p6, maxFreq = p4 * p2;
        break;
    case 6:
        gaussianSig(p1, p2, out);
        return fs / 100.0;
    case 7:
        mixerSig(p1, p2, p3, p4, fs, out);
        sigma = p5, mu = p6, maxFreq = p2 + p4;
        break;
    case 8:
        rectSig(p1, p2, fs, out);
        sigma = p3, mu = p4, maxFreq = 1.0 / p2;
        break;
    case 9:
        sincBetaSig(p1, fs, out);
        sigma = p2, mu = p3, maxFreq = fs / 100.0;
        break;
    case 10:
        sincSquaredBetaSig(p1, fs, out);
        sigma = p2, mu = p3, maxFreq = fs / 100.0;
        break;
    default:
        std::fill(out.begin(), out.end(), 0.0);
        return 0.0;
    }
    addGaussianNoiseSig(out, sigma, mu, out);
    return maxFreq;
}
