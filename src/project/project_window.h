// GVRWinProject: the one project window. It serves both system models, the
// "Sum & Filter Model" (mode 1) and the "Multirate Model" (mode 2): the user
// picks two saved signals with their multipliers and a saved filter (in mode 2
// also L, M and the user/automatic filter), designs, and sees the input and
// output in time and frequency beside the block diagram. Projects are opened
// and saved through the shared design file sheets.
#pragma once

#include <optional>
#include <vector>

#include <QMainWindow>
#include <QStringList>
#include <QVariantMap>

#include "charts/freq_array_source.h"
#include "charts/time_array_source.h"
#include "project/project_model.h"
#include "widgets/deferred_work.h"
#include "library/file_identity.h"
#include "project/project_view.h"

class DesignFileCommands;
class DesignLibrary;
class GVRViewBlockDiagram;
class GVRViewProjFreq;
class GVRViewProjTime;
class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QStringListModel;

class GVRWinProject : public QMainWindow, public ProjectView, public TimeArraySource, public FreqArraySource {
    Q_OBJECT
public:
    // Columns of the user/automatic filter choice.
    enum FilterChoice { UserFilter = 0, AutoFilter = 1 };

    explicit GVRWinProject(DesignLibrary& library, QWidget* parent = nullptr);
    ~GVRWinProject() override;

    int blockDiagramNumber() const { return blockDiagramNumber_; }
    // The mode's project folder (projectOne or projectTwo of the library).
    QString projectDirectory() const { return projectDirectory_; }
    // Name of the current project (no extension); none while untitled.
    std::optional<QString> projectFilename() const;

    // "x1,x2,x4,…,x256"; "Input: x[n],Output: y[n]"; "Input: x[n],Output: y[k]"; "+1,-1,0".
    static const QStringList& zoomLevelsTitle();
    static const QStringList& graphTitle1();
    static const QStringList& graphTitle2();
    static const QStringList& signTitle();
    // Graph items the Multirate model adds after its two: "Upsampled: w[m]", "Filtered: p[m]".
    static const QStringList& stageGraphTitles();

    // ProjectView: called back by the model.
    void displayNoteField(const QString& text, double value, bool withValue) override;
    void plotTimeWithArray(const std::vector<double>& timeArray) override;
    void plotFreqWithArray(const std::vector<double>& freqArray) override;
    void restoreProjectParameters(const QVariantMap& parameters) override;

    // The charts pull their data from here.
    // While a multirate stage is shown, its arrays (signal layout) instead.
    std::vector<double> theTimeArray() const override;
    std::vector<double> theFreqArray() const override;
    // 0 none; 1 w[m]; 2 p[m] (Graph items 2 and 3 of the Multirate model).
    int shownStage() const { return shownStage_; }

    // The dictionary the design button last built (nine KEYMOD_ entries).
    const QVariantMap& projectParameterDictionary() const { return projectParameterDictionary_; }
    GVRProjectModel& projectModel() { return projectModel_; }
    DesignFileCommands* fileCommands() const { return fileCommands_; }

    // Controls, for the menu routing and for tests that drive the window.
    QComboBox* signalOnePopUp() const { return signalOnePopUp_; }
    QComboBox* signalTwoPopUp() const { return signalTwoPopUp_; }
    QComboBox* signalOneSignPopUp() const { return signalOneSignPopUp_; }
    QComboBox* signalTwoSignPopUp() const { return signalTwoSignPopUp_; }
    QComboBox* filterPopUp() const { return filterPopUp_; }
    QComboBox* graphPopUp() const { return graphPopUp_; }
    QRadioButton* userFilterButton() const { return userFilterBut_; }
    QRadioButton* autoFilterButton() const { return autoFilterBut_; }
    QSpinBox* multirateLStepper() const { return multirateLStepper_; }
    QSpinBox* multirateMStepper() const { return multirateMStepper_; }
    QSpinBox* zoomStepper() const { return zoomStepper_; }
    QLabel* noteField() const { return noteField_; }
    QLabel* filterLabel() const { return filterLabel_; }
    QLabel* multirateLLabel() const { return multirateLLabel_; }
    QLabel* multirateMLabel() const { return multirateMLabel_; }
    QPushButton* designButton() const { return designBut_; }
    GVRViewProjTime* viewProjTime() const { return viewProjTime_; }
    GVRViewProjFreq* viewProjFreq() const { return viewProjFreq_; }
    GVRViewBlockDiagram* viewBlockDiagram() const { return viewBlockDiagram_; }

    // Whether the project window is the active window (menu routing).
    bool windowIsKeyWindow() const;

public slots:
    // The two modes: "Sum & Filter Model" and "Multirate Model".
    void showGVRWinProjectOne();
    void showGVRWinProjectTwo();

    // File menu commands routed here while the window is active.
    void newMenuItem();
    void openMenuItem();
    void saveMenuItem();
    void saveAsMenuItem();

    void pressDesignBut();
    // Refills the name lists from the library, keeping the user's choices.
    void handleNewFilterOrSignalFile();

protected:
    // Asks Save, Don't Save or Cancel first when the project was edited.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void connectEdits();
    void switchToMode(int mode);
    QWidget* buildForm();
    void setToolTips();
    void showInMode(int mode);
    void showProjectWindow();
    void initPopUpsWithMandatoryFlag(bool mandatory);
    // The filter and signal pop-ups' names, read from the library folders.
    void listDesignNames();
    void ensureDesignNamesListed();
    // True unless both folders are provably as they were when the pop-ups
    // were last filled.
    bool designFoldersChanged() const;
    void updateUnitsAndHiddenFields();
    void initSteppers();
    void clearCharts();
    void selectGraphPopUpBut(int index);
    // Works out the shown stage's arrays from the model (project_window_stages.cpp).
    void refreshStageArrays();
    void pressZoomStepperBut(int value);
    void setGraphTitles();
    static void selectTitle(QComboBox* popUp, const QString& title);

    DesignLibrary& library_;
    // The filter and signal folders as they were when the pop-ups were filled.
    struct FolderStamp {
        std::optional<FileIdentity> filters;
        std::optional<FileIdentity> signalFolder;
        long long takenNs = 0;
    } listedFolders_;
    GVRProjectModel projectModel_;
    DesignFileCommands* fileCommands_ = nullptr;

    int blockDiagramNumber_ = 1;
    bool modeShown_ = false; // a mode entry point has set the window up
    QString restoreNote_;    // what an open had to limit, for the note line
    QString projectDirectory_;
    std::vector<double> timeArray_;
    std::vector<double> freqArray_;
    int shownStage_ = 0;
    std::vector<double> stageTimeArray_;
    std::vector<double> stageFreqArray_;
    QVariantMap projectParameterDictionary_;

    QComboBox* signalOnePopUp_ = nullptr;
    QComboBox* signalTwoPopUp_ = nullptr;
    QComboBox* signalOneSignPopUp_ = nullptr;
    QComboBox* signalTwoSignPopUp_ = nullptr;
    QComboBox* filterPopUp_ = nullptr;
    QStringListModel* filterNames_ = nullptr;
    QStringListModel* signalNames_ = nullptr;
    DeferredWork namesListing_;
    QComboBox* graphPopUp_ = nullptr;
    QButtonGroup* autoFilterGenBut_ = nullptr;
    QRadioButton* userFilterBut_ = nullptr;
    QRadioButton* autoFilterBut_ = nullptr;
    QWidget* autoFilterRow_ = nullptr;
    QSpinBox* multirateLStepper_ = nullptr;
    QSpinBox* multirateMStepper_ = nullptr;
    QSpinBox* zoomStepper_ = nullptr;
    QLabel* noteField_ = nullptr;
    QLabel* filterLabel_ = nullptr;
    QLabel* multirateLLabel_ = nullptr;
    QLabel* multirateMLabel_ = nullptr;
    QLabel* filterChoiceLabel_ = nullptr;
    QPushButton* designBut_ = nullptr;
    GVRViewProjTime* viewProjTime_ = nullptr;
    GVRViewProjFreq* viewProjFreq_ = nullptr;
    GVRViewBlockDiagram* viewBlockDiagram_ = nullptr;
};
