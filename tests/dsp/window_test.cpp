// Window functions: symmetry, and every window against
// scipy.signal.windows (or numpy, where our coefficients are not scipy's).
#include "dsp/window.h"
#include "support/reference_python.h"

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
        const auto ref = reference::numbers("filter_reference.py", args);
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
