// The further charts of a filter design: impulse (stems of cp, crosses of c),
// step (running sum of cp), group delay in samples, and the zeros in the
// z-plane with the unit circle. Series from the coefficients, and a default
// view fitted to the data, laid out with the zoomed-chart rules.
#pragma once

#include <span>

#include <QString>

#include "charts/chart_scene.h"
#include "charts/chart_series.h"

namespace designcharts {

// c: the double coefficients; cp: the quantised ones.
ChartSeries impulseSeries(std::span<const double> c, std::span<const double> cp);
ChartSeries stepSeries(std::span<const double> cp);
// 2048 points from 0 to fsOver2 in `freqUnits`, NaN in the gaps.
ChartSeries groupDelaySeries(std::span<const double> cp, double fsOver2, const QString& freqUnits);
// Sorted by real part; x real, y imaginary.
ChartSeries zerosSeries(std::span<const double> cp);

// The default view: every point with a margin, zero on the value axis; the
// z-plane square, unit circle included.
ChartRange defaultRange(const ChartSeries& series, float width, float height);

ChartScene layoutDesignChart(const ChartSeries& series, float width, float height);

} // namespace designcharts
