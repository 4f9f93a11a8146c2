// Fixed-width vectors of doubles for the kernels run through vector_dispatch:
// GCC/Clang vector types with the few lane operations the kernels share.
// Only for always-inlined helpers inside a dispatched kernel.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// Vectors pass only between always-inlined functions (files that include this).
#pragma GCC diagnostic ignored "-Wpsabi"

namespace vector_dispatch {

// Vectors of Bytes / 8 doubles, and the same lanes as signed and unsigned integers
// (spelled out per width: GCC drops a vector_size that depends on a template).
template <std::size_t Bytes> struct VectorTypes;

template <> struct VectorTypes<16> {
    typedef double V __attribute__((vector_size(16)));
    typedef std::int64_t VI __attribute__((vector_size(16)));
    typedef std::uint64_t VU __attribute__((vector_size(16)));
};

template <> struct VectorTypes<32> {
    typedef double V __attribute__((vector_size(32)));
    typedef std::int64_t VI __attribute__((vector_size(32)));
    typedef std::uint64_t VU __attribute__((vector_size(32)));
};

template <> struct VectorTypes<64> {
    typedef double V __attribute__((vector_size(64)));
    typedef std::int64_t VI __attribute__((vector_size(64)));
    typedef std::uint64_t VU __attribute__((vector_size(64)));
};

template <std::size_t Bytes> struct Lanes {
    using V = typename VectorTypes<Bytes>::V;
    using VI = typename VectorTypes<Bytes>::VI;
    using VU = typename VectorTypes<Bytes>::VU;
    static constexpr std::size_t count = Bytes / sizeof(double);

    // (Not V{} + v: that turns −0.0 into +0.0.)
    [[gnu::always_inline]] static V splat(double v)
    {
        V r;
        for (std::size_t l = 0; l < count; ++l)
            r[l] = v;
        return r;
    }

    [[gnu::always_inline]] static V load(const double* p)
    {
        V v;
        std::memcpy(&v, p, sizeof v);
        return v;
    }

    [[gnu::always_inline]] static void store(double* p, const V& v) { std::memcpy(p, &v, sizeof v); }

    // mask ? a : b, with mask lanes all ones or all zeros.
    [[gnu::always_inline]] static V select(const VI& mask, const V& a, const V& b)
    {
        return (V)(((VI)a & mask) | ((VI)b & ~mask));
    }

    // Whether any lane has its sign bit set.
    [[gnu::always_inline]] static bool anySign(const VU& v)
    {
        std::uint64_t any = 0;
        for (std::size_t l = 0; l < count; ++l)
            any |= v[l];
        return (any >> 63) != 0;
    }

    // r[l] = lane from[l] of a:b (0..count−1 from a, count..2·count−1 from b); from is constant
    // where it is used, so GCC emits one shuffle. Clang's builtin wants literal indices instead,
    // and makes the same shuffle of the lane-by-lane form.
    [[gnu::always_inline]] static V shuffle(const V& a, const V& b, const VI& from)
    {
#if defined(__clang__)
        V r;
        for (std::size_t l = 0; l < count; ++l) {
            const auto i = static_cast<std::size_t>(from[l]);
            r[l] = i < count ? a[i] : b[i - count];
        }
        return r;
#else
        return __builtin_shuffle(a, b, from);
#endif
    }

    // Inclusive running sum across the lanes: r[l] = v[0] + … + v[l].
    [[gnu::always_inline]] static V runningSum(V v)
    {
        for (std::size_t shift = 1; shift < count; shift *= 2) {
            VI from;
            for (std::size_t l = 0; l < count; ++l)
                from[l] = static_cast<std::int64_t>(l >= shift ? l - shift : count); // count: a zero lane
            v += shuffle(v, V{}, from);
        }
        return v;
    }

    // Every lane set to the last lane of v.
    [[gnu::always_inline]] static V lastLane(const V& v)
    {
        VI from;
        for (std::size_t l = 0; l < count; ++l)
            from[l] = static_cast<std::int64_t>(count - 1);
        return shuffle(v, v, from);
    }
};

} // namespace vector_dispatch
