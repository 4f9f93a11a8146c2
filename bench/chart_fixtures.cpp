// The shared chart fixtures of the benchmarks.
#include "chart_fixtures.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace bench {

std::vector<double> busyTimeArray()
{
    std::vector<double> a(8 + 16384);
    unsigned state = 12345;
    double largest = -1e300;
    double smallest = 1e300;
    for (int k = 0; k < 16384; ++k) {
        state = state * 1103515245u + 12345u;
        const double noise = (double(state >> 8) / double(1u << 24) - 0.5) * 0.2;
        const double v = std::cos(2 * std::numbers::pi * 0.01 * k) +
                         0.5 * std::sin(2 * std::numbers::pi * 0.13 * k) + noise;
        a[8 + k] = v;
        largest = std::max(largest, v);
        smallest = std::min(smallest, v);
    }
    a[0] = 1.0;
    a[1] = 0.13;
    a[4] = largest;
    a[5] = smallest;
    return a;
}

std::vector<double> lowPassResponseArray()
{
    std::vector<double> a(8 + 2 * 2048);
    double phase = 0.0;
    double lowest = 0.0;
    for (int k = 0; k < 2048; ++k) {
        const double f = k / 2047.0;
        const bool pass = f < 0.25;
        a[8 + k] = pass ? 0.01 * std::sin(60 * f) : -40.0 - 50.0 * std::fabs(std::sin(90 * f));
        if (!pass && k % 45 == 0)
            phase += std::numbers::pi;
        a[8 + 2048 + k] = phase - 25.0 * std::numbers::pi * f;
        lowest = std::min(lowest, a[8 + 2048 + k]);
    }
    a[0] = 2048.0;
    a[1] = 0.01;
    a[2] = -90.0;
    a[3] = 1.0;
    a[4] = 0.0;
    a[5] = lowest;
    return a;
}

} // namespace bench
