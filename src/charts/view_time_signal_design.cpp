// The time chart of the signal design window.
#include "charts/view_time_signal_design.h"

GVRViewTimeSignalDesign::GVRViewTimeSignalDesign(QWidget* parent) : GVRTimeChartView(0, 8, parent) {}

void GVRViewTimeSignalDesign::setZoomLevel(double zoom)
{
    setZoom(static_cast<float>(zoom));
}
