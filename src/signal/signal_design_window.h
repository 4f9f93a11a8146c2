// GVRWinSignalDesign: the signal designer window. The form (function
// stepper, units, sampling frequency and six function parameters whose
// symbols, tool tips and unit captions follow the chosen function) turns
// into the ten-entry signal parameter dictionary for GVRSignalDesignerModel;
// the model's notes and result arrays go to the note line, the time chart
// and the spectrum chart, and the formula panel shows the chosen function.
// Switching units rescales the fields they apply to and designs again. New,
// Open, Save and Save As run through the shared design file sheets.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include <QMainWindow>
#include <QStringList>
#include <QVariantMap>

#include "charts/freq_array_source.h"
#include "charts/time_array_source.h"
#include "signal/signal_design_view.h"
#include "signal/signal_designer_model.h"

class DesignFileCommands;
class DesignLibrary;
class GVRNumberField;
class GVRViewFreqSignalDesign;
class GVRViewFuncSignalDesign;
class GVRViewTimeSignalDesign;
class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

class GVRWinSignalDesign : public QMainWindow,
                           public SignalDesignView,
                           public TimeArraySource,
                           public FreqArraySource {
    Q_OBJECT
public:
    static constexpr int kParms = 6;
    static constexpr int kFunctions = 11;

    explicit GVRWinSignalDesign(DesignLibrary& library, QWidget* parent = nullptr);
    ~GVRWinSignalDesign() override;

    // "MHz,KHz", "V,mV", "μS,mS", "x1,x2,…,x256".
    static const QStringList& freqUnitsTitle();
    static const QStringList& voltUnitsTitle();
    static const QStringList& timeUnitsTitle();
    static const QStringList& zoomLevelsTitle();
    // Symbol of parameter slot `slot` (0..5) for signal function `function` (0..10).
    static QString parmTitle(int slot, int function);

    // SignalDesignView: called back by the model.
    void displayNoteField(const QString& text, double value, bool withValue) override;
    void plotTimeWithArray(const std::vector<double>& timeArray) override;
    void plotFreqWithArray(const std::vector<double>& freqArray) override;
    void restoreSignalParameters(const QVariantMap& parameters) override;

    // The charts pull the last result arrays from here.
    std::vector<double> theTimeArray() const override { return timeArray_; }
    std::vector<double> theFreqArray() const override { return freqArray_; }

    // Refills the unit lists (MHz and V selected); without `mandatory` only when not filled yet.
    void initPopUpsWithMandatoryFlag(bool mandatory);
    // Zoom stepper back to 4 ("x16"); the time chart is not told.
    void initSteppers();
    // Symbols, tool tips and unit captions of the chosen function and units.
    void updateUnitsAndHiddenFields();
    // Empties fs and the six parameters, then initSteppers().
    void clearSignalDesignParameters();

    bool windowIsKeyWindow() const;

    // Name of the current design (no extension); none while untitled.
    std::optional<QString> signalFilename() const;
    const QVariantMap& signalParameterDictionary() const { return signalParameterDictionary_; }
    int previousFreqUnitsSelected() const { return previousFreqUnitsSelected_; }
    int previousVoltUnitsSelected() const { return previousVoltUnitsSelected_; }
    GVRSignalDesignerModel& signalDesignerModel() { return signalDesignerModel_; }
    DesignFileCommands* fileCommands() const { return fileCommands_; }

    // Controls, for the menu routing and for tests that drive the window.
    QComboBox* freqUnitsPopUp() const { return freqUnitsPopUp_; }
    QComboBox* voltUnitsPopUp() const { return voltUnitsPopUp_; }
    GVRNumberField* freqSampField() const { return freqSampField_; }
    QLabel* freqUnitsLabel() const { return freqUnitsLabel_; }
    // slot 0..5 for parm1..parm6.
    GVRNumberField* parmField(int slot) const { return parmFields_.at(slot); }
    QLabel* parmLabel(int slot) const { return parmLabels_.at(slot); }
    QLabel* parmUnitsLabel(int slot) const { return parmUnitsLabels_.at(slot); }
    QGroupBox* parmBox() const { return parmBox_; }
    QLabel* noteField() const { return noteField_; }
    QPushButton* designSignalBut() const { return designSignalBut_; }
    QSpinBox* yFuncStepper() const { return yFuncStepper_; }
    // The zoom stepper shows its magnification caption ("x16") as its text.
    QSpinBox* zoomStepper() const { return zoomStepper_; }
    GVRViewFreqSignalDesign* viewFreqSignalDesign() const { return viewFreqSignalDesign_; }
    GVRViewTimeSignalDesign* viewTimeSignalDesign() const { return viewTimeSignalDesign_; }
    GVRViewFuncSignalDesign* viewFuncSignalDesign() const { return viewFuncSignalDesign_; }
    // Window-level New, Open, Save and Save As (Ctrl+N, Ctrl+O, Ctrl+S, Ctrl+Shift+S).
    QList<QAction*> fileActions() const { return fileActions_; }

public slots:
    void showGVRWinSignalDesign();

    // File menu commands routed here while the window is active.
    void newMenuItem();
    void openMenuItem();
    void saveMenuItem();
    void saveAsMenuItem();

    void pressDesignSignalBut();
    // A unit chosen in either list (also the same one again).
    void selectFreqUnitsPopUpBut(int index);
    void selectVoltUnitsPopUpBut(int index);
    void pressYStepperBut(int function);
    void pressZoomStepperBut(int level);

protected:
    // Asks Save, Don't Save or Cancel first when the design was edited.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    QWidget* buildForm();
    void createFileActions();
    void setToolTips();
    void connectControls();
    int functionIndex() const;
    // Multiplies the fields that hold a number; empty ones stay empty (they read as 0).
    void scaleFields(const QList<GVRNumberField*>& fields, double factor);

    GVRSignalDesignerModel signalDesignerModel_;
    DesignFileCommands* fileCommands_ = nullptr;

    int previousFreqUnitsSelected_ = 0;
    int previousVoltUnitsSelected_ = 0;
    QVariantMap signalParameterDictionary_;
    std::vector<double> timeArray_;
    std::vector<double> freqArray_;

    QComboBox* freqUnitsPopUp_ = nullptr;
    QComboBox* voltUnitsPopUp_ = nullptr;
    GVRNumberField* freqSampField_ = nullptr;
    QLabel* freqUnitsLabel_ = nullptr;
    std::array<GVRNumberField*, kParms> parmFields_{};
    std::array<QLabel*, kParms> parmLabels_{};
    std::array<QLabel*, kParms> parmUnitsLabels_{};
    QGroupBox* parmBox_ = nullptr;
    QLabel* noteField_ = nullptr;
    QPushButton* designSignalBut_ = nullptr;
    QSpinBox* yFuncStepper_ = nullptr;
    QSpinBox* zoomStepper_ = nullptr;
    GVRViewFreqSignalDesign* viewFreqSignalDesign_ = nullptr;
    GVRViewTimeSignalDesign* viewTimeSignalDesign_ = nullptr;
    GVRViewFuncSignalDesign* viewFuncSignalDesign_ = nullptr;
    QList<QAction*> fileActions_;
};
