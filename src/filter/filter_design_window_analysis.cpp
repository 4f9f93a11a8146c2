// The filter designer window's analysis additions: the Measured tab beside
// the results panel, the "Word Length" chart in the chart stack, and the
// foldable Mask section with its design. The analysis is computed only while
// its tab or chart is on screen.
#include "filter/filter_design_window.h"

#include "charts/view_filt_design.h"
#include "charts/view_results.h"
#include "charts/word_length_chart.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "filter/filter_keys.h"
#include "filter/mask_design.h"
#include "filter/mask_section.h"
#include "filter/measured_panel.h"
#include "widgets/number_field.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr int kWordLengthChart = 2; // item of the chart pop-up after "Magnitude,Phase"

} // namespace

std::vector<double> GVRWinFilterDesign::theCoefficients() const
{
    return dBmagAndPhaseArray_.empty() ? std::vector<double>() : filterDesignModel_.filterCoefficients();
}

std::vector<double> GVRWinFilterDesign::thePrecisionCoefficients() const
{
    return dBmagAndPhaseArray_.empty() ? std::vector<double>()
                                       : filterDesignModel_.filterPrecisionCoefficients();
}

std::optional<ToleranceMask> GVRWinFilterDesign::theMask() const
{
    return dBmagAndPhaseArray_.empty() ? std::nullopt : filterDesignModel_.design().mask;
}

void GVRWinFilterDesign::buildAnalysisControls(QVBoxLayout* chartColumn)
{
    chartStack_ = new QStackedWidget(this);
    wordLengthChart_ = new GVRViewWordLength(chartStack_);
    wordLengthChart_->setObjectName(QStringLiteral("viewWordLength"));
    chartStack_->addWidget(viewFiltDesign_);
    chartStack_->addWidget(wordLengthChart_);
    chartColumn->addWidget(chartStack_, 1);

    resultsTabs_ = new QTabWidget(this);
    resultsTabs_->setObjectName(QStringLiteral("resultsTabs"));
    measuredPanel_ = new MeasuredPanel(resultsTabs_);
    measuredPanel_->setObjectName(QStringLiteral("measuredPanel"));
    measuredPanel_->clear();
    resultsTabs_->addTab(viewResult_, tr("Results"));
    resultsTabs_->addTab(measuredPanel_, tr("Measured"));
    chartColumn->addWidget(resultsTabs_, 0);
    connect(resultsTabs_, &QTabWidget::currentChanged, this, [this] { refreshAnalysis(); });
}

QWidget* GVRWinFilterDesign::buildMaskSection()
{
    maskSection_ = new MaskSection(this);
    connect(maskSection_, &MaskSection::designToMaskRequested, this,
            &GVRWinFilterDesign::pressDesignToMaskBut);
    // "Equiripple" stands in the window pop-up's place while an equiripple design is shown.
    equirippleLabel_ = new QLabel(tr("Equiripple"), this);
    equirippleLabel_->setObjectName(QStringLiteral("equirippleLabel"));
    equirippleLabel_->hide();
    if (auto* grid = qobject_cast<QGridLayout*>(windowTypePopUp_->parentWidget()->layout())) {
        int row = 0, column = 0, rows = 0, columns = 0;
        grid->getItemPosition(grid->indexOf(windowTypePopUp_), &row, &column, &rows, &columns);
        grid->addWidget(equirippleLabel_, row, column, rows, columns);
    }
    return maskSection_;
}

bool GVRWinFilterDesign::showWordLengthChart()
{
    const bool wordLength = chartTypePopUp_->currentIndex() == kWordLengthChart;
    chartStack_->setCurrentWidget(wordLength ? static_cast<QWidget*>(wordLengthChart_) : viewFiltDesign_);
    if (!wordLength)
        return false;
    std::vector<double> bits, attenuation;
    double doubleDb = NAN;
    if (filterDesignModel_.validResultsFlag() && !filterDesignModel_.filterCoefficients().empty()) {
        for (const SweepRow& row : filterDesignModel_.wordLengthSweep()) {
            if (row.bits == 0) {
                doubleDb = row.stopbandAttenuationDb;
                continue;
            }
            bits.push_back(row.bits);
            attenuation.push_back(row.stopbandAttenuationDb);
        }
    }
    const int width = filterDesignModel_.filterWidth();
    wordLengthChart_->setSweep(std::move(bits), std::move(attenuation), doubleDb, widthBits(width));
    return true;
}

void GVRWinFilterDesign::refreshAnalysis()
{
    const bool equiripple =
        filterDesignModel_.validResultsFlag() && filterDesignModel_.design().designMethod == 1;
    windowTypePopUp_->setVisible(!equiripple);
    equirippleLabel_->setVisible(equiripple);
    if (equiripple)
        nameBetaUpsilon_->hide(), betaUpsilonField_->hide();
    if (resultsTabs_->currentWidget() == measuredPanel_)
        measuredPanel_->showDesign(filterDesignModel_);
    if (chartTypePopUp_->currentIndex() == kWordLengthChart)
        showWordLengthChart();
}

void GVRWinFilterDesign::pressDesignToMaskBut()
{
    const int units = unitsPopUp_->currentIndex();
    const QVariantMap parameters{
        {KEYFP_UNITS, units},
        {KEYFP_FILTER_TYPE, filterTypePopUp_->currentIndex()},
        {KEYFP_SAMPLING_FREQ, thetaSamplingField_->doubleValue()},
        {KEYFP_FILTER_WIDTH, bitWidthPopUp_->currentIndex()},
    };
    if (!filterDesignModel_.designFilterToMask(parameters, maskSection_->method(), maskSection_->typedMask()))
        return;
    if (!filterDesignModel_.validResultsFlag())
        return;
    // The specified fields now describe the design, so everything downstream sees an ordinary one.
    const double half = units == 0 ? 1.0 : 0.5 * filterDesignModel_.thetaSamplingFreq();
    filterLengthStepper_->setValue(static_cast<int>(filterDesignModel_.filterLengthN()));
    windowTypePopUp_->setCurrentIndex(filterDesignModel_.windowType());
    betaUpsilonField_->setDoubleValue(filterDesignModel_.betaUpsilon());
    thetaCutoffField_->setDoubleValue(filterDesignModel_.typedCutoffNormalized() * half);
    if (filterTypePopUp_->currentIndex() == 1)
        thetaCenterField_->setDoubleValue(filterDesignModel_.thetaCenterFreqNormalized() * half);
    updateUnitsAndHiddenFields();
    refreshAnalysis();
}

void GVRWinFilterDesign::redesignAfterOpen()
{
    const auto& restored = filterDesignModel_.restoredMask();
    if (!restored) {
        pressDesignFilterBut();
        return;
    }
    const int units = unitsPopUp_->currentIndex();
    const double half = units == 0 ? 1.0 : 0.5 * thetaSamplingField_->doubleValue();
    ToleranceMask typed = restored->second;
    for (double* edge : {&typed.passband[0], &typed.passband[1], &typed.stopband[0], &typed.stopband[1]})
        *edge *= half;
    maskSection_->restore(restored->first, typed);
    const QVariantMap parameters{
        {KEYFP_UNITS, units},
        {KEYFP_FILTER_TYPE, filterTypePopUp_->currentIndex()},
        {KEYFP_SAMPLING_FREQ, thetaSamplingField_->doubleValue()},
        {KEYFP_FILTER_WIDTH, bitWidthPopUp_->currentIndex()},
    };
    // The saved length, not a new search: the file's design comes back as it was.
    filterDesignModel_.designFilterToMask(parameters, restored->first, typed, filterLengthStepper_->value());
    refreshAnalysis();
}
