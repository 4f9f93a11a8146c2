// The spectrum chart of the project window.
#include "charts/view_proj_freq.h"

namespace {

// Header and first bin of the input and output halves of the project frequency array.
constexpr int kInputHeader = 0;
constexpr int kInputBins = 16;
constexpr int kOutputHeader = 8;
constexpr int kOutputBins = 8208;
constexpr int kSingleRecordBins = 8;

} // namespace

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
    setBases(kInputHeader, kSingleRecordBins);
}
