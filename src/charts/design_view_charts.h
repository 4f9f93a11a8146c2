// The further charts of a filter design: impulse (stems of cp, crosses of c),
// step (running sum of cp), group delay in samples, and the zeros in the
// z-plane with the unit circle. Series from the coefficients, and a default
// view fitted to the data, laid out with the zoomed-chart rules.
#pragma once

#include <span>

#include <QString>

#include "charts/chart_scene.h"
#include "charts/chart_series.h"
#include "dsp/word_length_sweep.h"

namespace designcharts {

// c: the double coefficients; cp: the quantised ones.
ChartSeries impulseSeries(std::span<const double> c, std::span<const double> cp);
ChartSeries stepSeries(std::span<const double> cp);
// 2048 points from 0 to fsOver2 in `freqUnits`, NaN in the gaps.
ChartSeries groupDelaySeries(std::span<const double> cp, double fsOver2, const QString& freqUnits);
// Sorted by real part; x real, y imaginary. N − 1 points: zeros at infinity
// (leading zero coefficients) come last with x = +∞, "inf" in CSV, and are
// not drawn.
ChartSeries zerosSeries(std::span<const double> cp);
// The word-length sweep: x bits (8 … 20, then the Double row at NaN, spelt
// "double" in CSV), y stopband attenuation in dB, a passband ripple column
// (CSV only).
ChartSeries wordLengthSeries(std::span<const SweepRow> rows);

// The default view: every point with a margin, zero on the value axis; the
// z-plane square, unit circle included.
ChartRange defaultRange(const ChartSeries& series, float width, float height);

ChartScene layoutDesignChart(const ChartSeries& series, float width, float height);

// The word-length chart: bits 8 to 20 across, 0 dB up to above the best
// attenuation, the Double row as a line across the chart.
ChartScene layoutWordLengthChart(const ChartSeries& series, float width, float height);

} // namespace designcharts
