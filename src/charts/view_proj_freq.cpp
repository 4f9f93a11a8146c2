// The spectrum chart of the project window.
#include "charts/view_proj_freq.h"

#include "charts/project_array_layout.h"
using namespace projectarrays;

GVRViewProjFreq::GVRViewProjFreq(QWidget* parent) : GVRSpectrumChartView(kInputHeader, kInputBins, parent) {}

void GVRViewProjFreq::selectChartOne(bool input)
{
    showsInput_ = input;
    if (input)
        setBases(kInputHeader, kInputBins);
    else
        setBases(kOutputHeader, kOutputBins);
}

void GVRViewProjFreq::selectSingleRecord()
{
    showsInput_ = false;
    setBases(kSingleRecordHeader, kSingleRecordFirst);
}
