// GVRSignalDesignerModel: the non-visual half of the signal designer. It
// takes the window's ten-entry parameter dictionary, checks it for the
// chosen signal function, synthesises 16384 samples with their spectrum and
// hands both result arrays back to the window.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <QString>
#include <QVariantMap>

#include "library/design_outcome.h"

class DesignLibrary;
class SignalDesignView;

class GVRSignalDesignerModel {
public:
    static constexpr std::size_t kHeaderLength = 8;
    static constexpr std::size_t kTimeArrayLength = 16392; // header + 16384 samples
    static constexpr std::size_t kFreqArrayLength = 8200;  // header + 8192 magnitudes

    // `library` is where designs are saved and opened; it must outlive the model.
    explicit GVRSignalDesignerModel(DesignLibrary& library) : library_(library) {}

    void setWinSignalDesign(SignalDesignView* window) { winSignalDesign_ = window; }
    SignalDesignView* winSignalDesign() const { return winSignalDesign_; }

    // Entry point from the window: stores the values, checks them and, when
    // they pass, designs the signal. A dictionary without exactly the ten
    // KEYSP_ entries is ignored; a failed check leaves the previous results.
    DesignOutcome designSignalWithParameters(const QVariantMap& parameters);
    // How the last design request ended (Refused before the first).
    DesignOutcome lastOutcome() const { return lastOutcome_; }
    // Forgets the results, as New does: nothing to save until the next design.
    void clearDesign();

    // Clears the note line and checks the stored values for the stored
    // signal function; the first failing rule goes to the note line.
    bool checkAllParameters();

    // After a design: the note "OPTIMAL RATE: f samp ≥ 10 fₐ" when fs is
    // below ten times the highest signal frequency, else an empty note.
    void optimalSamplingRateCheck();

    // A parameter dictionary as the window builds it.
    static QVariantMap parameterDictionary(std::int64_t freqUnits, std::int64_t voltUnits,
                                           double samplingFreq, double yStepIndex,
                                           const std::array<double, 6>& parms);

    // Results of the last successful design.
    const std::vector<double>& timeDomainArray() const { return timeDomainArray_; }
    const std::vector<double>& freqDomainArray() const { return freqDomainArray_; }
    bool validResultsFlag() const { return validResultsFlag_; }
    double max_amplitude() const { return max_amplitude_; }
    double min_amplitude() const { return min_amplitude_; }
    double max_freq() const { return max_freq_; }

    // Values of the last parameter dictionary, kept even when it was refused.
    std::int64_t freqUnits() const { return freqUnits_; }
    std::int64_t voltUnits() const { return voltUnits_; }
    double yStepIndex() const { return yStepIndex_; }
    double samplingFreq() const { return samplingFreq_; }
    double parm1() const { return parms_[0]; }
    double parm2() const { return parms_[1]; }
    double parm3() const { return parms_[2]; }
    double parm4() const { return parms_[3]; }
    double parm5() const { return parms_[4]; }
    double parm6() const { return parms_[5]; }
    const std::array<double, 6>& parms() const { return parms_; }

    // Design files (definitions in signal_designer_model_files.cpp), in the
    // library the model was made with; a save announces itself through it.
    DesignLibrary& library() const { return library_; }
    // False, with the reason in lastFileError(): no valid results, empty name, or write failed.
    bool saveSignalDesignWithFileName(const QString& name);
    // False, with the reason in lastFileError(): empty name, unreadable file, incomplete record.
    bool openSignalDesignWithFileName(const QString& name);
    QString lastFileError() const { return lastFileError_; }

    // The ten entries rebuilt from an opened file, for the window's restoration.
    QVariantMap& signalRestorationDictionary() { return signalRestorationDictionary_; }

private:
    // fs > 0, amplitude ≠ 0, 0 < freq < fs/2, in that order (refusing at the first broken rule).
    bool checkTone(double amplitude, double freq);
    bool checkTrigSingle();
    bool checkTrigDouble();
    bool checkTrigSummation();
    bool checkNoise();
    bool checkMixer();
    bool checkRectangle();
    bool checkSinc();
    // Rules beyond the listed ones: every value the function uses is finite
    // and the unit codes are known. `symbols` names parm1.. in order.
    bool checkFiniteAndUnits(std::initializer_list<const char*> symbols);
    bool refuse(const QString& message);
    bool refuse(const QString& message, double value);

    void designSignal();
    void note(const QString& text, double value, bool withValue);

    // The values that made the arrays above; a save writes these, not the
    // values of a dictionary refused since.
    struct Designed {
        std::int64_t freqUnits = 0;
        std::int64_t voltUnits = 0;
        double yStepIndex = 0.0;
        double samplingFreq = 0.0;
        std::array<double, 6> parms{};
    };
    Designed designed_;
    DesignOutcome lastOutcome_ = DesignOutcome::Refused;
    std::vector<double> timeDomainArray_;
    std::vector<double> freqDomainArray_;
    bool validResultsFlag_ = false;
    std::int64_t freqUnits_ = 0;
    std::int64_t voltUnits_ = 0;
    double yStepIndex_ = 0.0;
    double samplingFreq_ = 0.0;
    std::array<double, 6> parms_{};
    double max_amplitude_ = 0.0;
    double min_amplitude_ = 0.0;
    double max_freq_ = 0.0;
    QVariantMap signalRestorationDictionary_;
    SignalDesignView* winSignalDesign_ = nullptr;
    DesignLibrary& library_;
    QString lastFileError_;
    // Reused between designs.
    std::vector<double> workSignal_;
    std::vector<double> workSpectrum_;
    std::vector<double> spareTime_;
    std::vector<double> spareFreq_;
};
