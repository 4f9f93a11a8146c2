// Saving and opening ".filt" design files from the filter designer model.
#include "filter/filter_designer_model.h"

#include "archive/filter_archive.h"
#include "dsp/fir_synthesis.h"
#include "filter/filter_design_view.h"
#include "filter/filter_keys.h"
#include "library/design_file_io.h"
#include "library/design_library.h"

bool GVRFilterDesignerModel::saveFilterDesignWithFileName(const QString& name)
{
    lastFileError_.clear();
    // The last valid design with the parameters that made it, not what was
    // typed and refused since: the file must reproduce its own coefficients.
    const Design& saved = designed_;
    if (!saved.validResultsFlag) {
        lastFileError_ = QStringLiteral("There is no filter design to save: design a filter first.");
        return false;
    }
    // Frequencies and measurements go in normalised; only the sampling
    // frequency keeps the unit it was typed in.
    GVRFilter record;
    record.filterType = saved.filterType;
    record.windowType = saved.windowType;
    record.filterWidth = saved.filterWidth;
    record.unitsType = saved.unitsType;
    record.dfThetaSamplingFreq = saved.thetaSamplingFreq;
    record.dfFilterLengthN = saved.filterLengthN;
    record.dfBetaUpsilon = saved.betaUpsilon;
    record.dfThetaCutoffFreqNormalized = saved.thetaCutoffFreqNormalized;
    record.dfThetaCenterFreqNormalized = saved.thetaCenterFreqNormalized;
    record.dfGimeldbLow = saved.gimeldbLow;
    record.dfGimeldbHigh = saved.gimeldbHigh;
    record.dfGimeldbBandwidth = saved.gimeldbBandwidth;
    record.dfPassbandRipple = saved.passbandRipple;
    record.dfDynamicRange = saved.dynamicRange;
    record.dfDynamicRangeError = saved.dynamicRangeError;
    record.integerCoefficients = saved.integerCoefficients;
    record.filterCoefficients = saved.filterCoefficients;
    record.filterPrecisionCoefficients = saved.filterPrecisionCoefficients;
    if (saved.mask) {
        record.designMethod = saved.designMethod;
        record.dfMaskPassbandEdge = saved.mask->passband[0];
        record.dfMaskPassbandEdge2 = saved.mask->passband[1];
        record.dfMaskStopbandEdge = saved.mask->stopband[0];
        record.dfMaskStopbandEdge2 = saved.mask->stopband[1];
        record.dfMaskRipple = saved.mask->rippleDb;
        record.dfMaskAttenuation = saved.mask->attenuationDb;
    }

    lastFileError_ = designSaveNameProblem(QStringLiteral("filter"), name);
    if (!lastFileError_.isEmpty())
        return false;
    if (!writeFilterFile(library_.filterPath(name), record, &lastFileError_))
        return false;
    library_.announceNewFilterFile();
    return true;
}

bool GVRFilterDesignerModel::openFilterDesignWithFileName(const QString& name)
{
    lastFileError_.clear();
    lastFileError_ = designOpenNameProblem(QStringLiteral("filter"), name);
    if (!lastFileError_.isEmpty())
        return false;
    const std::optional<GVRFilter> record = readFilterFile(library_.filterPath(name), &lastFileError_);
    if (!record)
        return false;

    QVariantMap restored;
    auto put = [&restored](const QString& key, const auto& value) {
        if (value)
            restored.insert(key, recordValueAsVariant(*value));
    };
    put(KEYFP_UNITS, record->unitsType);
    put(KEYFP_FILTER_TYPE, record->filterType);
    put(KEYFP_FILTER_WIDTH, record->filterWidth);
    put(KEYFP_WINDOW_TYPE, record->windowType);
    put(KEYFP_SAMPLING_FREQ, record->dfThetaSamplingFreq);
    put(KEYFP_FILTER_LENGTH, record->dfFilterLengthN);
    put(KEYFP_BETA_UPSILON, record->dfBetaUpsilon);
    // Back to the values as typed: the high pass was stored as its complement,
    // and units other than "Norm" scale by half the sampling frequency.
    if (record->dfThetaCutoffFreqNormalized && record->dfThetaCenterFreqNormalized) {
        double cutoff = *record->dfThetaCutoffFreqNormalized;
        double center = *record->dfThetaCenterFreqNormalized;
        if (record->filterType == kFilterHighPass)
            cutoff = 1.0 - cutoff;
        if (record->unitsType.value_or(0) != 0) {
            const double half = record->dfThetaSamplingFreq.value_or(0.0) * 0.5;
            cutoff *= half;
            center *= half;
        }
        restored.insert(KEYFP_CUTOFF_FREQ, cutoff);
        restored.insert(KEYFP_CENTER_FREQ, center);
    }
    if (restored.size() != 9) {
        lastFileError_ = incompleteDesignMessage(QStringLiteral("filter"), name);
        return false;
    }
    filterRestorationDictionary_ = restored;
    restoredMask_.reset();
    if (record->dfMaskPassbandEdge && record->dfMaskStopbandEdge && record->dfMaskRipple &&
        record->dfMaskAttenuation) {
        ToleranceMask mask;
        mask.type = static_cast<int>(record->filterType.value_or(0));
        mask.passband[0] = *record->dfMaskPassbandEdge;
        mask.passband[1] = record->dfMaskPassbandEdge2.value_or(0.0);
        mask.stopband[0] = *record->dfMaskStopbandEdge;
        mask.stopband[1] = record->dfMaskStopbandEdge2.value_or(0.0);
        mask.rippleDb = *record->dfMaskRipple;
        mask.attenuationDb = *record->dfMaskAttenuation;
        restoredMask_.emplace(record->designMethod.value_or(0) == 1 ? 1 : 0, mask);
    }
    if (winFilterDesign_)
        winFilterDesign_->restoreFilterParameters(filterRestorationDictionary_);
    return true;
}
