// The time chart of the project window.
#include "charts/view_proj_time.h"

namespace {

// Header and first sample of the input and output halves of the project time array.
constexpr int kInputHeader = 0;
constexpr int kInputSamples = 16;
constexpr int kOutputHeader = 8;
constexpr int kOutputSamples = 16400;
constexpr int kSingleRecordSamples = 8;

} // namespace

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
    setBases(kInputHeader, kSingleRecordSamples);
}
