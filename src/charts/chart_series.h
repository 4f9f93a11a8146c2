// The points a chart plots, in the chart's own units: what the cursor reads,
// what a zoomed chart redraws and what "Save Data As…" writes. Built from the
// same arrays and headers as the chart layouts, so both always agree.
#pragma once

#include <span>
#include <vector>

#include <QColor>
#include <QString>

#include "charts/grid_steps.h"

struct ChartAxis {
    QString name; // CSV column title ("frequency")
    QString unit; // "KHz", "dB", "mS"...
    // The chart's own step table and largest division count for this axis.
    std::span<const float> steps;
    int maxCount = 10;
    // Decimals of the default labels ("%1.2f" → 2).
    int decimals = 2;
};

// How the points are drawn: joined, as stems from zero, or as crosses.
enum class ChartStyle { Line, Stems, Points };

// A further column of values at the same x: a CSV column, drawn as crosses
// in `color` when that is valid.
struct ChartColumn {
    ChartAxis axis;
    std::vector<double> values;
    QColor color;
};

struct ChartSeries {
    ChartAxis x;
    ChartAxis y;
    QColor color;
    ChartStyle style = ChartStyle::Line;
    std::vector<ChartColumn> extra;
    // The z-plane charts: the unit circle drawn under the points.
    bool unitCircle = false;
    // x ascending; y may hold NaN (a gap in the curve).
    std::vector<double> xs;
    std::vector<double> ys;
    // How CSV spells x where an entry is not empty (a row that has no number
    // there, like the Double row of the word-length sweep, whose x is NaN).
    std::vector<QString> xTexts;

    bool empty() const { return xs.empty(); }
};

namespace chartseries {

// The filter response chart: 2048 points from 0 to fs/2 (units "Norm", "KHz"
// or "MHz"); dB magnitudes for chartType 0, unwrapped radians for 1.
ChartSeries filterSeries(std::span<const double> array, int chartType, const QString& freqUnits);

// A time chart: the 16384 samples of the record at headerBase/sampleBase, x in
// the time unit the chart shows at `zoom` (μS or mS).
ChartSeries timeSeries(std::span<const double> array, int headerBase, int sampleBase, float zoom);

// A spectrum chart: the 8192 magnitude bins from 0 to fs/2.
ChartSeries spectrumSeries(std::span<const double> array, int headerBase, int binBase);

// Index of the point whose x is nearest to `x`; -1 for an empty series.
int nearestIndex(const ChartSeries& series, double x);

} // namespace chartseries
