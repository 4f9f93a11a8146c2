// Common part of the two spectrum charts.
#include "charts/spectrum_chart_view.h"

#include "charts/freq_array_source.h"
#include "charts/spectrum_chart_layout.h"

GVRSpectrumChartView::GVRSpectrumChartView(int headerBase, int binBase, QWidget* parent)
    : GVRChartView(parent), headerBase_(headerBase), binBase_(binBase)
{
}

void GVRSpectrumChartView::newFreqDomainChart()
{
    chartChanged();
}

void GVRSpectrumChartView::setBases(int headerBase, int binBase)
{
    headerBase_ = headerBase;
    binBase_ = binBase;
    chartChanged();
}

ChartScene GVRSpectrumChartView::layoutChart(float width, float height)
{
    freqArray_ = source_ ? source_->theFreqArray() : std::vector<double>();
    return layoutSpectrumChart(freqArray_, headerBase_, binBase_, width, height);
}

ChartSeries GVRSpectrumChartView::chartSeries() const
{
    return chartseries::spectrumSeries(freqArray_, headerBase_, binBase_);
}

QString GVRSpectrumChartView::chartTitle() const
{
    return QStringLiteral("Spectrum");
}
