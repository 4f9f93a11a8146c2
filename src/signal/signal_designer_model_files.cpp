// Saving and opening ".signal" design files from the signal designer model.
#include "signal/signal_designer_model.h"

#include "archive/signal_archive.h"
#include "library/design_file_io.h"
#include "library/design_library.h"
#include "signal/signal_design_view.h"
#include "signal/signal_keys.h"

bool GVRSignalDesignerModel::saveSignalDesignWithFileName(const QString& name)
{
    lastFileError_.clear();
    if (!validResultsFlag_ || timeDomainArray_.size() != kTimeArrayLength) {
        lastFileError_ = QStringLiteral("There is no signal design to save: design a signal first.");
        return false;
    }
    // The values that made the samples, not a dictionary refused since.
    GVRSignal record;
    record.samplingFreq = designed_.samplingFreq;
    record.yStepIndex = designed_.yStepIndex;
    record.freqUnits = designed_.freqUnits;
    record.voltUnits = designed_.voltUnits;
    record.parm1 = designed_.parms[0];
    record.parm2 = designed_.parms[1];
    record.parm3 = designed_.parms[2];
    record.parm4 = designed_.parms[3];
    record.parm5 = designed_.parms[4];
    record.parm6 = designed_.parms[5];
    record.maxAmplitude = max_amplitude_;
    record.minAmplitude = min_amplitude_;
    record.maxFreq = max_freq_;
    // The samples without the chart header.
    record.sampledSignalArray =
        std::vector<double>(timeDomainArray_.begin() + kHeaderLength, timeDomainArray_.end());

    lastFileError_ = designSaveNameProblem(QStringLiteral("signal"), name);
    if (!lastFileError_.isEmpty())
        return false;
    if (!writeSignalFile(library_.signalPath(name), record, &lastFileError_))
        return false;
    library_.announceNewSignalFile();
    return true;
}

bool GVRSignalDesignerModel::openSignalDesignWithFileName(const QString& name)
{
    lastFileError_.clear();
    lastFileError_ = designOpenNameProblem(QStringLiteral("signal"), name);
    if (!lastFileError_.isEmpty())
        return false;
    const std::optional<GVRSignal> record = readSignalFile(library_.signalPath(name), &lastFileError_);
    if (!record)
        return false;

    QVariantMap restored;
    auto put = [&restored](QLatin1String key, const auto& value) {
        if (value)
            restored.insert(key, recordValueAsVariant(*value));
    };
    put(KEYSP_FREQ_SAMP, record->samplingFreq);
    put(KEYSP_Y_STEP, record->yStepIndex);
    put(KEYSP_FREQ_UNITS, record->freqUnits);
    put(KEYSP_VOLT_UNITS, record->voltUnits);
    put(KEYSP_PARM1, record->parm1);
    put(KEYSP_PARM2, record->parm2);
    put(KEYSP_PARM3, record->parm3);
    put(KEYSP_PARM4, record->parm4);
    put(KEYSP_PARM5, record->parm5);
    put(KEYSP_PARM6, record->parm6);
    if (restored.size() != 10) {
        lastFileError_ = incompleteDesignMessage(QStringLiteral("signal"), name);
        return false;
    }
    signalRestorationDictionary_ = restored;
    if (winSignalDesign_)
        winSignalDesign_->restoreSignalParameters(signalRestorationDictionary_);
    return true;
}
