// The time chart of the project window.
#include "charts/view_proj_time.h"

#include "charts/project_array_layout.h"
using namespace projectarrays;

GVRViewProjTime::GVRViewProjTime(QWidget* parent) : GVRTimeChartView(kInputHeader, kInputSamples, parent) {}

void GVRViewProjTime::setZoomLevel(int zoom)
{
    setZoom(static_cast<float>(zoom));
}

void GVRViewProjTime::selectChartOne(bool input)
{
    showsInput_ = input;
    if (input)
        setBases(kInputHeader, kInputSamples);
    else
        setBases(kOutputHeader, kOutputSamples);
}

void GVRViewProjTime::selectSingleRecord()
{
    showsInput_ = false;
    setBases(kSingleRecordHeader, kSingleRecordFirst);
}
