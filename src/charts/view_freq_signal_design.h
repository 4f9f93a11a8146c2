// The spectrum chart of the signal design window.
#pragma once

#include "charts/spectrum_chart_view.h"

class GVRViewFreqSignalDesign : public GVRSpectrumChartView {
    Q_OBJECT
public:
    explicit GVRViewFreqSignalDesign(QWidget* parent = nullptr);
};
