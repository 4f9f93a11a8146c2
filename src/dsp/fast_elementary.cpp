// Vectorised log and atan. The logarithm splits off the binary exponent and
// sums the atanh series of the mantissa; the arctangent is Cephes' reduction
// to |t| ≤ 0.66 with its rational approximation, the reduction folded into a
// single division. Both run four lanes at a time on GCC/Clang vector types
// (plain SSE2 underneath unless the build targets more), with masks in place
// of branches.
#include "dsp/fast_elementary.h"

#include <algorithm>
#include <complex>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>

// The helpers pass 32-byte vectors between always-inlined functions only.
#pragma GCC diagnostic ignored "-Wpsabi"

// The two entry points are built twice, for AVX2/FMA and for plain x86-64, and
// the loader picks one for the machine.
#if defined(__x86_64__) && defined(__GNUC__) && defined(__ELF__)
#define ORVANA_VECTOR_CLONES __attribute__((target_clones("arch=x86-64-v3", "default")))
#else
#define ORVANA_VECTOR_CLONES
#endif

namespace {

typedef double V __attribute__((vector_size(32)));
typedef std::int64_t VI __attribute__((vector_size(32)));
typedef std::uint64_t VU __attribute__((vector_size(32)));
constexpr std::size_t kLanes = 4;

[[gnu::always_inline]] inline V splat(double v)
{
    return V{v, v, v, v};
}

[[gnu::always_inline]] inline V load(const double* p)
{
    V v;
    std::memcpy(&v, p, sizeof v);
    return v;
}

[[gnu::always_inline]] inline void store(double* p, const V& v)
{
    std::memcpy(p, &v, sizeof v);
}

// mask ? a : b, with mask lanes all ones or all zeros.
[[gnu::always_inline]] inline V select(const VI& mask, const V& a, const V& b)
{
    return (V)(((VI)a & mask) | ((VI)b & ~mask));
}

constexpr double kLn2Hi = 6.93147180369123816490e-01; // ln 2, high bits (exact times any exponent)
constexpr double kLn2Lo = 1.90821492927058770002e-10; // ln 2 − kLn2Hi
constexpr double kTenOverLn10 = 4.3429448190325182765;
constexpr double kSqrt2 = 1.41421356237309504880;

// 10·log10 of positive normal doubles.
[[gnu::always_inline]] inline V decibels(const V& p)
{
    const VU bits = (VU)p;
    // Exponent as a double without an integer conversion: (2^52 + e) − 2^52.
    const V biased = (V)((bits >> 52) | 0x4330000000000000ULL) - splat(4503599627370496.0);
    V m = (V)((bits & 0x000FFFFFFFFFFFFFULL) | 0x3FF0000000000000ULL);
    V e = biased - splat(1023.0);
    const VI high = m > splat(kSqrt2);
    m = select(high, m * 0.5, m);
    e = select(high, e + 1.0, e);
    // ln m = 2·atanh(s), s = (m − 1)/(m + 1), |s| ≤ 0.1716: eleven terms reach 1e-17.
    const V f = m - 1.0;
    const V s = f / (2.0 + f);
    const V z = s * s;
    V poly = splat(1.0 / 21.0);
    poly = poly * z + 1.0 / 19.0;
    poly = poly * z + 1.0 / 17.0;
    poly = poly * z + 1.0 / 15.0;
    poly = poly * z + 1.0 / 13.0;
    poly = poly * z + 1.0 / 11.0;
    poly = poly * z + 1.0 / 9.0;
    poly = poly * z + 1.0 / 7.0;
    poly = poly * z + 1.0 / 5.0;
    poly = poly * z + 1.0 / 3.0;
    const V lnm = 2.0 * s + 2.0 * s * z * poly;
    return kTenOverLn10 * (e * kLn2Hi + (lnm + e * kLn2Lo));
}

constexpr double kTan3PiOver8 = 2.41421356237309504880;
constexpr double kPiOver2 = 1.57079632679489661923;
constexpr double kPiOver4 = 0.78539816339744830962;
constexpr double kMoreBits = 6.123233995736765886130e-17; // π/2 − kPiOver2

[[gnu::always_inline]] inline V arctangent(const V& y, const V& x)
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
        (((-8.750608600031904122785e-1 * z - 1.615753718733365076637e1) * z - 7.500855792314704667340e1) * z -
         1.228866684490136173410e2) *
            z -
        6.485021904942025371773e1;
    const V qz =
        ((((z + 2.485846490142306297962e1) * z + 1.650270098316988542046e2) * z + 4.328810604912902668951e2) *
             z +
         4.853903996359136964868e2) *
            z +
        1.945506571482613964425e2;
    const V a = base + ((t * (z * pz / qz) + t) + extra);
    // The sign of y/x: flipped when exactly one of them is negative.
    return (V)((VI)a ^ (((VI)y ^ (VI)x) & signMask));
}

} // namespace

ORVANA_VECTOR_CLONES
void decibelsOfPower(std::span<const double> power, std::span<double> dB)
{
    const std::size_t n = std::min(power.size(), dB.size());
    const double* p = power.data();
    double* out = dB.data();
    // Lanes outside the normal range (zero, subnormal, infinite, NaN) are noted and
    // left to the library's log10 afterwards.
    VI outside = {0, 0, 0, 0};
    std::size_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        const V v = load(p + i);
        outside |= ~((v >= splat(DBL_MIN)) & (v <= splat(DBL_MAX)));
        store(out + i, decibels(v));
    }
    bool anyOutside = (outside[0] | outside[1] | outside[2] | outside[3]) != 0;
    for (; i < n; ++i) {
        double tail[kLanes] = {p[i], 1.0, 1.0, 1.0};
        store(tail, decibels(load(tail)));
        out[i] = tail[0];
        anyOutside = anyOutside || !(p[i] >= DBL_MIN && p[i] <= DBL_MAX);
    }
    if (!anyOutside)
        return;
    for (i = 0; i < n; ++i)
        if (!(p[i] >= DBL_MIN && p[i] <= DBL_MAX))
            out[i] = 10.0 * std::log10(p[i]);
}

ORVANA_VECTOR_CLONES
void arctangentOfRatio(std::span<const double> im, std::span<const double> re, std::span<double> out)
{
    const std::size_t n = std::min({im.size(), re.size(), out.size()});
    std::size_t i = 0;
    for (; i + kLanes <= n; i += kLanes)
        store(out.data() + i, arctangent(load(im.data() + i), load(re.data() + i)));
    for (; i < n; ++i) {
        double y[kLanes] = {im[i], 0.0, 0.0, 0.0};
        const double x[kLanes] = {re[i], 1.0, 1.0, 1.0};
        store(y, arctangent(load(y), load(x)));
        out[i] = y[0];
    }
}

ORVANA_VECTOR_CLONES
std::size_t splitBins(std::span<const std::complex<double>> X, std::span<double> re, std::span<double> im,
                      std::span<double> power, double tiny, std::span<std::uint16_t> nearZero)
{
    const std::size_t n = std::min({X.size(), re.size(), im.size(), power.size(), nearZero.size()});
    const double* x = reinterpret_cast<const double*>(X.data());
    const VI signMask = (VI)splat(-0.0);
    std::size_t count = 0;
    std::size_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        const V a = load(x + 2 * i);
        const V b = load(x + 2 * i + kLanes);
        const V r = __builtin_shuffle(a, b, VI{0, 2, 4, 6});
        const V m = __builtin_shuffle(a, b, VI{1, 3, 5, 7});
        store(re.data() + i, r);
        store(im.data() + i, m);
        store(power.data() + i, r * r + m * m);
        const VI near = ((V)((VI)r & ~signMask) <= tiny) & ((V)((VI)m & ~signMask) <= tiny);
        // Rare, so the branch costs nothing.
        if ((near[0] | near[1] | near[2] | near[3]) != 0)
            for (std::size_t l = 0; l < kLanes; ++l)
                if (near[l])
                    nearZero[count++] = static_cast<std::uint16_t>(i + l);
    }
    for (; i < n; ++i) {
        const double r = x[2 * i];
        const double m = x[2 * i + 1];
        re[i] = r;
        im[i] = m;
        power[i] = r * r + m * m;
        if (std::fabs(r) <= tiny && std::fabs(m) <= tiny)
            nearZero[count++] = static_cast<std::uint16_t>(i);
    }
    return count;
}

ORVANA_VECTOR_CLONES
void rangeOf(std::span<const double> v, double& largest, double& smallest)
{
    const std::size_t n = v.size();
    if (n == 0)
        return;
    V hi = splat(v[0]);
    V lo = hi;
    std::size_t i = 0;
    for (; i + kLanes <= n; i += kLanes) {
        const V u = load(v.data() + i);
        hi = select(u > hi, u, hi);
        lo = select(u < lo, u, lo);
    }
    double big = v[0], small = v[0];
    for (std::size_t l = 0; l < kLanes; ++l) {
        big = hi[l] > big ? hi[l] : big;
        small = lo[l] < small ? lo[l] : small;
    }
    for (; i < n; ++i) {
        big = v[i] > big ? v[i] : big;
        small = v[i] < small ? v[i] : small;
    }
    largest = big;
    smallest = small;
}
