// The charts `orvana-cli project --plot` writes.
#include "cli/project_plot.h"

#include "charts/chart_scene.h"
#include "charts/chart_series.h"
#include "charts/project_array_layout.h"
#include "charts/spectrum_chart_layout.h"
#include "charts/time_chart_layout.h"
#include "cli/cli_options.h"
#include "cli/plot_output.h"
#include "project/project_model.h"

namespace cli {

using namespace projectarrays;

QStringList projectChartNames()
{
    return {QStringLiteral("input-time"),     QStringLiteral("output-time"),
            QStringLiteral("input-spectrum"), QStringLiteral("output-spectrum"),
            QStringLiteral("upsampled-time"), QStringLiteral("upsampled-spectrum"),
            QStringLiteral("filtered-time"),  QStringLiteral("filtered-spectrum")};
}

bool isStageChart(const QString& chart)
{
    return chart.startsWith(QLatin1String("upsampled")) || chart.startsWith(QLatin1String("filtered"));
}

int writeProjectPlot(const PlotRequest& plot, const GVRProjectModel& model,
                     const std::vector<double>& projectTime, const std::vector<double>& projectFreq)
{
    const QString& chart = plot.chart();
    const bool stage = isStageChart(chart);
    const bool input = chart.startsWith(QLatin1String("input"));
    GVRProjectModel::StageArrays stageArrays;
    if (stage)
        stageArrays = model.multirateStageArrays(chart.startsWith(QLatin1String("upsampled"))
                                                     ? GVRProjectModel::MultirateStage::Upsampled
                                                     : GVRProjectModel::MultirateStage::Filtered);
    const std::vector<double>& time = stage ? stageArrays.time : projectTime;
    const std::vector<double>& freq = stage ? stageArrays.freq : projectFreq;
    const int header = stage ? kSingleRecordHeader : input ? kInputHeader : kOutputHeader;
    const QString verb = QStringLiteral("project");
    if (chart.endsWith(QLatin1String("-time"))) {
        const int first = stage ? kSingleRecordFirst : input ? kInputSamples : kOutputSamples;
        const float zoom = plot.zoom();
        return plot.write([&](float w, float h) { return layoutTimeChart(time, header, first, zoom, w, h); },
                          chartseries::timeSeries(time, header, first, zoom), QStringLiteral("Time Domain"),
                          verb);
    }
    const int first = stage ? kSingleRecordFirst : input ? kInputBins : kOutputBins;
    return plot.write([&](float w, float h) { return layoutSpectrumChart(freq, header, first, w, h); },
                      chartseries::spectrumSeries(freq, header, first), QStringLiteral("Spectrum"), verb);
}

} // namespace cli
