// The filter response chart of the filter design window: magnitude in dB or
// unwrapped phase in radians, pulled from the window at every pass.
#pragma once

#include <vector>

#include "charts/chart_view.h"
#include "charts/compare_overlay.h"

class MagPhaseArraySource;

class GVRViewFiltDesign : public GVRChartView {
    Q_OBJECT
public:
    explicit GVRViewFiltDesign(QWidget* parent = nullptr);

    // The window the response array comes from; not owned, may be null.
    void setMagPhaseSource(const MagPhaseArraySource* source) { winFilterDesign_ = source; }

    int chartType() const { return chartType_; }
    QString freqUnitsString() const { return freqUnitsString_; }

    // Saved designs drawn over the magnitude chart, x in the chart's units;
    // `ownName` names the current design in the legend. Empty: none. Redraws.
    void setComparison(std::vector<ComparedCurve> curves, const QString& ownName);
    const std::vector<ComparedCurve>& comparison() const { return compared_; }

public slots:
    // type: 0 magnitude, 1 phase, 3 impulse, 4 step, 5 group delay, 6 zeros; units: "Norm", "KHz" or "MHz".
    // Redraws.
    void newChartOfType(int type, const QString& units);

protected:
    ChartScene layoutChart(float width, float height) override;
    ChartSeries chartSeries() const override;
    void decorateScene(ChartScene& scene, QSizeF size) override;
    QString chartTitle() const override;

private:
    std::vector<double> dBmagAndPhaseArray_;
    std::vector<double> coefficients_;
    std::vector<double> precision_;
    std::vector<ComparedCurve> compared_;
    QString ownName_;
    int chartType_ = 0;
    QString freqUnitsString_;
    const MagPhaseArraySource* winFilterDesign_ = nullptr;
};
