// The spectrum chart of the signal design window.
#include "charts/view_freq_signal_design.h"

GVRViewFreqSignalDesign::GVRViewFreqSignalDesign(QWidget* parent) : GVRSpectrumChartView(0, 8, parent) {}
