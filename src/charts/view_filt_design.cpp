// The filter response chart of the filter design window.
#include "charts/view_filt_design.h"

#include "charts/design_view_charts.h"
#include "charts/filter_chart_layout.h"
#include "charts/mag_phase_array_source.h"
#include "charts/mask_shading.h"

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
    if (chartType_ >= filterchart::kImpulse) {
        coefficients_ = winFilterDesign_ ? winFilterDesign_->theCoefficients() : std::vector<double>();
        precision_ = winFilterDesign_ ? winFilterDesign_->thePrecisionCoefficients() : std::vector<double>();
        return designcharts::layoutDesignChart(chartSeries(), width, height);
    }
    return layoutFilterChart(dBmagAndPhaseArray_, chartType_, freqUnitsString_, width, height);
}

ChartSeries GVRViewFiltDesign::chartSeries() const
{
    const double fsOver2 = dBmagAndPhaseArray_.size() > 3 ? dBmagAndPhaseArray_[3] : 0.5;
    switch (chartType_) {
    case filterchart::kImpulse:
        return designcharts::impulseSeries(coefficients_, precision_);
    case filterchart::kStep:
        return designcharts::stepSeries(precision_);
    case filterchart::kGroupDelay:
        return designcharts::groupDelaySeries(precision_, fsOver2, freqUnitsString_);
    case filterchart::kZeros:
        return designcharts::zerosSeries(precision_);
    default:
        return chartseries::filterSeries(dBmagAndPhaseArray_, chartType_, freqUnitsString_);
    }
}

QString GVRViewFiltDesign::chartTitle() const
{
    static const QStringList titles = {QStringLiteral("Magnitude Response"),
                                       QStringLiteral("Phase Response"),
                                       QString(),
                                       QStringLiteral("Impulse"),
                                       QStringLiteral("Step"),
                                       QStringLiteral("Group Delay"),
                                       QStringLiteral("Zeros")};
    return titles.value(chartType_, QStringLiteral("Magnitude Response"));
}

void GVRViewFiltDesign::setComparison(std::vector<ComparedCurve> curves, const QString& ownName)
{
    compared_ = std::move(curves);
    ownName_ = ownName;
    chartChanged();
}

void GVRViewFiltDesign::decorateScene(ChartScene& scene, QSizeF size)
{
    if (chartType_ == filterchart::kMagnitude && scene.hasData && !compared_.empty())
        comparechart::addTraces(scene, ownName_, compared_, float(size.width()), float(size.height()));
    const std::optional<ToleranceMask> mask = winFilterDesign_ ? winFilterDesign_->theMask() : std::nullopt;
    if (chartType_ != filterchart::kMagnitude || !mask || dBmagAndPhaseArray_.size() < 4)
        return;
    scene.shading = maskShading(*mask, dBmagAndPhaseArray_[3], scene.viewRange, float(size.width()),
                                float(size.height()));
}
