// Common part of the two time-domain charts: a zoomed view of one 16384-sample
// record of the window's time array.
#pragma once

#include <vector>

#include "charts/chart_view.h"

class TimeArraySource;

class GVRTimeChartView : public GVRChartView {
    Q_OBJECT
public:
    // headerBase, sampleBase: where the shown record's header and first sample sit.
    GVRTimeChartView(int headerBase, int sampleBase, QWidget* parent = nullptr);

    // The window the time array comes from; not owned, may be null.
    void setTimeSource(const TimeArraySource* source) { source_ = source; }

    float zoomFactor() const { return zoomFactor_; }

public slots:
    // The window has stored a new array. Redraws.
    void newTimeDomainChart();

protected:
    void setZoom(float zoom);
    void setBases(int headerBase, int sampleBase);
    ChartScene layoutChart(float width, float height) override;
    ChartSeries chartSeries() const override;
    QString chartTitle() const override;

private:
    std::vector<double> timeArray_;
    float zoomFactor_ = 16.0f;
    int headerBase_;
    int sampleBase_;
    const TimeArraySource* source_ = nullptr;
};
