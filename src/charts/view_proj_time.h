// The time chart of the project window: the system's input or its output.
#pragma once

#include "charts/time_chart_view.h"

class GVRViewProjTime : public GVRTimeChartView {
    Q_OBJECT
public:
    explicit GVRViewProjTime(QWidget* parent = nullptr);

    bool showsInput() const { return showsInput_; }

public slots:
    // The first 16384 / zoom samples fill the width (powers of two, 1 to 256). Redraws.
    void setZoomLevel(int zoom);
    // true: the input x[n]; false: the output. Redraws.
    void selectChartOne(bool input);
    // A one-record array in the signal layout (header at 0, samples from 8),
    // as the multirate stages come. Redraws.
    void selectSingleRecord();

private:
    bool showsInput_ = true;
};
