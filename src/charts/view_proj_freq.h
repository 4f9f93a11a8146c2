// The spectrum chart of the project window: the input's or the output's spectrum.
#pragma once

#include "charts/spectrum_chart_view.h"

class GVRViewProjFreq : public GVRSpectrumChartView {
    Q_OBJECT
public:
    explicit GVRViewProjFreq(QWidget* parent = nullptr);

    bool showsInput() const { return showsInput_; }

public slots:
    // true: the input's spectrum; false: the output's. Redraws.
    void selectChartOne(bool input);
    // A one-record array in the signal layout (header at 0, bins from 8), as
    // the multirate stages come. Redraws.
    void selectSingleRecord();

private:
    bool showsInput_ = true;
};
