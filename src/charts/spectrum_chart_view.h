// Common part of the two spectrum charts: the one-sided magnitude spectrum of
// one record of the window's frequency array.
#pragma once

#include <vector>

#include "charts/chart_view.h"

class FreqArraySource;

class GVRSpectrumChartView : public GVRChartView {
    Q_OBJECT
public:
    // headerBase, binBase: where the shown record's header and first bin sit.
    GVRSpectrumChartView(int headerBase, int binBase, QWidget* parent = nullptr);

    // The window the frequency array comes from; not owned, may be null.
    void setFreqSource(const FreqArraySource* source) { source_ = source; }

public slots:
    // The window has stored a new array. Redraws.
    void newFreqDomainChart();

protected:
    void setBases(int headerBase, int binBase);
    ChartScene layoutChart(float width, float height) override;
    ChartSeries chartSeries() const override;
    QString chartTitle() const override;

private:
    std::vector<double> freqArray_;
    int headerBase_;
    int binBase_;
    const FreqArraySource* source_ = nullptr;
};
