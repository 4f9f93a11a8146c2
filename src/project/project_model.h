// GVRProjectModel: the non-visual half of the project window. It combines
// two saved signals and a saved (or automatic) filter in the Sum & Filter
// or the Multirate model and hands the input and output, in time and in
// frequency, back to the window.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <QString>
#include <QVariantMap>

#include "archive/filter_record.h"
#include "archive/project_record.h"
#include "archive/signal_record.h"
#include "library/design_outcome.h"

class DesignLibrary;
class DesignSource;
class LibraryDesignSource;
class ProjectView;

class GVRProjectModel {
public:
    static constexpr std::size_t kSamples = 16384;
    static constexpr std::size_t kHeaderLength = 8;
    static constexpr std::size_t kTimeArrayLength = 32784; // 2 headers + x + y
    static constexpr std::size_t kFreqArrayLength = 16400; // 2 headers + |X| + |Y|
    static constexpr double kRateTolerance = 1e-6;

    // `library` holds the project files' designs and must outlive the model.
    explicit GVRProjectModel(DesignLibrary& library);
    ~GVRProjectModel();
    GVRProjectModel(const GVRProjectModel&) = delete;
    GVRProjectModel& operator=(const GVRProjectModel&) = delete;

    // Where the named designs are read from instead of the library (null: the
    // library again); the model does not own it.
    void setDesignSource(const DesignSource* source);
    const DesignSource* designSource() const { return library_; }
    void setWinProject(ProjectView* window) { winProject_ = window; }
    ProjectView* winProject() const { return winProject_; }

    // Entry point from the window: copies the values, checks them silently
    // and designs. A dictionary without exactly the nine KEYMOD_ entries or
    // with a value out of range does nothing.
    DesignOutcome designProjectWithParameters(const QVariantMap& parameters);
    // How the last design request ended (Refused before the first).
    DesignOutcome lastOutcome() const { return lastOutcome_; }
    // Forgets the results, as New and a change of model do: nothing to save
    // until the next design.
    void clearDesign();
    // The project record of the last successful design: what a save writes.
    const GVRProject& designedProject() const { return designed_; }

    // Names non-empty, diagram 1 or 2, sign codes 0..2, L and M 1..12,
    // filter type 0 or 1.
    bool checkAllParameters() const;

    // A parameter dictionary as the window builds it.
    static QVariantMap parameterDictionary(int blockDiagramNumber, const QString& filterName,
                                           const QString& signalOneName, const QString& signalTwoName,
                                           int signalOneSign, int signalTwoSign, int multirateL,
                                           int multirateM, int multirateFilterType);

    // Results of the last successful design (kept when a later one fails).
    const std::vector<double>& timeDomainArray() const { return timeDomainArray_; }
    const std::vector<double>& freqDomainArray() const { return freqDomainArray_; }
    // False from the start of every design until its results are in.
    bool validResultsFlag() const { return validResultsFlag_; }

    // The Multirate model's inner sequences: w[m], the zero-inserted input,
    // and p[m], its filtered form before decimation.
    enum class MultirateStage { Upsampled, Filtered };
    struct StageArrays {
        std::vector<double> time; // kStageTimeLength: header + the first 16384 samples at L·fs
        std::vector<double> freq; // kStageFreqLength: header + 8192 magnitude bins
    };
    static constexpr std::size_t kStageTimeLength = 16392;
    static constexpr std::size_t kStageFreqLength = 8200;
    // One sequence of the last successful Multirate design, worked out on
    // demand, in the signal window's layout: rate L·fs, the input's units
    // (volts as the input chart, frequency unit and code), maxFreq L·fs/2 so
    // the spectrum spans the whole band. Empty arrays without such a design.
    StageArrays multirateStageArrays(MultirateStage stage) const;

    // Values of the last parameter dictionary.
    int blockDiagramNumber() const { return blockDiagramNumber_; }
    int multirateFilterType() const { return multirateFilterType_; }
    int signalOneSign() const { return signalOneSign_; }
    int signalTwoSign() const { return signalTwoSign_; }
    int multirateL() const { return multirateL_; }
    int multirateM() const { return multirateM_; }
    const QString& filterName() const { return filterName_; }
    const QString& signalOneName() const { return signalOneName_; }
    const QString& signalTwoName() const { return signalTwoName_; }

    // Records read by the last design (empty records before the first).
    const GVRSignal& signalOneRecord() const { return signalOneRecord_; }
    const GVRSignal& signalTwoRecord() const { return signalTwoRecord_; }
    const GVRFilter& filterOneRecord() const { return filterOneRecord_; }

    // Project files (definitions in project_model_files.cpp). The design source
    // lists the design names a project may refer to.
    DesignLibrary& library() const { return designLibrary_; }
    // False, with the reason in lastFileError(): no valid results, empty path, or write failed.
    bool saveProjectWithFilePath(const QString& path);
    // False, with the reason in lastFileError(): unreadable file, incomplete record, or a
    // signal or filter it names is not in the library.
    bool openProjectWithFilePath(const QString& path);
    QString lastFileError() const { return lastFileError_; }

    // The nine entries rebuilt from an opened project file.
    QVariantMap& projectRestorationDictionary() { return projectRestorationDictionary_; }

private:
    void designProject();
    void note(const QString& text);

    GVRProject designed_;
    DesignOutcome lastOutcome_ = DesignOutcome::Refused;
    std::vector<double> timeDomainArray_;
    std::vector<double> freqDomainArray_;
    bool validResultsFlag_ = false;
    int blockDiagramNumber_ = 0;
    int multirateFilterType_ = 0;
    int signalOneSign_ = 0;
    int signalTwoSign_ = 0;
    int multirateL_ = 0;
    int multirateM_ = 0;
    QString filterName_;
    QString signalOneName_;
    QString signalTwoName_;
    QVariantMap projectRestorationDictionary_;
    // What multirateStageArrays() works from: the summed input x[n] in its
    // volt unit, the filter taps and the input's chart header values.
    std::vector<double> stageInput_;
    std::vector<double> stageTaps_;
    double stageFs_ = 0.0;
    int stageL_ = 1;
    int stageM_ = 1;
    int stageVolt_ = 0;
    int stageFreqCode_ = 0;
    GVRSignal signalOneRecord_;
    GVRSignal signalTwoRecord_;
    GVRFilter filterOneRecord_;
    DesignLibrary& designLibrary_;
    std::unique_ptr<LibraryDesignSource> ownSource_; // reads designLibrary_
    const DesignSource* library_ = nullptr;          // never null
    ProjectView* winProject_ = nullptr;
    QString lastFileError_;
};
