// Common part of the two time-domain charts.
#include "charts/time_chart_view.h"

#include "charts/chart_series.h"
#include "charts/time_array_source.h"
#include "charts/time_chart_layout.h"

GVRTimeChartView::GVRTimeChartView(int headerBase, int sampleBase, QWidget* parent)
    : GVRChartView(parent), headerBase_(headerBase), sampleBase_(sampleBase)
{
}

void GVRTimeChartView::newTimeDomainChart()
{
    chartChanged();
}

void GVRTimeChartView::setZoom(float zoom)
{
    zoomFactor_ = zoom;
    chartChanged();
}

void GVRTimeChartView::setBases(int headerBase, int sampleBase)
{
    headerBase_ = headerBase;
    sampleBase_ = sampleBase;
    chartChanged();
}

ChartScene GVRTimeChartView::layoutChart(float width, float height)
{
    timeArray_ = source_ ? source_->theTimeArray() : std::vector<double>();
    return layoutTimeChart(timeArray_, headerBase_, sampleBase_, zoomFactor_, width, height);
}

ChartSeries GVRTimeChartView::chartSeries() const
{
    return chartseries::timeSeries(timeArray_, headerBase_, sampleBase_, zoomFactor_);
}

QString GVRTimeChartView::chartTitle() const
{
    return QStringLiteral("Time Domain");
}
