// GVRWinFilterDesign: the filter designer window. Its form turns into the
// nine-entry filter parameter dictionary for GVRFilterDesignerModel; the
// model answers with notes, results and the response array, which go to the
// note line, the results panel and the response chart. The form keeps its
// hidden fields and unit labels in step with units, type and window, and
// converts the typed frequencies when the units change. New, Open, Save and
// Save As run through the shared design file sheets.
#pragma once

#include <optional>
#include <vector>

#include <QMainWindow>
#include <QStringList>
#include <QVariantMap>

#include "charts/mag_phase_array_source.h"
#include "filter/filter_comparison.h"
#include "filter/filter_design_view.h"
#include "filter/filter_designer_model.h"

class DesignFileCommands;
class DesignLibrary;
class GVRNumberField;
class GVRViewFiltDesign;
class GVRViewResults;
class GVRViewWordLength;
class MaskSection;
class MeasuredPanel;
class QAction;
class QStackedWidget;
class QTabWidget;
class QVBoxLayout;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

class GVRWinFilterDesign : public QMainWindow, public GVRFilterDesignView, public MagPhaseArraySource {
    Q_OBJECT
public:
    explicit GVRWinFilterDesign(DesignLibrary& library, QWidget* parent = nullptr);
    ~GVRWinFilterDesign() override;

    // The pop-up lists' items: "Norm,KHz,MHz", "    ,KHz,MHz" (four blanks), the three
    // filter types, the fourteen widths, the eleven windows, "Magnitude,Phase".
    static const QStringList& unitsFieldTitle();
    static const QStringList& unitsFieldSampFreqTitle();
    static const QStringList& filterTypeTitle();
    static const QStringList& bitWidthTitle();
    static const QStringList& windowTypeTitle();
    static const QStringList& chartTypeTitle();

    // GVRFilterDesignView: called back by the model.
    void displayNoteField(const QString& text, double value, bool withValue) override;
    void displayFilterDesignResults(const QVariantMap& results) override;
    void plotMagnitudeAndPhaseWithArray(const std::vector<double>& array) override;
    void clearFilterDesignResults() override;
    void restoreFilterParameters(const QVariantMap& parameters) override;

    // The response chart pulls the last response array from here.
    std::vector<double> theMagPhaseArray() const override { return dBmagAndPhaseArray_; }
    std::vector<double> theCoefficients() const override;
    std::vector<double> thePrecisionCoefficients() const override;
    std::optional<ToleranceMask> theMask() const override;

    // Back to the defaults: stepper and length 25, the four frequency fields empty.
    void clearFilterDesignParameters();
    // Refills the pop-up lists with their default selections; without `mandatory`
    // only when they are not filled yet.
    void initializeWithMandatoryFlag(bool mandatory);
    // Shows and hides the fields the units, type and window call for and sets the unit labels.
    void updateUnitsAndHiddenFields();

    // Whether the designer is the active window (menu routing).
    bool windowIsKeyWindow() const;

    // Name of the current design (no extension); none while untitled.
    std::optional<QString> filterFilename() const;
    // The dictionary the design button last built.
    const QVariantMap& filterParameterDictionary() const { return filterParameterDictionary_; }
    int previousUnitsSelected() const { return previousUnitsSelected_; }
    GVRFilterDesignerModel& filterDesignModel() { return filterDesignModel_; }
    DesignFileCommands* fileCommands() const { return fileCommands_; }

    // Controls, for the menu routing and for tests that drive the window.
    QComboBox* unitsPopUp() const { return unitsPopUp_; }
    QComboBox* filterTypePopUp() const { return filterTypePopUp_; }
    QComboBox* bitWidthPopUp() const { return bitWidthPopUp_; }
    QComboBox* windowTypePopUp() const { return windowTypePopUp_; }
    QComboBox* chartTypePopUp() const { return chartTypePopUp_; }
    GVRNumberField* thetaSamplingField() const { return thetaSamplingField_; }
    GVRNumberField* thetaCutoffField() const { return thetaCutoffField_; }
    GVRNumberField* thetaCenterField() const { return thetaCenterField_; }
    GVRNumberField* betaUpsilonField() const { return betaUpsilonField_; }
    // The length field and its stepper are one spin box: 25 to 255 in odd steps, wrapping.
    QSpinBox* filterLengthStepper() const { return filterLengthStepper_; }
    QLabel* noteField() const { return noteField_; }
    QLabel* unitsSampFreq() const { return unitsSampFreq_; }
    QLabel* unitsCutoffFreq() const { return unitsCutoffFreq_; }
    QLabel* unitsCenterFreq() const { return unitsCenterFreq_; }
    QLabel* nameThetaSampling() const { return nameThetaSampling_; }
    QLabel* nameThetaCenter() const { return nameThetaCenter_; }
    QLabel* nameBetaUpsilon() const { return nameBetaUpsilon_; }
    QPushButton* designFilterBut() const { return designFilterBut_; }
    QPushButton* saveFilterBut() const { return saveFilterBut_; }
    GVRViewFiltDesign* viewFiltDesign() const { return viewFiltDesign_; }
    GVRViewResults* viewResult() const { return viewResult_; }
    // Measured analysis and design to a mask (filter_design_window_analysis.cpp).
    MeasuredPanel* measuredPanel() const { return measuredPanel_; }
    QTabWidget* resultsTabs() const { return resultsTabs_; }
    MaskSection* maskSection() const { return maskSection_; }
    GVRViewWordLength* wordLengthChart() const { return wordLengthChart_; }
    // Window-level New, Open, Save and Save As (Ctrl+N, Ctrl+O, Ctrl+S, Ctrl+Shift+S).
    QList<QAction*> fileActions() const { return fileActions_; }
    QPushButton* compareButton() const { return compareBut_; }
    QPushButton* clearComparisonButton() const { return clearComparisonBut_; }
    const std::vector<ComparedFilter>& comparedFilters() const { return compared_; }

public slots:
    void showGVRWinFilterDesign();

    // File menu commands routed here while the window is active.
    void newMenuItem();
    void openMenuItem();
    void saveMenuItem();
    void saveAsMenuItem();

    // Designs from the form; says how the model answered (Refused when the
    // form itself lacked a number).
    DesignOutcome pressDesignFilterBut();
    // A unit chosen in the units list (also the same one again).
    void selectUnitsPopUpBut(int index);
    void selectChartTypePopUpBut();
    // Designs the shortest filter that meets the mask section's mask.
    void pressDesignToMaskBut();
    // Compare…: a window-modal list of the saved filters; up to three chosen
    // are overlaid on the magnitude chart, none clears the overlay
    // (filter_design_window_compare.cpp).
    void pressCompareBut();
    // Overlays the named saved filters (at most three); false, with the reason
    // in an alert, when one cannot be read (the overlay then stays as it was).
    bool setComparedDesigns(const QStringList& names);
    void clearComparison();

protected:
    // Asks Save, Don't Save or Cancel first when the design was edited.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    QWidget* buildForm();
    void createFileActions();
    void setToolTips();
    void connectControls();
    void designFromForm();
    // The analysis additions: chart stack and results tabs, the mask section, their refresh.
    void buildAnalysisControls(QVBoxLayout* chartColumn);
    QWidget* buildMaskSection();
    void refreshAnalysis();
    // The Compare… and Clear Comparison buttons; the overlay drawn again for
    // the current design's units.
    QWidget* buildCompareRow(QWidget* parent);
    void refreshComparison();
    // True when the "Word Length" chart is chosen (and then shown).
    bool showWordLengthChart();
    // After an open: a mask design is made again from its mask, anything else as usual.
    void redesignAfterOpen();

    GVRFilterDesignerModel filterDesignModel_;
    DesignFileCommands* fileCommands_ = nullptr;

    int previousUnitsSelected_ = 2;
    std::vector<double> dBmagAndPhaseArray_;
    QVariantMap filterParameterDictionary_;

    QComboBox* unitsPopUp_ = nullptr;
    QComboBox* filterTypePopUp_ = nullptr;
    QComboBox* bitWidthPopUp_ = nullptr;
    QComboBox* windowTypePopUp_ = nullptr;
    QComboBox* chartTypePopUp_ = nullptr;
    GVRNumberField* thetaSamplingField_ = nullptr;
    GVRNumberField* thetaCutoffField_ = nullptr;
    GVRNumberField* thetaCenterField_ = nullptr;
    GVRNumberField* betaUpsilonField_ = nullptr;
    QSpinBox* filterLengthStepper_ = nullptr;
    QLabel* noteField_ = nullptr;
    QLabel* unitsSampFreq_ = nullptr;
    QLabel* unitsCutoffFreq_ = nullptr;
    QLabel* unitsCenterFreq_ = nullptr;
    QLabel* nameThetaSampling_ = nullptr;
    QLabel* nameThetaCutoff_ = nullptr;
    QLabel* nameThetaCenter_ = nullptr;
    QLabel* nameBetaUpsilon_ = nullptr;
    QPushButton* designFilterBut_ = nullptr;
    QPushButton* saveFilterBut_ = nullptr;
    GVRViewFiltDesign* viewFiltDesign_ = nullptr;
    GVRViewResults* viewResult_ = nullptr;
    QList<QAction*> fileActions_;
    MeasuredPanel* measuredPanel_ = nullptr;
    QTabWidget* resultsTabs_ = nullptr;
    QStackedWidget* chartStack_ = nullptr;
    GVRViewWordLength* wordLengthChart_ = nullptr;
    MaskSection* maskSection_ = nullptr;
    QLabel* equirippleLabel_ = nullptr;
    QPushButton* compareBut_ = nullptr;
    QPushButton* clearComparisonBut_ = nullptr;
    std::vector<ComparedFilter> compared_;
};
