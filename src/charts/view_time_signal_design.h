// The time chart of the signal design window.
#pragma once

#include "charts/time_chart_view.h"

class GVRViewTimeSignalDesign : public GVRTimeChartView {
    Q_OBJECT
public:
    explicit GVRViewTimeSignalDesign(QWidget* parent = nullptr);

public slots:
    // The first 16384 / zoom samples fill the width (powers of two, 1 to 256). Redraws.
    void setZoomLevel(double zoom);
};
