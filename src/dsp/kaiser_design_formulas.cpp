// Kaiser's formulas (J. F. Kaiser, "Nonrecursive digital filter design using
// the I0-sinh window function", 1974) and his estimate for equiripple lengths.
#include "dsp/kaiser_design_formulas.h"

#include <cmath>

namespace {

int roundUpToOdd(double taps)
{
    if (!std::isfinite(taps) || taps < 1.0)
        return 1;
    int n = static_cast<int>(std::ceil(std::min(taps, 1e6)));
    return n % 2 == 0 ? n + 1 : n;
}

} // namespace

double kaiserBeta(double A)
{
    if (A > 50.0)
        return 0.1102 * (A - 8.7);
    if (A >= 21.0)
        return 0.5842 * std::pow(A - 21.0, 0.4) + 0.07886 * (A - 21.0);
    return 0.0;
}

int kaiserLength(double A, double transitionRadians)
{
    return roundUpToOdd((A - 8.0) / (2.285 * transitionRadians) + 1.0);
}

int equirippleLengthEstimate(double deltaPass, double deltaStop, double transitionCycles)
{
    const double A = -20.0 * std::log10(std::sqrt(deltaPass * deltaStop));
    return roundUpToOdd((A - 13.0) / (14.6 * transitionCycles) + 1.0);
}
