// Vectorised log and atan. The logarithm splits off the binary exponent and
// sums fdlibm's series for the mantissa; the arctangent is Cephes' reduction
// to |t| ≤ 0.66 with its rational approximation, the reduction folded into a
// single division. Both are written once on GCC/Clang vector types of any
// width and run at the widest the processor has, with masks in place of
// branches. Lane tests use integer arithmetic where they can: the compilers
// split a wide vector comparison feeding another one into scalar code.
#include "dsp/fast_elementary.h"

#include "dsp/vector_dispatch.h"
#include "dsp/vector_lanes.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstring>

namespace {

constexpr double kLn2Hi = 6.93147180369123816490e-01; // ln 2, high bits (exact times any exponent)
constexpr double kLn2Lo = 1.90821492927058770002e-10; // ln 2 − kLn2Hi
constexpr double kTenOverLn10 = 4.3429448190325182765;
constexpr std::uint64_t kSqrtHalfBits = 0x3FE6A09E667F3BCDULL; // √½
constexpr double kLg1 = 6.666666666666735130e-01;              // fdlibm's log polynomial
constexpr double kLg2 = 3.999999999940941908e-01;
constexpr double kLg3 = 2.857142874366239149e-01;
constexpr double kLg4 = 2.222219843214978396e-01;
constexpr double kLg5 = 1.818357216161805012e-01;
constexpr double kLg6 = 1.531383769920937332e-01;
constexpr double kLg7 = 1.479819860511658591e-01;
constexpr double kTan3PiOver8 = 2.41421356237309504880;
constexpr double kPiOver2 = 1.57079632679489661923;
constexpr double kPiOver4 = 0.78539816339744830962;
constexpr double kMoreBits = 6.123233995736765886130e-17; // π/2 − kPiOver2

// The two functions, on vectors of Bytes.
template <std::size_t Bytes> struct Elementary : vector_dispatch::Lanes<Bytes> {
    using Base = vector_dispatch::Lanes<Bytes>;
    using Base::select;
    using Base::splat;
    using typename Base::V;
    using typename Base::VI;
    using typename Base::VU;

    // 10·log10 of positive normal doubles.
    [[gnu::always_inline]] static V decibels(const V& p)
    {
        // p = 2^e·m with m in [√½, √2): subtracting the bits of √½ leaves e + 1024 in the
        // exponent field (the bias keeps it positive for every normal p). The exponent
        // becomes a double without an integer conversion: (1.5·2^52 + e) − 1.5·2^52.
        const VU bits = (VU)p;
        const VU shifted = bits - kSqrtHalfBits + (1024ULL << 52);
        const VU biasedE = shifted >> 52;
        const V m = (V)(bits - (shifted & 0xFFF0000000000000ULL) + (1024ULL << 52));
        const V e = (V)(biasedE + 0x4338000000000000ULL) - splat(6755399441055744.0 + 1024.0);
        // ln m = ln(1 + f) = f − f²/2 + s·(f²/2 + R(s²)), s = f/(2 + f), |s| ≤ 0.1716, with
        // fdlibm's minimax R in even and odd halves (shorter chains than one Horner sum).
        const V f = m - 1.0;
        const V s = f / (2.0 + f);
        const V z = s * s;
        const V w = z * z;
        const V odd = w * (kLg2 + w * (kLg4 + w * kLg6));
        const V even = z * (kLg1 + w * (kLg3 + w * (kLg5 + w * kLg7)));
        const V halfSquare = 0.5 * f * f;
        const V lnm = f - (halfSquare - s * (halfSquare + (even + odd)));
        return kTenOverLn10 * (e * kLn2Hi + (lnm + e * kLn2Lo));
    }

    [[gnu::always_inline]] static V arctangent(const V& y, const V& x)
    {
        const VI signMask = (VI)splat(-0.0);
        const V ay = (V)((VI)y & ~signMask);
        const V ax = (V)((VI)x & ~signMask);
        // |t| = ay/ax > tan(3π/8): atan|t| = π/2 + atan(−ax/ay);
        // |t| > 0.66: π/4 + atan((ay − ax)/(ay + ax)); otherwise atan(ay/ax).
        const VI big = ay > kTan3PiOver8 * ax;
        const VI mid = ay > 0.66 * ax;
        const V num = select(big, -ax, select(mid, ay - ax, ay));
        const V den = select(big, ay, select(mid, ay + ax, ax));
        const V base = select(big, splat(kPiOver2), select(mid, splat(kPiOver4), splat(0.0)));
        const V extra = select(big, splat(kMoreBits), select(mid, splat(0.5 * kMoreBits), splat(0.0)));
        const V t = num / den;
        const V z = t * t;
        const V pz =
            (((-8.750608600031904122785e-1 * z - 1.615753718733365076637e1) * z - 7.500855792314704667340e1) *
                 z -
             1.228866684490136173410e2) *
                z -
            6.485021904942025371773e1;
        const V qz = ((((z + 2.485846490142306297962e1) * z + 1.650270098316988542046e2) * z +
                       4.328810604912902668951e2) *
                          z +
                      4.853903996359136964868e2) *
                         z +
                     1.945506571482613964425e2;
        const V a = base + ((t * (z * pz / qz) + t) + extra);
        // The sign of y/x: flipped when exactly one of them is negative.
        return (V)((VI)a ^ (((VI)y ^ (VI)x) & signMask));
    }
};

// The kernels, each for vectors of Bytes.

// One pass from the complex bins to dB and phase, nothing stored in between.
struct Bins {
    template <std::size_t Bytes, bool WithPhase>
    [[gnu::always_inline]] static std::size_t pass(std::span<const std::complex<double>> X,
                                                   std::span<double> dB, std::span<double> phase, double tiny,
                                                   std::span<std::uint16_t> nearZero)
    {
        using L = Elementary<Bytes>;
        using V = typename L::V;
        using VU = typename L::VU;
        const std::size_t n = X.size();
        const double* x = reinterpret_cast<const double*>(X.data());
        typename L::VI evens;
        for (std::size_t l = 0; l < L::count; ++l)
            evens[l] = static_cast<std::int64_t>(2 * l);
        // Rare lanes are only noted, a block of vectors at a time, and the few blocks
        // that have them are gone over again bin by bin. Rare is a power outside
        // [max(4·tiny², DBL_MIN), DBL_MAX] or NaN: that takes in every power the
        // vector logarithm cannot do and every bin near zero (its power is at most
        // 2·tiny²). In integer terms y = bits(power) − bits(low) is rare when y or
        // y + 2^63 − span reaches the sign bit, span being the number of doubles in range.
        const double lowPower = 4.0 * tiny * tiny > DBL_MIN ? 4.0 * tiny * tiny : DBL_MIN;
        std::uint64_t lowBits, highBits;
        const double highPower = DBL_MAX;
        std::memcpy(&lowBits, &lowPower, sizeof lowBits);
        std::memcpy(&highBits, &highPower, sizeof highBits);
        const std::uint64_t shift = (std::uint64_t{1} << 63) - (highBits - lowBits + 1);
        constexpr std::size_t kBlock = 8 * L::count;
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
        while (i + L::count <= n) {
            const std::size_t blockEnd = std::min(n - n % L::count, i + kBlock);
            const std::size_t blockStart = i;
            VU rare = {};
            for (; i < blockEnd; i += L::count) {
                const V a = L::load(x + 2 * i);
                const V b = L::load(x + 2 * i + L::count);
                const V r = L::shuffle(a, b, evens);
                const V m = L::shuffle(a, b, evens + 1);
                const V power = r * r + m * m;
                const VU y = (VU)power - lowBits;
                rare |= y | (y + shift);
                L::store(dB.data() + i, L::decibels(power));
                if constexpr (WithPhase)
                    L::store(phase.data() + i, L::arctangent(m, r));
            }
            if (L::anySign(rare))
                redo(blockStart, blockEnd);
        }
        // The last few bins go through the same arithmetic, one lane used.
        const std::size_t tail = i;
        for (; i < n; ++i) {
            const V r = L::splat(x[2 * i]);
            const V m = L::splat(x[2 * i + 1]);
            dB[i] = L::decibels(r * r + m * m)[0];
            if constexpr (WithPhase)
                phase[i] = L::arctangent(m, r)[0];
        }
        redo(tail, n);
        return count;
    }

    template <std::size_t Bytes>
    [[gnu::always_inline]] static std::size_t run(std::span<const std::complex<double>> X,
                                                  std::span<double> dB, std::span<double> phase, double tiny,
                                                  std::span<std::uint16_t> nearZero)
    {
        return phase.empty() ? pass<Bytes, false>(X, dB, phase, tiny, nearZero)
                             : pass<Bytes, true>(X, dB, phase, tiny, nearZero);
    }
};

struct Range {
    template <std::size_t Bytes>
    [[gnu::always_inline]] static void run(std::span<const double> v, double& largest, double& smallest)
    {
        using L = vector_dispatch::Lanes<Bytes>;
        const std::size_t n = v.size();
        if (n == 0)
            return;
        // Four running pairs, so the comparisons do not wait on each other.
        constexpr std::size_t kChains = 4;
        typename L::V hi[kChains], lo[kChains];
        for (std::size_t c = 0; c < kChains; ++c)
            hi[c] = lo[c] = L::splat(v[0]);
        std::size_t i = 0;
        for (; i + kChains * L::count <= n; i += kChains * L::count)
            for (std::size_t c = 0; c < kChains; ++c) {
                const typename L::V u = L::load(v.data() + i + c * L::count);
                hi[c] = L::select(u > hi[c], u, hi[c]);
                lo[c] = L::select(u < lo[c], u, lo[c]);
            }
        for (std::size_t c = 1; c < kChains; ++c) {
            hi[0] = L::select(hi[c] > hi[0], hi[c], hi[0]);
            lo[0] = L::select(lo[c] < lo[0], lo[c], lo[0]);
        }
        double big = v[0], small = v[0];
        for (std::size_t l = 0; l < L::count; ++l) {
            big = hi[0][l] > big ? hi[0][l] : big;
            small = lo[0][l] < small ? lo[0][l] : small;
        }
        for (; i < n; ++i) {
            big = v[i] > big ? v[i] : big;
            small = v[i] < small ? v[i] : small;
        }
        largest = big;
        smallest = small;
    }
};

} // namespace

std::size_t decibelsAndPhaseOfBins(std::span<const std::complex<double>> X, std::span<double> dB,
                                   std::span<double> phase, double tiny, std::span<std::uint16_t> nearZero)
{
    const std::size_t n = X.size();
    if (dB.size() != n || (!phase.empty() && phase.size() != n) || nearZero.size() < n)
        return 0;
    return vector_dispatch::run<Bins>(X, dB, phase, tiny, nearZero);
}

void rangeOf(std::span<const double> v, double& largest, double& smallest)
{
    vector_dispatch::run<Range>(v, largest, smallest);
}
