// The filter response chart of the filter design window.
#include "charts/view_filt_design.h"

#include "charts/filter_chart_layout.h"
#include "charts/mag_phase_array_source.h"

GVRViewFiltDesign::GVRViewFiltDesign(QWidget* parent) : GVRChartView(parent) {}

void GVRViewFiltDesign::newChartOfType(int type, const QString& units)
{
    chartType_ = type;
    freqUnitsString_ = units;
    chartChanged();
}

ChartScene GVRViewFiltDesign::layoutChart(float width, float height)
{
    dBmagAndPhaseArray_ = winFilterDesign_ ? winFilterDesign_->theMagPhaseArray() : std::vector<double>();
    return layoutFilterChart(dBmagAndPhaseArray_, chartType_, freqUnitsString_, width, height);
}

ChartSeries GVRViewFiltDesign::chartSeries() const
{
    return chartseries::filterSeries(dBmagAndPhaseArray_, chartType_, freqUnitsString_);
}

QString GVRViewFiltDesign::chartTitle() const
{
    return chartType_ == filterchart::kPhase ? QStringLiteral("Phase Response")
                                             : QStringLiteral("Magnitude Response");
}
