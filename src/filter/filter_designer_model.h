// GVRFilterDesignerModel: the headless half of the filter designer. It
// validates a filter parameter dictionary, designs the FIR filter by the
// window method, keeps every result, and reports back to its window through
// GVRFilterDesignView.
#pragma once

#include <QString>
#include <QVariantMap>

#include "dsp/filter_analysis.h"
#include "dsp/tolerance_mask.h"
#include "dsp/word_length_sweep.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "library/design_outcome.h"

class DesignLibrary;
class GVRFilterDesignView;

class GVRFilterDesignerModel {
public:
    // `library` is where designs are saved and opened; it must outlive the model.
    explicit GVRFilterDesignerModel(DesignLibrary& library);
    virtual ~GVRFilterDesignerModel();
    GVRFilterDesignerModel(const GVRFilterDesignerModel&) = delete;
    GVRFilterDesignerModel& operator=(const GVRFilterDesignerModel&) = delete;

    // The window the model reports to; may be null (nothing is reported).
    void setWindow(GVRFilterDesignView* window) { winFilterDesign_ = window; }
    GVRFilterDesignView* window() const { return winFilterDesign_; }

    // The whole design from the nine KEYFP_ parameters: validate, then firFilter().
    DesignOutcome designFilterWithParameters(const QVariantMap& parameters);
    // How the last design request ended (Refused before the first).
    DesignOutcome lastOutcome() const { return lastOutcome_; }
    // Forgets the results, as New does: nothing to save until the next design.
    void clearDesign();
    // Validates the stored parameters with the cutoff and centre as typed and sets the
    // normalised frequencies; on failure shows the first broken rule and returns false.
    bool checkParametersWithCutoffFreq(double cutoffFreq, double centerFreq);
    // The design pipeline on the stored, validated fields.
    void firFilter();
    // Fills the results dictionary (frequencies in the selected units) and sends it on.
    void displayFilterDesignResults();
    // 2 positive, 1 negative symmetry, anything else not symmetric.
    void displayNoticeWithSymmetry(int symmetry);

    // Every field a design leaves behind, as a saved design holds it. Opening a design
    // puts one back with restoreDesign().
    struct Design {
        bool validResultsFlag = false;
        double thetaSamplingFreq = 0.0;
        double filterLengthN = 0.0;
        double betaUpsilon = 0.0;
        double thetaCutoffFreqNormalized = 0.0;
        double thetaCenterFreqNormalized = 0.0;
        int filterType = 0;
        int windowType = 0;
        int filterWidth = 0;
        int unitsType = 0;
        double gimeldbLow = 0.0;
        double gimeldbHigh = 0.0;
        double gimeldbBandwidth = 0.0;
        double passbandRipple = 0.0;
        double dynamicRange = 0.0;
        double dynamicRangeError = 0.0;
        std::vector<std::int64_t> integerCoefficients;
        std::vector<double> filterCoefficients;
        std::vector<double> filterPrecisionCoefficients;
        // Design to a mask (filter_designer_model_mask.cpp): 0 window method, 1 equiripple;
        // the mask in normalised frequencies while one is set.
        int designMethod = 0;
        std::optional<ToleranceMask> mask;
    };
    const Design& design() const { return d_; }
    // The last design that produced valid results, parameters and results together:
    // what a save writes, whatever was typed and refused since.
    const Design& designedDesign() const { return designed_; }
    void restoreDesign(const Design& design)
    {
        d_ = design;
        designed_ = design;
    }

    bool validResultsFlag() const { return d_.validResultsFlag; }
    double thetaSamplingFreq() const { return d_.thetaSamplingFreq; }
    double filterLengthN() const { return d_.filterLengthN; }
    double betaUpsilon() const { return d_.betaUpsilon; }
    double thetaCutoffFreqNormalized() const { return d_.thetaCutoffFreqNormalized; }
    double thetaCenterFreqNormalized() const { return d_.thetaCenterFreqNormalized; }
    int filterType() const { return d_.filterType; }
    int windowType() const { return d_.windowType; }
    int filterWidth() const { return d_.filterWidth; }
    int unitsType() const { return d_.unitsType; }
    double gimeldbLow() const { return d_.gimeldbLow; }
    double gimeldbHigh() const { return d_.gimeldbHigh; }
    double gimeldbBandwidth() const { return d_.gimeldbBandwidth; }
    double passbandRipple() const { return d_.passbandRipple; }
    double dynamicRange() const { return d_.dynamicRange; }
    double dynamicRangeError() const { return d_.dynamicRangeError; }
    const std::vector<std::int64_t>& integerCoefficients() const { return d_.integerCoefficients; }
    const std::vector<double>& filterCoefficients() const { return d_.filterCoefficients; }
    const std::vector<double>& filterPrecisionCoefficients() const { return d_.filterPrecisionCoefficients; }
    const std::vector<double>& dBmagAndPhaseArray() const { return dBmagAndPhaseArray_; }
    const QVariantMap& filterResultsDictionary() const { return filterResultsDictionary_; }

    // Design files (definitions in filter_designer_model_files.cpp), in the
    // library the model was made with; a save announces itself through it.
    DesignLibrary& library() const { return library_; }
    // False, with the reason in lastFileError(): no valid results, empty name, or write failed.
    bool saveFilterDesignWithFileName(const QString& name);
    // False, with the reason in lastFileError(): empty name, unreadable file, incomplete record.
    bool openFilterDesignWithFileName(const QString& name);
    QString lastFileError() const { return lastFileError_; }
    // The nine KEYFP_ entries rebuilt from an opened file, for the window's restoration.
    const QVariantMap& filterRestorationDictionary() const { return filterRestorationDictionary_; }

    // Design to a tolerance mask (filter_designer_model_mask.cpp). `parameters` gives units, fs, type
    // and width; `typedMask` is in the design's units; method 0 Kaiser window, 1 equiripple. Finds the
    // shortest N (or designs at `taps`) and designs it as an ordinary design. False, with the reason in
    // the note line, for a mask that is refused or a design that fails.
    bool designFilterToMask(const QVariantMap& parameters, int method, const ToleranceMask& typedMask,
                            std::optional<int> taps = std::nullopt);
    // The current design against its mask, on the 16384-point response of cp; nothing without a mask.
    std::optional<MaskCheck> maskCheck() const;
    // The measured analysis and the word-length sweep of the current design (computed on each call).
    FilterMeasurement measured() const;
    std::array<SweepRow, kSweepRows> wordLengthSweep() const;
    // The cutoff as typed (not complemented), normalised.
    double typedCutoffNormalized() const;
    // The method and mask (normalised) of the design last opened, when it had them.
    const std::optional<std::pair<int, ToleranceMask>>& restoredMask() const { return restoredMask_; }

    // Index values no pop-up list holds (not a whole number, or beyond int) are stored as this.
    static constexpr int kInvalidIndex = -1;

protected:
    void note(const QString& text, double value = 0.0, bool withValue = false);

private:
    bool checkExtraRanges(double cutoffFreq, double centerFreq);

    // Working arrays of a design, kept between designs so a design allocates nothing.
    struct Workspace;
    std::unique_ptr<Workspace> work_;

    Design d_;
    Design designed_;
    DesignOutcome lastOutcome_ = DesignOutcome::Refused;
    std::vector<double> dBmagAndPhaseArray_;
    QVariantMap filterResultsDictionary_;
    GVRFilterDesignView* winFilterDesign_ = nullptr;
    DesignLibrary& library_;
    QString lastFileError_;
    QVariantMap filterRestorationDictionary_;
    // Set while a mask design runs: its coefficients replace the window method's.
    const std::vector<double>* presetCoefficients_ = nullptr;
    bool maskDesignRunning_ = false;
    std::optional<std::pair<int, ToleranceMask>> restoredMask_;
};
