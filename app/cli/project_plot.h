// The charts `orvana-cli project --plot` writes: the project window's time
// and spectrum charts of the input and the output.
#pragma once

#include <vector>

#include <QStringList>

class GVRProjectModel;

namespace cli {

class PlotRequest;

QStringList projectChartNames();

// Writes the chart the request names; an exit code.
int writeProjectPlot(const PlotRequest& plot, const GVRProjectModel& model, const std::vector<double>& time,
                     const std::vector<double>& freq);

} // namespace cli
