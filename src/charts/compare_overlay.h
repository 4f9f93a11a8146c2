// Compared designs on a magnitude chart: each saved filter's dB magnitude as
// a trace in its own colour with a legend, over the current design's chart in
// the designer, or as a chart of its own for the command line.
#pragma once

#include <vector>

#include <QColor>
#include <QString>

#include "charts/chart_scene.h"
#include "charts/chart_series.h"

struct ComparedCurve {
    QString name;
    std::vector<double> xs; // frequency in the chart's x units
    std::vector<double> dB;
};

namespace comparechart {

// The colour of curve i; 0 is the chart's own curve colour.
QColor curveColor(int i);

// Adds the curves as traces 1, 2, … of a scene whose viewRange is laid out
// for width × height, clipped to the view; `ownName` names the chart's curve
// in the legend.
void addTraces(ChartScene& scene, const QString& ownName, const std::vector<ComparedCurve>& curves,
               float width, float height);

// Designs side by side against normalised frequency (xs = k/2048): CSV x
// "normalised frequency", one dB column per design, named after it.
ChartSeries compareSeries(const std::vector<ComparedCurve>& curves);
// The first curve as a magnitude chart (scaled to hold them all), the others
// as traces, with the legend.
ChartScene layoutCompareChart(const std::vector<ComparedCurve>& curves, float width, float height);

} // namespace comparechart
