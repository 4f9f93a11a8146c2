// The charts `orvana-cli project --plot` writes: the project window's time
// and spectrum charts of the input and the output, and for the Multirate
// model those of its inner stages w[m] and p[m].
#pragma once

#include <vector>

#include <QStringList>

class GVRProjectModel;

namespace cli {

class PlotRequest;

QStringList projectChartNames();
// Whether the chart is one of the Multirate model's stages (diagram 2 only).
bool isStageChart(const QString& chart);

// Writes the chart the request names; an exit code.
int writeProjectPlot(const PlotRequest& plot, const GVRProjectModel& model, const std::vector<double>& time,
                     const std::vector<double>& freq);

} // namespace cli
