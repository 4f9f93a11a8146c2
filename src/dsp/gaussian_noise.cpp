// Box–Muller noise. The logarithm and the cosine are evaluated from small
// tables plus short polynomials rather than libm: the draws are 31-bit
// integers, which makes both reductions exact, and it keeps a 16384-sample
// record well inside the designer's time budget. Accuracy is a few ulp.
#include "dsp/gaussian_noise.h"

#include "dsp/contract.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <random>
#include <vector>

#include <unistd.h>

namespace {

// ln 2 split so that ln2Hi times any exponent below 2^21 is exact.
constexpr double kLn2Hi = 6.93147180369123816490e-01;
constexpr double kLn2Lo = 1.90821492927058770002e-10;
constexpr long double kTwoPiL = 6.283185307179586476925286766559005768L;

// ln over mantissas m in [0.75, 1.5): 192 cells of width 1/256, each with a
// reciprocal r of at most 21 significant bits (so m·r is exact for the 31-bit
// mantissas of our draws) and −ln r. The two cells around 1 use r = 1 so
// that values of m near 1 keep full relative accuracy.
struct LogTable {
    std::array<double, 192> recip{};
    std::array<double, 192> minusLnRecip{};
    LogTable()
    {
        for (int i = 0; i < 192; ++i) {
            const double centre = 0.75 + (i + 0.5) / 256.0;
            double r = std::nearbyint(1048576.0 / centre) / 1048576.0;
            if (i == 63 || i == 64)
                r = 1.0;
            recip[static_cast<std::size_t>(i)] = r;
            minusLnRecip[static_cast<std::size_t>(i)] =
                static_cast<double>(-std::log(static_cast<long double>(r)));
        }
    }
};

// cos and sin of 2π j / 1024.
struct TurnTable {
    std::array<double, 1024> c{};
    std::array<double, 1024> s{};
    TurnTable()
    {
        for (int j = 0; j < 1024; ++j) {
            const long double a = kTwoPiL * j / 1024.0L;
            c[static_cast<std::size_t>(j)] = static_cast<double>(std::cos(a));
            s[static_cast<std::size_t>(j)] = static_cast<double>(std::sin(a));
        }
    }
};

const LogTable& logTable()
{
    static const LogTable table;
    return table;
}

const TurnTable& turnTable()
{
    static const TurnTable table;
    return table;
}

// The table halves of −ln(q · 2^-31) for a whole q in 1 .. 2^31, that is
// ln(1 / (1 − U₁)) = big + (small − log1p(x)); the polynomial is left to a
// separate loop that vectorises.
struct LogParts {
    double big;
    double small;
    double x;
};

LogParts logPartsOfDraw(std::uint32_t q, const LogTable& t)
{
    // q = 2^e · m with m in [0.75, 1.5), taken apart without branches: the
    // top mantissa bit says whether m is moved below 1.
    const std::uint64_t bits = std::bit_cast<std::uint64_t>(static_cast<double>(q));
    const std::uint64_t mantissa = bits & 0x000FFFFFFFFFFFFFull;
    const std::uint64_t high = mantissa >> 51;
    const auto e = static_cast<std::int64_t>(bits >> 52) - 1023 + static_cast<std::int64_t>(high);
    const double m = std::bit_cast<double>(mantissa | ((1023 - high) << 52));
    const auto i = static_cast<std::size_t>(static_cast<std::int64_t>((m - 0.75) * 256.0));
    const double k = static_cast<double>(31 - e);
    // m · recip is exact (see LogTable), and so is the subtraction of 1.
    return {k * kLn2Hi, k * kLn2Lo - t.minusLnRecip[i], m * t.recip[i] - 1.0};
}

double log1pSmall(double x)
{
    return x *
           (1.0 + x * (-0.5 +
                       x * (1.0 / 3 + x * (-0.25 + x * (0.2 + x * (-1.0 / 6 + x * (1.0 / 7 - x * 0.125)))))));
}

// cos(2π r · 2^-31) for r < 2^31 is c + (c·(cos a − 1) − s·sin a) with a table
// turn (c, s) and a small exact remainder a < 2π/1024.
struct TurnParts {
    double c;
    double s;
    double a;
};

TurnParts turnPartsOfDraw(std::uint32_t r, const TurnTable& t)
{
    const std::size_t j = r >> 21;
    return {t.c[j], t.s[j], 6.283185307179586476925 * static_cast<double>(r & 0x1FFFFFu) * 0x1p-31};
}

double cosOfParts(double c, double s, double a)
{
    const double a2 = a * a;
    const double cosMinusOne = a2 * (-0.5 + a2 * (1.0 / 24 - a2 * (1.0 / 720)));
    const double sinA = a * (1.0 + a2 * (-1.0 / 6 + a2 * (1.0 / 120 - a2 * (1.0 / 5040))));
    return c + (c * cosMinusOne - s * sinA);
}

// xoshiro256**: fast, 2^256 − 1 period, well-mixed top bits.
class Xoshiro {
public:
    explicit Xoshiro(const std::array<std::uint64_t, 4>& seed) : s_(seed)
    {
        if ((s_[0] | s_[1] | s_[2] | s_[3]) == 0)
            s_[0] = 0x9E3779B97F4A7C15ull;
    }
    std::uint64_t next()
    {
        const std::uint64_t result = std::rotl(s_[1] * 5, 7) * 9;
        const std::uint64_t t = s_[1] << 17;
        s_[2] ^= s_[0];
        s_[3] ^= s_[1];
        s_[1] ^= s_[2];
        s_[0] ^= s_[3];
        s_[2] ^= t;
        s_[3] = std::rotl(s_[3], 45);
        return result;
    }

private:
    std::array<std::uint64_t, 4> s_;
};

std::uint64_t splitmix(std::uint64_t& x)
{
    std::uint64_t z = (x += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

std::array<std::uint64_t, 4> entropySeed()
{
    std::array<std::uint64_t, 4> seed{};
    // One system call for the whole seed; std::random_device costs a call
    // (or a slow hardware instruction) per 32 bits.
    if (getentropy(seed.data(), sizeof seed) == 0)
        return seed;
    try {
        std::random_device device;
        for (auto& word : seed)
            word = (static_cast<std::uint64_t>(device()) << 32) ^ device();
    } catch (...) {
        // No entropy source: fall back to the clock and a call counter,
        // still different on every call.
        static std::uint64_t counter = 0;
        std::uint64_t x =
            static_cast<std::uint64_t>(std::chrono::high_resolution_clock::now().time_since_epoch().count()) ^
            (++counter << 40);
        for (auto& word : seed)
            word = splitmix(x);
    }
    return seed;
}

} // namespace

void uniformDraws(std::span<std::uint32_t> out)
{
    Xoshiro gen(entropySeed());
    for (auto& r : out)
        r = static_cast<std::uint32_t>(gen.next() >> 33);
}

void boxMullerSig(std::span<const std::uint32_t> r1, std::span<const std::uint32_t> r2, double sigma,
                  double mu, std::span<double> out)
{
    const LogTable& lt = logTable();
    const TurnTable& tt = turnTable();
    const std::size_t n = out.size();
    if (!DSP_EXPECTS(r1.size() == n && r2.size() == n))
        return;
    // Table look-ups first, then the polynomials over whole blocks: the
    // second loops have no look-ups and no dependencies between samples.
    constexpr std::size_t kChunk = 256;
    std::array<double, kChunk> big, small, x, c, s, a;
    for (std::size_t k0 = 0; k0 < n; k0 += kChunk) {
        const std::size_t len = std::min(kChunk, n - k0);
        for (std::size_t k = 0; k < len; ++k) {
            const LogParts lp = logPartsOfDraw(0x80000000u - (r1[k0 + k] & 0x7FFFFFFFu), lt);
            big[k] = lp.big;
            small[k] = lp.small;
            x[k] = lp.x;
            const TurnParts tp = turnPartsOfDraw(r2[k0 + k] & 0x7FFFFFFFu, tt);
            c[k] = tp.c;
            s[k] = tp.s;
            a[k] = tp.a;
        }
        double* dst = out.data() + k0;
        for (std::size_t k = 0; k < len; ++k)
            dst[k] = 2.0 * (big[k] + (small[k] - log1pSmall(x[k])));
        for (std::size_t k = 0; k < len; ++k)
            dst[k] = sigma * std::sqrt(dst[k]);
        for (std::size_t k = 0; k < len; ++k)
            dst[k] = dst[k] * cosOfParts(c[k], s[k], a[k]) + mu;
    }
}

namespace {

// Noise drawn and transformed a block at a time, so no record-sized work
// buffers are needed; two independently seeded generators, one per draw.
// out[k] = in[k] + noise[k], or noise[k] alone when in is empty.
void noiseInto(std::span<const double> in, double sigma, double mu, std::span<double> out)
{
    Xoshiro first(entropySeed());
    Xoshiro second(entropySeed());
    constexpr std::size_t kChunk = 512;
    std::array<std::uint32_t, kChunk> r1;
    std::array<std::uint32_t, kChunk> r2;
    std::array<double, kChunk> noise;
    for (std::size_t k0 = 0; k0 < out.size(); k0 += kChunk) {
        const std::size_t len = std::min(kChunk, out.size() - k0);
        for (std::size_t k = 0; k < len; ++k)
            r1[k] = static_cast<std::uint32_t>(first.next() >> 33);
        for (std::size_t k = 0; k < len; ++k)
            r2[k] = static_cast<std::uint32_t>(second.next() >> 33);
        boxMullerSig(std::span(r1).first(len), std::span(r2).first(len), sigma, mu,
                     std::span(noise).first(len));
        if (in.empty())
            std::copy_n(noise.begin(), len, out.begin() + static_cast<std::ptrdiff_t>(k0));
        else
            for (std::size_t k = 0; k < len; ++k)
                out[k0 + k] = in[k0 + k] + noise[k];
    }
}

} // namespace

void gaussianSig(double sigma, double mu, std::span<double> out)
{
    noiseInto({}, sigma, mu, out);
}

void addGaussianNoiseSig(std::span<const double> in, double sigma, double mu, std::span<double> out)
{
    if (DSP_EXPECTS(in.size() == out.size()))
        noiseInto(in, sigma, mu, out);
}
