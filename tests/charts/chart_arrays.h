// Synthetic result arrays in the layouts the charts read, for the chart tests
// (a low-pass response, a sine record, a one-peak spectrum), and the label
// texts of a laid-out chart.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include <QStringList>

#include "charts/chart_scene.h"

namespace chartarrays {

// Response array: 0 dB up to point `edge`, then `stopDb`; phase falls
// linearly from 0 to `lastPhase`; `fsOver2` is the frequency of the last point.
inline std::vector<double> filterResponse(int edge, double stopDb, double lastPhase, double fsOver2)
{
    std::vector<double> a(8 + 2 * 2048, 0.0);
    for (int k = 0; k < 2048; ++k) {
        a[8 + k] = k < edge ? 0.0 : stopDb;
        a[8 + 2048 + k] = lastPhase * k / 2047.0;
    }
    a[0] = 2048.0;
    a[2] = std::min(0.0, stopDb);
    a[3] = fsOver2;
    a[4] = std::max(0.0, lastPhase);
    a[5] = std::min(0.0, lastPhase);
    return a;
}

// Signal time array: amplitude × sin(2π k / period) over 16384 samples.
inline std::vector<double> signalTime(double fs, double amplitude, double period, int voltUnit, int freqUnit)
{
    std::vector<double> a(8 + 16384, 0.0);
    for (int k = 0; k < 16384; ++k)
        a[8 + k] = amplitude * std::sin(2.0 * std::numbers::pi * k / period);
    const auto [low, high] = std::minmax_element(a.begin() + 8, a.end());
    a[0] = fs;
    a[1] = fs / period;
    a[2] = voltUnit;
    a[3] = freqUnit;
    a[4] = *high;
    a[5] = *low;
    return a;
}

// Signal frequency array: `peak` at bin `peakBin`, 0 elsewhere.
inline std::vector<double> signalSpectrum(double fs, double maxFreq, int peakBin, double peak, int voltUnit,
                                          int freqUnit)
{
    std::vector<double> a(8 + 8192, 0.0);
    a[8 + peakBin] = peak;
    a[0] = fs;
    a[1] = maxFreq;
    a[2] = voltUnit;
    a[3] = freqUnit;
    a[4] = peak;
    return a;
}

inline QStringList labelTexts(const ChartScene& scene)
{
    QStringList texts;
    for (const ChartLabel& label : scene.labels)
        texts << label.text;
    return texts;
}

} // namespace chartarrays
