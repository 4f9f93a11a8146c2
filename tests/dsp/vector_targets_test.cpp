// The Highway kernels on every vector target the machine runs (each target is
// separately compiled code): the logarithm and arctangent against the C
// library, and the exact kernels giving the same bits everywhere.
#include "dsp/fast_elementary.h"
#include "dsp/frequency_response.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"

#include <hwy/targets.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

class FastElementary : public ::testing::TestWithParam<std::int64_t> {
protected:
    void SetUp() override { hwy::SetSupportedTargetsForTest(GetParam()); }
    void TearDown() override { hwy::SetSupportedTargetsForTest(0); }
};

INSTANTIATE_TEST_SUITE_P(Targets, FastElementary, ::testing::ValuesIn(hwy::SupportedAndGeneratedTargets()),
                         [](const auto& info) { return std::string(hwy::TargetName(info.param)); });

// Runs `check` once per target, the dispatch pinned to it; all must give the first one's bits.
template <class Result, class Check> void expectEveryTargetAlike(Check&& check)
{
    std::vector<Result> first;
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(target);
        SCOPED_TRACE(hwy::TargetName(target));
        const Result out = check();
        if (first.empty())
            first.push_back(out);
        ASSERT_EQ(out.size(), first[0].size());
        for (std::size_t i = 0; i < out.size(); ++i)
            ASSERT_EQ(out[i], first[0][i]) << i;
    }
    hwy::SetSupportedTargetsForTest(0);
}

} // namespace

TEST_P(FastElementary, DecibelsPhaseAndZerosMatchTheCLibrary)
{
    const double tiny = 1e-10;
    std::mt19937_64 gen(5);
    std::uniform_real_distribution<double> u(-1.0, 1.0), exponent(-150.0, 150.0);
    std::vector<std::complex<double>> X;
    for (int i = 0; i < 10007; ++i) // powers over 600 decades: the logarithm
        X.push_back({std::pow(10.0, exponent(gen)), 0.0});
    for (int i = 0; i < 10003; ++i) // both parts over 12 decades: the arctangent
        X.push_back({u(gen) * std::pow(10.0, 6.0 * u(gen)), u(gen) * std::pow(10.0, 6.0 * u(gen))});
    const double root2 = std::sqrt(std::sqrt(2.0)); // powers either side of √2, where the reduction turns
    for (const double r :
         {1.0, std::sqrt(2.0), std::sqrt(0.5), root2, std::nextafter(root2, 2.0), std::nextafter(root2, 0.0),
          std::ldexp(1.0, -511) /* power DBL_MIN */, std::sqrt(DBL_MAX), 1e-155 /* subnormal power */,
          1e155 /* power overflows */, kInf, kNaN, -1.0})
        X.push_back({r, 0.0});
    // (Re, Im): quadrants, axes, infinities, overflow; then the near-zero rule's edges: on it, just past it
    // in either part, far below it, and last (in the one-lane tail) one more below it.
    const double t1 = std::nextafter(tiny, 1.0),
                 parts[] = {1.0, 0.0,  1.0,   -0.0,  0.0,  1.0,   0.0,  -1.0,  -0.0,  1.0,  1.0,
                            1.0, 1.0,  -1.0,  1.0,   kInf, kInf,  1.0,  kInf,  kInf,  1.0,  2.414213562373095,
                            1.0, 0.66, 1e200, 1e200, 0.0,  0.0,   tiny, -tiny, -tiny, tiny, -1e-300,
                            0.0, t1,   0.0,   0.0,   -t1,  1e-11, 0.0};
    for (std::size_t i = 0; i < std::size(parts); i += 2)
        X.push_back({parts[i], parts[i + 1]});

    for (const bool withPhase : {true, false}) {
        std::vector<double> dB(X.size()), phase(withPhase ? X.size() : 0);
        std::vector<std::uint16_t> zeros(X.size());
        const std::size_t count = decibelsAndPhaseOfBins(X, dB, phase, tiny, zeros);
        std::vector<std::uint16_t> expectedZeros;
        for (std::size_t k = 0; k < X.size(); ++k) {
            if (std::fabs(X[k].real()) <= tiny && std::fabs(X[k].imag()) <= tiny)
                expectedZeros.push_back(static_cast<std::uint16_t>(k));
            const double ref = 10.0 * std::log10(std::norm(X[k]));
            if (std::isnan(ref))
                ASSERT_TRUE(std::isnan(dB[k])) << X[k];
            else if (std::isinf(ref))
                ASSERT_EQ(dB[k], ref) << X[k];
            else
                ASSERT_NEAR(dB[k], ref, 1e-15 * std::max(1.0, std::fabs(ref))) << X[k];
            if (!withPhase)
                continue;
            const double atan = std::atan(X[k].imag() / X[k].real());
            if (std::isnan(atan))
                ASSERT_TRUE(std::isnan(phase[k])) << X[k];
            else
                ASSERT_NEAR(phase[k], atan, 4e-16 * std::max(1e-300, std::fabs(atan))) << X[k];
        }
        ASSERT_EQ(count, expectedZeros.size());
        EXPECT_EQ(std::vector<std::uint16_t>(zeros.begin(), zeros.begin() + count), expectedZeros);
        if (!withPhase)
            continue;
        // Odd in Im, so the mirrored half of a spectrum gets exactly the negated phase.
        std::vector<std::complex<double>> mirrored(X.size());
        for (std::size_t k = 0; k < X.size(); ++k)
            mirrored[k] = std::conj(X[k]);
        std::vector<double> mirroredPhase(X.size());
        decibelsAndPhaseOfBins(mirrored, dB, mirroredPhase, tiny, zeros);
        for (std::size_t k = 0; k < X.size(); ++k) {
            if (!std::isnan(phase[k])) {
                ASSERT_EQ(mirroredPhase[k], -phase[k]) << X[k];
            }
        }
    }
}

TEST_P(FastElementary, RangeOfPassesOverNaN)
{
    std::vector<double> v(1001);
    for (std::size_t i = 0; i < v.size(); ++i)
        v[i] = std::sin(0.37 * static_cast<double>(i)) * 10.0;
    v[500] = 42.0;
    v[999] = -42.0;
    v[3] = kNaN;
    double largest = 0.0, smallest = 0.0;
    rangeOf(v, largest, smallest);
    EXPECT_EQ(largest, 42.0);
    EXPECT_EQ(smallest, -42.0);
    v[0] = kNaN;
    rangeOf(v, largest, smallest);
    EXPECT_TRUE(std::isnan(largest) && std::isnan(smallest));
}

TEST(VectorTargets, ExactKernelsGiveTheSameBits)
{
    // No logarithm or arctangent and no fused multiply-adds: lane width must not
    // change a single bit. Lengths leave tails of every size up to eight lanes.
    expectEveryTargetAlike<std::vector<double>>([] {
        std::vector<double> out;
        for (const std::size_t N : {25u, 31u, 255u}) {
            std::vector<double> w(N), c(N), cp(N), U(N + 4), P(N + 4), D(N + 4);
            std::vector<std::int32_t> q(N);
            winfun(kWindowKaiser, 7.5, w);
            for (std::size_t i = 0; i < N; ++i)
                c[i] = w[i] * (static_cast<double>(i % 3) - 1.0);
            bitPrecison(9, c, q, cp);
            for (std::size_t i = 0; i < P.size(); ++i) {
                P[i] = std::sin(0.9 * static_cast<double>(i));
                D[i] = -std::fabs(std::cos(0.3 * static_cast<double>(i))) * 40.0;
            }
            unwrapPhase(P, D, U);
            for (const auto* v : {&w, &cp, &U})
                out.insert(out.end(), v->begin(), v->end());
        }
        return out;
    });
}

TEST(VectorTargets, QuantisationRoundsLikeTheDefinition)
{
    // Integers leave no room for rounding differences: each target must give round(c / max × 127).
    std::vector<double> c(251);
    for (std::size_t n = 0; n < c.size(); ++n)
        c[n] = std::sin(0.37 * static_cast<double>(n)) * std::exp(-0.01 * static_cast<double>(n));
    c[7] = 1.0;         // full scale
    c[8] = 2.5 / 127.0; // near halves, both signs
    c[9] = -2.5 / 127.0;
    c[10] = -1e9; // saturates
    c[11] = kNaN;
    c[250] = -0.5 / 127.0; // in the scalar tail
    std::vector<std::int32_t> want(c.size());
    for (std::size_t n = 0; n < c.size(); ++n) {
        const double t = std::round(c[n] * 127.0);
        want[n] = std::isnan(t) ? 0 : t < -2147483648.0 ? INT32_MIN : static_cast<std::int32_t>(t);
    }
    expectEveryTargetAlike<std::vector<double>>([&] {
        std::vector<std::int32_t> q(c.size());
        std::vector<double> cp(c.size());
        bitPrecison(13, c, q, cp);
        EXPECT_EQ(q, want);
        return cp;
    });
}
