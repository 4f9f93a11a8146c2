// A synthetic signal record in the layout the time charts read.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace chartarrays {

// Signal time array: amplitude × sin(2π k / period) over 16384 samples.
inline std::vector<double> signalTime(double fs, double amplitude, double period, int voltUnit, int freqUnit)
{
    std::vector<double> a(8 + 16384, 0.0);
    double largest = -INFINITY;
    double smallest = INFINITY;
    for (int k = 0; k < 16384; ++k) {
        const double v = amplitude * std::sin(2.0 * std::numbers::pi * k / period);
        a[8 + k] = v;
        largest = std::max(largest, v);
        smallest = std::min(smallest, v);
    }
    a[0] = fs;
    a[1] = fs / period;
    a[2] = voltUnit;
    a[3] = freqUnit;
    a[4] = largest;
    a[5] = smallest;
    return a;
}

} // namespace chartarrays
