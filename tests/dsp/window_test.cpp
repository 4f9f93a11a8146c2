// Window functions: symmetry, end and centre values, and every window against
// scipy.signal.windows (or numpy, where our coefficients are not scipy's).
#include "dsp/window.h"
#include "filter_reference_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

std::vector<double> makeWindow(int index, std::size_t N, double parameter = 0.0)
{
    std::vector<double> w(N, -7.0);
    winfun(index, parameter, w);
    return w;
}

double series(double y)
{
    double sum = 0.0, fact = 1.0;
    for (int k = 0; k <= 10; ++k) {
        if (k > 0)
            fact *= k;
        sum += std::pow(y / 2.0, 2 * k) / (fact * fact);
    }
    return sum;
}

struct Reference {
    int index;
    const char* name;
    double parameter;
    double tolerance;
};

} // namespace

TEST(Window, EverySymmetricWithoutNaN)
{
    for (std::size_t N : {25u, 51u, 255u, 511u})
        for (int index = 0; index < kWindowCount; ++index) {
            const std::vector<double> w = makeWindow(index, N, index == kWindowChebyshev ? 3.0 : 5.0);
            for (std::size_t n = 0; n < N; ++n) {
                ASSERT_TRUE(std::isfinite(w[n])) << index << " " << n;
                ASSERT_NEAR(w[n], w[N - 1 - n], 1e-12) << "window " << index << " N " << N << " n " << n;
            }
        }
}

TEST(Window, EndAndCentreValues)
{
    const std::size_t N = 25, c = 12;
    EXPECT_EQ(makeWindow(kWindowRectangular, N), std::vector<double>(N, 1.0));
    auto w = makeWindow(kWindowHann, N);
    EXPECT_NEAR(w[0], 0.0, 1e-15);
    EXPECT_NEAR(w[c], 1.0, 1e-15);
    w = makeWindow(kWindowBlackman, N);
    EXPECT_NEAR(w[0], 0.0, 1e-15);
    EXPECT_NEAR(w[N - 1], 0.0, 1e-15);
    w = makeWindow(kWindowHamming, N);
    EXPECT_NEAR(w[0], 0.08, 1e-15);
    EXPECT_NEAR(w[N - 1], 0.08, 1e-15);
    w = makeWindow(kWindowCosine, N);
    EXPECT_NEAR(w[0], 0.0, 1e-15);
    EXPECT_NEAR(w[N - 1], 0.0, 1e-15);
    EXPECT_NEAR(w[c], 1.0, 1e-15);
    for (int index : {kWindowBlackmanHarris, kWindowNutall, kWindowBlackmanNutall})
        EXPECT_NEAR(makeWindow(index, N)[c], 1.0, 1e-15) << index;

    w = makeWindow(kWindowFlatTop, N);
    EXPECT_EQ(w[c], 1.0);
    EXPECT_NEAR(w[0], 0.004 / 4.64, 1e-14);
    EXPECT_NEAR(w[N - 1], 0.004 / 4.64, 1e-14);

    w = makeWindow(kWindowKaiser, N, 5.0);
    EXPECT_NEAR(w[c], 1.0, 1e-15);
    EXPECT_NEAR(w[0], 1.0 / series(5.0), 1e-15);
    const auto wide = makeWindow(kWindowKaiser, N, 2.0);
    const auto narrow = makeWindow(kWindowKaiser, N, 8.0);
    for (std::size_t n = 0; n < c; ++n)
        EXPECT_LT(narrow[n], wide[n]) << n;

    w = makeWindow(kWindowChebyshev, N, 3.0);
    EXPECT_EQ(*std::max_element(w.begin(), w.end()), 1.0);
    EXPECT_EQ(w[0], w[N - 1]);
}

TEST(Window, IndexOutOfRangeLeavesOutputUntouched)
{
    EXPECT_EQ(makeWindow(11, 25), std::vector<double>(25, -7.0));
    EXPECT_EQ(makeWindow(-1, 25), std::vector<double>(25, -7.0));
}

TEST(Window, AddsThreeArraysAndAScalar)
{
    const std::vector<double> a{1, 2}, b{10, 20}, c{100, 200};
    std::vector<double> out(2);
    vectAdd3s(a, b, c, 0.5, out);
    EXPECT_EQ(out, (std::vector<double>{111.5, 222.5}));
    std::vector<double> i0(2);
    const std::vector<double> y{0.0, 1.0};
    besselTaylor(y, i0);
    EXPECT_EQ(i0[0], 1.0);
    EXPECT_NEAR(i0[1], 1.2660658777520082, 1e-15); // I0(1)
}

TEST(Window, MatchesScipyAndNumpy)
{
    const Reference refs[] = {
        {kWindowRectangular, "rectangular", 0.0, 0.0},
        {kWindowBlackman, "blackman", 0.0, 1e-14},
        {kWindowHamming, "hamming", 0.0, 1e-14},
        {kWindowHann, "hann", 0.0, 1e-14},
        {kWindowBlackmanHarris, "blackmanharris", 0.0, 1e-14},
        {kWindowCosine, "cosine", 0.0, 1e-14},
        {kWindowNutall, "nutall", 0.0, 1e-14},
        {kWindowBlackmanNutall, "blackmannutall", 0.0, 1e-14},
        {kWindowFlatTop, "flattop", 0.0, 1e-14},
        {kWindowKaiser, "kaiserseries", 5.0, 1e-14},
        {kWindowKaiser, "kaiserseries", 14.0, 1e-13},
        // scipy's I0 is exact; the eleven-term series is close for moderate β.
        {kWindowKaiser, "kaiser", 5.0, 1e-7},
        // The window's spectrum samples pass through single precision.
        {kWindowChebyshev, "chebyshev", 3.0, 1e-6},
        {kWindowChebyshev, "chebyshev", 5.0, 1e-6},
    };
    for (std::size_t N : {25u, 255u}) {
        QStringList args{QStringLiteral("window"), QString::number(N)};
        for (const Reference& r : refs)
            args << QStringLiteral("%1:%2").arg(QString::fromLatin1(r.name)).arg(r.parameter);
        const auto ref = filterref::run(args);
        ASSERT_EQ(ref.size(), N * std::size(refs));
        for (std::size_t i = 0; i < std::size(refs); ++i) {
            const Reference& r = refs[i];
            const auto w = makeWindow(r.index, N, r.parameter);
            for (std::size_t n = 0; n < N; ++n)
                EXPECT_NEAR(w[n], ref[i * N + n], r.tolerance)
                    << r.name << " β/ϒ " << r.parameter << " N " << N << " n " << n;
        }
    }
}

TEST(Window, ChebyshevSideLobesFollowUpsilon)
{
    // 10^ϒ is the main-lobe to side-lobe ratio: the ends of a 3-decade window sit far below the centre.
    const auto w3 = makeWindow(kWindowChebyshev, 51, 3.0);
    const auto w5 = makeWindow(kWindowChebyshev, 51, 5.0);
    EXPECT_LT(w5[0], w3[0]);
    EXPECT_GT(w3[0], 0.0);
}
