// The project window's Graph choice: the system's input or output, or in the
// Multirate model one of its inner stages, w[m] after zero insertion or p[m]
// after the filter, with that stage marked on the block diagram.
#include "project/project_window.h"

#include "charts/view_block_diagram.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"

namespace {

constexpr int kInputItem = 0;
constexpr int kFirstStageItem = 2;

} // namespace

const QStringList& GVRWinProject::stageGraphTitles()
{
    static const QStringList titles =
        QStringLiteral("Upsampled: w[m],Filtered: p[m]").split(QLatin1Char(','));
    return titles;
}

std::vector<double> GVRWinProject::theTimeArray() const
{
    return shownStage_ != 0 ? stageTimeArray_ : timeArray_;
}

std::vector<double> GVRWinProject::theFreqArray() const
{
    return shownStage_ != 0 ? stageFreqArray_ : freqArray_;
}

void GVRWinProject::selectGraphPopUpBut(int index)
{
    const int stage = blockDiagramNumber_ != 1 && index >= kFirstStageItem ? index - kFirstStageItem + 1 : 0;
    shownStage_ = stage;
    viewBlockDiagram_->setHighlightedStage(stage == 1   ? DiagramStage::Upsampler
                                           : stage == 2 ? DiagramStage::Filter
                                                        : DiagramStage::None);
    if (stage == 0) {
        stageTimeArray_.clear();
        stageFreqArray_.clear();
        const bool input = index == kInputItem;
        viewProjTime_->selectChartOne(input);
        viewProjFreq_->selectChartOne(input);
        return;
    }
    refreshStageArrays();
    viewProjTime_->selectSingleRecord();
    viewProjFreq_->selectSingleRecord();
}

void GVRWinProject::refreshStageArrays()
{
    // Nothing designed (or the charts cleared): the stage charts are empty too.
    if (timeArray_.empty()) {
        stageTimeArray_.clear();
        stageFreqArray_.clear();
        return;
    }
    GVRProjectModel::StageArrays arrays =
        projectModel_.multirateStageArrays(shownStage_ == 1 ? GVRProjectModel::MultirateStage::Upsampled
                                                            : GVRProjectModel::MultirateStage::Filtered);
    stageTimeArray_ = std::move(arrays.time);
    stageFreqArray_ = std::move(arrays.freq);
}
