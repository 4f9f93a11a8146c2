// The charts `orvana-cli project --plot` writes.
#include "cli/project_plot.h"

#include "charts/chart_scene.h"
#include "charts/chart_series.h"
#include "charts/spectrum_chart_layout.h"
#include "charts/time_chart_layout.h"
#include "cli/cli_options.h"
#include "cli/plot_output.h"
#include "project/project_model.h"

namespace cli {

namespace {

// Header and first value of the input and output halves of the project arrays.
constexpr int kInputHeader = 0;
constexpr int kOutputHeader = 8;
constexpr int kInputSamples = 16;
constexpr int kOutputSamples = 16400;
constexpr int kInputBins = 16;
constexpr int kOutputBins = 8208;

} // namespace

QStringList projectChartNames()
{
    return {QStringLiteral("input-time"), QStringLiteral("output-time"), QStringLiteral("input-spectrum"),
            QStringLiteral("output-spectrum")};
}

int writeProjectPlot(const PlotRequest& plot, const GVRProjectModel&, const std::vector<double>& time,
                     const std::vector<double>& freq)
{
    const QString& chart = plot.chart();
    const bool input = chart.startsWith(QLatin1String("input"));
    const int header = input ? kInputHeader : kOutputHeader;
    const QString verb = QStringLiteral("project");
    if (chart.endsWith(QLatin1String("-time"))) {
        const int first = input ? kInputSamples : kOutputSamples;
        const float zoom = plot.zoom();
        return plot.write([&](float w, float h) { return layoutTimeChart(time, header, first, zoom, w, h); },
                          chartseries::timeSeries(time, header, first, zoom), QStringLiteral("Time Domain"),
                          verb);
    }
    const int first = input ? kInputBins : kOutputBins;
    return plot.write([&](float w, float h) { return layoutSpectrumChart(freq, header, first, w, h); },
                      chartseries::spectrumSeries(freq, header, first), QStringLiteral("Spectrum"), verb);
}

} // namespace cli
