// Highway kernels of the numerical core, compiled once per instruction set
// (foreach_target re-includes this file) and dispatched at run time. The
// logarithm and arctangent are Highway's contrib/math ones; the rest is plain
// lane arithmetic. Tails shorter than a vector go through the same code on
// one-lane vectors, so a bin's value does not depend on where it falls.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "dsp/vector_kernels.cpp"
#include <hwy/foreach_target.h> // must come before highway.h

#include <hwy/contrib/math/math-inl.h>
#include <hwy/highway.h>

#include "dsp/vector_kernels.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstring>

HWY_BEFORE_NAMESPACE();
namespace vector_kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using Full = hn::ScalableTag<double>;
using One = hn::CappedTag<double, 1>;

constexpr double kTenOverLn10 = 4.3429448190325182765;
constexpr std::size_t kMaxLanes = 64 / sizeof(double); // AVX-512, the widest target built
static_assert(HWY_MAX_BYTES <= 64);
constexpr std::size_t kMaxPoints = 4096; // of an unwrapped phase

// The power |X|² of bins i.. (Lanes(d) of them) and its dB and phase, stored at i.
template <class D, bool kPhase>
HWY_INLINE hn::Vec<hn::RebindToUnsigned<D>> bins(D d, const double* x, std::size_t i, double* dB,
                                                 double* phase)
{
    hn::Vec<D> re, im;
    hn::LoadInterleaved2(d, x + 2 * i, re, im);
    // Not a fused multiply-add: the scalar redo below forms the same sum of two products.
    const auto power = hn::Add(hn::Mul(re, re), hn::Mul(im, im));
    hn::StoreU(hn::Mul(hn::Log(d, power), hn::Set(d, kTenOverLn10)), d, dB + i);
    if constexpr (kPhase)
        hn::StoreU(hn::Atan(d, hn::Div(im, re)), d, phase + i);
    return hn::BitCast(hn::RebindToUnsigned<D>(), power);
}

template <bool kPhase>
std::size_t binsPass(std::span<const std::complex<double>> X, std::span<double> dB, std::span<double> phase,
                     double tiny, std::span<std::uint16_t> nearZero)
{
    const Full d;
    const hn::RebindToUnsigned<Full> du;
    const hn::RebindToSigned<Full> di;
    const std::size_t lanes = hn::Lanes(d);
    const std::size_t n = X.size();
    const double* x = reinterpret_cast<const double*>(X.data());
    // Rare lanes are only noted, a block of vectors at a time, and the few blocks that
    // have them are gone over again bin by bin. Rare is a power outside
    // [max(4·tiny², DBL_MIN), DBL_MAX] or NaN: that takes in every power whose
    // logarithm needs the C library (zero, subnormal, infinite) and every bin near zero
    // (its power is at most 2·tiny²). In integer terms y = bits(power) − bits(low) is
    // rare when y or y + 2^63 − span reaches the sign bit, span being the number of
    // doubles in range.
    const double lowPower = 4.0 * tiny * tiny > DBL_MIN ? 4.0 * tiny * tiny : DBL_MIN;
    std::uint64_t lowBits, highBits;
    const double highPower = DBL_MAX;
    std::memcpy(&lowBits, &lowPower, sizeof lowBits);
    std::memcpy(&highBits, &highPower, sizeof highBits);
    const std::uint64_t shift = (std::uint64_t{1} << 63) - (highBits - lowBits + 1);
    const auto low = hn::Set(du, lowBits);
    const auto span = hn::Set(du, shift);
    const std::size_t block = 8 * lanes;
    std::size_t count = 0;
    const auto redo = [&](std::size_t from, std::size_t to) {
        for (std::size_t k = from; k < to; ++k) {
            const double power = std::norm(X[k]);
            if (!(power >= DBL_MIN && power <= DBL_MAX))
                dB[k] = 10.0 * std::log10(power);
            if (std::fabs(X[k].real()) <= tiny && std::fabs(X[k].imag()) <= tiny)
                nearZero[count++] = static_cast<std::uint16_t>(k);
        }
    };
    std::size_t i = 0;
    while (i + lanes <= n) {
        const std::size_t blockEnd = std::min(n - n % lanes, i + block);
        const std::size_t blockStart = i;
        auto rare = hn::Zero(du);
        for (; i < blockEnd; i += lanes) {
            const auto y = hn::Sub(bins<Full, kPhase>(d, x, i, dB.data(), phase.data()), low);
            rare = hn::Or(rare, hn::Or(y, hn::Add(y, span)));
        }
        if (!hn::AllFalse(di, hn::Lt(hn::BitCast(di, rare), hn::Zero(di))))
            redo(blockStart, blockEnd);
    }
    const std::size_t tail = i;
    for (; i < n; ++i)
        bins<One, kPhase>(One(), x, i, dB.data(), phase.data());
    redo(tail, n);
    return count;
}

std::size_t DecibelsAndPhase(std::span<const std::complex<double>> X, std::span<double> dB,
                             std::span<double> phase, double tiny, std::span<std::uint16_t> nearZero)
{
    return phase.empty() ? binsPass<false>(X, dB, phase, tiny, nearZero)
                         : binsPass<true>(X, dB, phase, tiny, nearZero);
}

void Range(std::span<const double> v, double& largest, double& smallest)
{
    const Full d;
    const std::size_t lanes = hn::Lanes(d);
    const std::size_t n = v.size();
    // Four running pairs, so the comparisons do not wait on each other. A NaN sample
    // loses every comparison and is passed over; a NaN v[0] wins them all.
    constexpr std::size_t kChains = 4;
    using V = hn::Vec<Full>;
    V hi[kChains], lo[kChains];
    for (std::size_t c = 0; c < kChains; ++c)
        hi[c] = lo[c] = hn::Set(d, v[0]);
    std::size_t i = 0;
    for (; i + kChains * lanes <= n; i += kChains * lanes)
        for (std::size_t c = 0; c < kChains; ++c) {
            const V u = hn::LoadU(d, v.data() + i + c * lanes);
            hi[c] = hn::IfThenElse(hn::Gt(u, hi[c]), u, hi[c]);
            lo[c] = hn::IfThenElse(hn::Lt(u, lo[c]), u, lo[c]);
        }
    for (std::size_t c = 1; c < kChains; ++c) {
        hi[0] = hn::IfThenElse(hn::Gt(hi[c], hi[0]), hi[c], hi[0]);
        lo[0] = hn::IfThenElse(hn::Lt(lo[c], lo[0]), lo[c], lo[0]);
    }
    double his[kMaxLanes], los[kMaxLanes];
    hn::StoreU(hi[0], d, his);
    hn::StoreU(lo[0], d, los);
    double big = v[0], small = v[0];
    for (std::size_t l = 0; l < lanes; ++l) {
        big = his[l] > big ? his[l] : big;
        small = los[l] < small ? los[l] : small;
    }
    for (; i < n; ++i) {
        big = v[i] > big ? v[i] : big;
        small = v[i] < small ? v[i] : small;
    }
    largest = big;
    smallest = small;
}

// Clamped first (a coefficient far below −cmax must not overflow), the value splits into
// its whole part and the exact fraction left over, which decides the rounding.
template <class D>
HWY_INLINE void quantiseAt(D d, const double* c, std::size_t i, double cmax, double fullScale,
                           std::int32_t* q)
{
    using V = hn::Vec<D>;
    V x = hn::Mul(hn::Div(hn::LoadU(d, c + i), hn::Set(d, cmax)), hn::Set(d, fullScale));
    x = hn::IfThenElseZero(hn::Eq(x, x), x);
    x = hn::Min(hn::Max(x, hn::Set(d, -2147483648.0)), hn::Set(d, 2147483647.0));
    const V whole = hn::Trunc(x);
    const V fraction = hn::Sub(x, whole);
    const V one = hn::Set(d, 1.0);
    const V up = hn::IfThenElseZero(hn::Ge(fraction, hn::Set(d, 0.5)), one);
    const V down = hn::IfThenElseZero(hn::Le(fraction, hn::Set(d, -0.5)), one);
    const hn::Rebind<std::int32_t, D> di32;
    hn::StoreU(hn::DemoteTo(di32, hn::Sub(hn::Add(whole, up), down)), di32, q + i);
}

void Quantise(std::span<const double> c, double cmax, double fullScale, std::span<std::int32_t> q)
{
    const Full d;
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + lanes <= c.size(); i += lanes)
        quantiseAt(d, c.data(), i, cmax, fullScale, q.data());
    for (; i < c.size(); ++i)
        quantiseAt(One(), c.data(), i, cmax, fullScale, q.data());
}

template <class D>
HWY_INLINE void rescaleAt(D d, const std::int32_t* q, std::size_t i, double qmax, double cmax, double* cp)
{
    const hn::Rebind<std::int32_t, D> di32;
    const auto v = hn::PromoteTo(d, hn::LoadU(di32, q + i));
    hn::StoreU(hn::Mul(hn::Div(v, hn::Set(d, qmax)), hn::Set(d, cmax)), d, cp + i);
}

void Rescale(std::span<const std::int32_t> q, double qmax, double cmax, std::span<double> cp)
{
    const Full d;
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + lanes <= q.size(); i += lanes)
        rescaleAt(d, q.data(), i, qmax, cmax, cp.data());
    for (; i < q.size(); ++i)
        rescaleAt(One(), q.data(), i, qmax, cmax, cp.data());
}

template <class D>
HWY_INLINE void turnsAt(D d, const std::int32_t* turns, const double* P, std::size_t j, double* U)
{
    const hn::Rebind<std::int32_t, D> di32;
    const auto t = hn::PromoteTo(d, hn::LoadU(di32, turns + j));
    hn::StoreU(hn::Add(hn::LoadU(d, P + j + 1), hn::Mul(t, hn::Set(d, 3.14159265358979323846))), d,
               U + j + 1);
}

void Unwrap(std::span<const double> P, std::span<const double> D, std::span<double> U)
{
    const Full d;
    const std::size_t lanes = hn::Lanes(d);
    const std::size_t n = U.size();
    // Rises of the magnitude between neighbouring points; falls and NaN count as 0.
    std::array<double, kMaxPoints + 4> R;
    R[0] = 0.0;
    for (std::size_t j = 0; j + 1 < n; ++j) {
        const double rise = D[j + 1] - D[j];
        R[j + 1] = rise >= 0.0 ? rise : 0.0;
    }
    R[n] = R[n + 1] = R[n + 2] = 0.0;
    // A notch at i (2 ≤ i < n − 3): the magnitude stops falling, then climbs by at
    // least 0.5 dB a point, slowing down. Away from a notch every upward step of
    // the wrapped phase is a wrap by π; across a notch a downward step is the
    // linear-phase jump of π. Steps are counted in whole turns of π.
    std::array<std::int32_t, kMaxPoints> step;
    for (std::size_t j = 0; j + 1 < n; ++j) {
        const std::int32_t up = P[j + 1] > P[j] ? 1 : 0;
        const std::int32_t down = P[j + 1] <= P[j] ? 1 : 0;
        const bool notch = (R[j] == 0.0) & (R[j + 1] > 0.0) & (R[j + 2] >= 0.5) & (R[j + 2] > R[j + 3]);
        step[j] = notch ? down : -up;
    }
    for (std::size_t j : {std::size_t{0}, std::size_t{1}, n - 3, n - 2})
        step[j] = P[j + 1] > P[j] ? -1 : 0; // no notch at the ends
    // The running sum carries from one point to the next; in integers each point
    // costs one cycle where a double addition would cost four.
    std::int32_t sum = 0;
    for (std::size_t j = 0; j + 1 < n; ++j) {
        sum += step[j];
        step[j] = sum;
    }
    // U[j + 1] = P[j + 1] + π·(step[0] + … + step[j]).
    U[0] = P[0];
    std::size_t j = 0;
    for (; j + lanes < n; j += lanes)
        turnsAt(d, step.data(), P.data(), j, U.data());
    for (; j + 1 < n; ++j)
        turnsAt(One(), step.data(), P.data(), j, U.data());
}

// I0(y) = Σ term_k, term k being term k−1 times (y/2)²/k², k = 0..10.
template <class D> HWY_INLINE hn::Vec<D> besselI0(D d, hn::Vec<D> y)
{
    static constexpr std::array<double, 11> kInverseSquares = [] {
        std::array<double, 11> r{};
        for (int k = 1; k <= 10; ++k)
            r[k] = 1.0 / static_cast<double>(k * k);
        return r;
    }();
    const auto half = hn::Mul(y, hn::Set(d, 0.5));
    const auto q = hn::Mul(half, half);
    auto term = hn::Set(d, 1.0);
    auto sum = term;
    for (int k = 1; k <= 10; ++k) {
        term = hn::Mul(term, hn::Mul(q, hn::Set(d, kInverseSquares[k])));
        sum = hn::Add(sum, term);
    }
    return sum;
}

void BesselSeries(std::span<const double> y, std::span<double> out)
{
    const Full d;
    const std::size_t lanes = hn::Lanes(d);
    std::size_t i = 0;
    for (; i + lanes <= y.size(); i += lanes)
        hn::StoreU(besselI0(d, hn::LoadU(d, y.data() + i)), d, out.data() + i);
    const One d1;
    for (; i < y.size(); ++i)
        hn::StoreU(besselI0(d1, hn::LoadU(d1, y.data() + i)), d1, out.data() + i);
}

template <class D>
HWY_INLINE void kaiserAt(D d, double beta, double denominator, const double* x, std::size_t i, double* w)
{
    const auto one = hn::Set(d, 1.0);
    const auto t = hn::Sub(hn::Mul(hn::Set(d, 2.0), hn::LoadU(d, x + i)), one);
    // The ramp's last point may land a rounding step past 1.
    const auto root = hn::Sqrt(hn::Max(hn::Zero(d), hn::Sub(one, hn::Mul(t, t))));
    hn::StoreU(hn::Div(besselI0(d, hn::Mul(root, hn::Set(d, beta))), hn::Set(d, denominator)), d, w + i);
}

void KaiserWindow(double beta, std::span<const double> x, std::span<double> w)
{
    const Full d;
    const One d1;
    const std::size_t lanes = hn::Lanes(d);
    const double denominator = hn::GetLane(besselI0(d1, hn::Set(d1, beta)));
    std::size_t i = 0;
    for (; i + lanes <= x.size(); i += lanes)
        kaiserAt(d, beta, denominator, x.data(), i, w.data());
    for (; i < x.size(); ++i)
        kaiserAt(d1, beta, denominator, x.data(), i, w.data());
}

} // namespace HWY_NAMESPACE
} // namespace vector_kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace vector_kernels {

HWY_EXPORT(DecibelsAndPhase);
HWY_EXPORT(Range);
HWY_EXPORT(Quantise);
HWY_EXPORT(Rescale);
HWY_EXPORT(Unwrap);
HWY_EXPORT(BesselSeries);
HWY_EXPORT(KaiserWindow);

std::size_t decibelsAndPhase(std::span<const std::complex<double>> X, std::span<double> dB,
                             std::span<double> phase, double tiny, std::span<std::uint16_t> nearZero)
{
    return HWY_DYNAMIC_DISPATCH(DecibelsAndPhase)(X, dB, phase, tiny, nearZero);
}

void range(std::span<const double> v, double& largest, double& smallest)
{
    HWY_DYNAMIC_DISPATCH(Range)(v, largest, smallest);
}

void quantise(std::span<const double> c, double cmax, double fullScale, std::span<std::int32_t> q)
{
    HWY_DYNAMIC_DISPATCH(Quantise)(c, cmax, fullScale, q);
}

void rescale(std::span<const std::int32_t> q, double qmax, double cmax, std::span<double> cp)
{
    HWY_DYNAMIC_DISPATCH(Rescale)(q, qmax, cmax, cp);
}

void unwrap(std::span<const double> P, std::span<const double> D, std::span<double> U)
{
    HWY_DYNAMIC_DISPATCH(Unwrap)(P, D, U);
}

void besselSeries(std::span<const double> y, std::span<double> out)
{
    HWY_DYNAMIC_DISPATCH(BesselSeries)(y, out);
}

void kaiserWindow(double beta, std::span<const double> x, std::span<double> w)
{
    HWY_DYNAMIC_DISPATCH(KaiserWindow)(beta, x, w);
}

} // namespace vector_kernels
#endif
