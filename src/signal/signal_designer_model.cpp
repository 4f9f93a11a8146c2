// Signal designer model: validation rules per signal function, the design
// driver and its two result arrays.
#include "signal/signal_designer_model.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "dsp/signal_generators.h"
#include "dsp/signal_spectrum.h"
#include "signal/signal_design_view.h"
#include "signal/signal_keys.h"

namespace {

constexpr double kRecordLength = 16384.0; // samples per record: τ ≤ 16384 / fs

// The texts of the note line.
const QString kFsPositive = QStringLiteral("VALID RANGE: f samp > 0");
const QString kAmplitude = QStringLiteral("VALID RANGE: |A| > 0");
const QString kFreqPositive = QStringLiteral("VALID RANGE: fₐ > 0");
const QString kFreqNyquist = QStringLiteral("VALID RANGE: fₐ < ");
const QString kSigmaNonNegative = QStringLiteral("VALID RANGE: σ ≥ 0");
const QString kSigmaPositive = QStringLiteral("VALID RANGE: σ > 0");
const QString kSumNyquist = QStringLiteral("VALID RANGE: M * fₐ < ");
const QString kMixerNyquist = QStringLiteral("VALID RANGE: fₐ₁ + fₐ₂ < ");
const QString kTau = QStringLiteral("VALID RANGE: 0 < τ ≤ ");
const QString kBeta = QStringLiteral("VALID RANGE: |β| > 0");
const QString kOptimalRate = QStringLiteral("OPTIMAL RATE: f samp ≥ 10 fₐ");
const QString kNotFinite = QStringLiteral("VALID RANGE: parameters give non-finite samples");

// A dictionary value as a double; anything that is not a number reads as NaN
// so that the checks name it.
double numberOf(const QVariant& value)
{
    bool ok = false;
    const double v = value.toDouble(&ok);
    return ok ? v : std::numeric_limits<double>::quiet_NaN();
}

// A unit code; non-whole or absurd values become −1, which the checks refuse.
std::int64_t codeOf(const QVariant& value)
{
    const double v = numberOf(value);
    if (!std::isfinite(v) || std::fabs(v) > 1e9 || v != std::trunc(v))
        return -1;
    return static_cast<std::int64_t>(v);
}

bool allFinite(const std::vector<double>& values)
{
    return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

} // namespace

QVariantMap GVRSignalDesignerModel::parameterDictionary(std::int64_t freqUnits, std::int64_t voltUnits,
                                                        double samplingFreq, double yStepIndex,
                                                        const std::array<double, 6>& parms)
{
    QVariantMap d;
    d.insert(KEYSP_FREQ_UNITS, QVariant::fromValue<qlonglong>(freqUnits));
    d.insert(KEYSP_VOLT_UNITS, QVariant::fromValue<qlonglong>(voltUnits));
    d.insert(KEYSP_FREQ_SAMP, samplingFreq);
    d.insert(KEYSP_Y_STEP, yStepIndex);
    for (std::size_t i = 0; i < parms.size(); ++i)
        d.insert(KEYSP_PARMS[i], parms[i]);
    return d;
}

void GVRSignalDesignerModel::clearDesign()
{
    validResultsFlag_ = false;
    timeDomainArray_.clear();
    freqDomainArray_.clear();
}

DesignOutcome GVRSignalDesignerModel::designSignalWithParameters(const QVariantMap& parameters)
{
    lastOutcome_ = DesignOutcome::Refused;
    // Stored before any check and kept when a check fails.
    freqUnits_ = codeOf(parameters.value(KEYSP_FREQ_UNITS));
    voltUnits_ = codeOf(parameters.value(KEYSP_VOLT_UNITS));
    samplingFreq_ = numberOf(parameters.value(KEYSP_FREQ_SAMP));
    yStepIndex_ = numberOf(parameters.value(KEYSP_Y_STEP));
    for (std::size_t i = 0; i < parms_.size(); ++i)
        parms_[i] = numberOf(parameters.value(KEYSP_PARMS[i]));

    if (parameters.size() != 10 || !parameters.contains(KEYSP_FREQ_UNITS) ||
        !parameters.contains(KEYSP_VOLT_UNITS) || !parameters.contains(KEYSP_FREQ_SAMP) ||
        !parameters.contains(KEYSP_Y_STEP))
        return lastOutcome_;
    for (const auto& key : KEYSP_PARMS)
        if (!parameters.contains(key))
            return lastOutcome_;
    if (!checkAllParameters())
        return lastOutcome_;
    designSignal();
    return lastOutcome_;
}

bool GVRSignalDesignerModel::checkAllParameters()
{
    note(QString(), 0.0, false);
    if (!(yStepIndex_ >= 0.0 && yStepIndex_ < 11.0))
        return false; // includes NaN: no such function, no message
    switch (static_cast<unsigned>(yStepIndex_)) {
    case 0:
    case 3:
        return checkTrigSingle();
    case 1:
    case 4:
        return checkTrigDouble();
    case 2:
    case 5:
        return checkTrigSummation();
    case 6:
        return checkNoise();
    case 7:
        return checkMixer();
    case 8:
        return checkRectangle();
    case 9:
    case 10:
        return checkSinc();
    default:
        return false;
    }
}

bool GVRSignalDesignerModel::checkTone(double amplitude, double freq)
{
    const double fs = samplingFreq_;
    if (fs <= 0)
        return refuse(kFsPositive);
    if (amplitude == 0)
        return refuse(kAmplitude);
    if (freq <= 0)
        return refuse(kFreqPositive);
    if (freq >= 0.5 * fs)
        return refuse(kFreqNyquist, 0.5 * fs);
    return true;
}

bool GVRSignalDesignerModel::checkTrigSingle()
{
    if (!checkTone(parms_[0], parms_[1]))
        return false;
    if (parms_[3] < 0)
        return refuse(kSigmaNonNegative);
    return checkFiniteAndUnits({"A", "fₐ", "ϕ", "σ", "μ"});
}

bool GVRSignalDesignerModel::checkTrigDouble()
{
    const double fs = samplingFreq_, A1 = parms_[0], fa1 = parms_[1], A2 = parms_[2], fa2 = parms_[3];
    if (fs <= 0)
        return refuse(kFsPositive);
    if (A1 + A2 == 0)
        return refuse(kAmplitude);
    if (fa1 <= 0 || fa2 <= 0)
        return refuse(kFreqPositive);
    if (fa1 >= 0.5 * fs || fa2 >= 0.5 * fs)
        return refuse(kFreqNyquist, 0.5 * fs);
    if (parms_[4] < 0)
        return refuse(kSigmaNonNegative);
    return checkFiniteAndUnits({"A₁", "fₐ₁", "A₂", "fₐ₂", "σ", "μ"});
}

bool GVRSignalDesignerModel::checkTrigSummation()
{
    const double fs = samplingFreq_, fa = parms_[1], M = parms_[3];
    if (!checkTone(parms_[0], fa))
        return false;
    if (fa * M >= 0.5 * fs)
        return refuse(kSumNyquist, 0.5 * fs);
    if (parms_[4] < 0)
        return refuse(kSigmaNonNegative);
    return checkFiniteAndUnits({"A", "fₐ", "ϕ", "M", "σ", "μ"});
}

bool GVRSignalDesignerModel::checkNoise()
{
    if (samplingFreq_ <= 0)
        return refuse(kFsPositive);
    if (parms_[0] <= 0)
        return refuse(kSigmaPositive);
    return checkFiniteAndUnits({"σ", "μ"});
}

bool GVRSignalDesignerModel::checkMixer()
{
    const double fs = samplingFreq_, A1 = parms_[0], fa1 = parms_[1], A2 = parms_[2], fa2 = parms_[3];
    if (fs <= 0)
        return refuse(kFsPositive);
    if (A1 == 0 || A2 == 0)
        return refuse(kAmplitude);
    if (fa1 <= 0 || fa2 <= 0)
        return refuse(kFreqPositive);
    if (fa1 + fa2 >= 0.5 * fs)
        return refuse(kMixerNyquist, 0.5 * fs);
    if (parms_[4] < 0)
        return refuse(kSigmaNonNegative);
    return checkFiniteAndUnits({"A₁", "fₐ₁", "A₂", "fₐ₂", "σ", "μ"});
}

bool GVRSignalDesignerModel::checkRectangle()
{
    const double fs = samplingFreq_, A = parms_[0], tau = parms_[1];
    if (fs <= 0)
        return refuse(kFsPositive);
    if (A == 0)
        return refuse(kAmplitude);
    if (tau <= 0 || tau > kRecordLength / fs)
        return refuse(kTau, kRecordLength / fs);
    if (parms_[2] < 0)
        return refuse(kSigmaNonNegative);
    return checkFiniteAndUnits({"A", "τ", "σ", "μ"});
}

bool GVRSignalDesignerModel::checkSinc()
{
    if (samplingFreq_ <= 0)
        return refuse(kFsPositive);
    if (parms_[0] == 0)
        return refuse(kBeta);
    if (parms_[1] < 0)
        return refuse(kSigmaNonNegative);
    return checkFiniteAndUnits({"β", "σ", "μ"});
}

bool GVRSignalDesignerModel::checkFiniteAndUnits(std::initializer_list<const char*> symbols)
{
    const auto finite = [this](double v, const QString& name) {
        if (std::isnan(v))
            return refuse(QStringLiteral("VALID RANGE: %1 is not a number").arg(name));
        if (std::isinf(v))
            return refuse(QStringLiteral("VALID RANGE: %1 is not finite").arg(name));
        return true;
    };
    if (!finite(samplingFreq_, QStringLiteral("f samp")))
        return false;
    std::size_t slot = 0;
    for (const char* symbol : symbols)
        if (!finite(parms_[slot++], QString::fromUtf8(symbol)))
            return false;
    if (freqUnits_ != 0 && freqUnits_ != 1)
        return refuse(QStringLiteral("VALID RANGE: frequency unit 0 (MHz) or 1 (KHz)"));
    if (voltUnits_ != 0 && voltUnits_ != 1)
        return refuse(QStringLiteral("VALID RANGE: voltage unit 0 (V) or 1 (mV)"));
    return true;
}

bool GVRSignalDesignerModel::refuse(const QString& message)
{
    note(message, 0.0, false);
    return false;
}

bool GVRSignalDesignerModel::refuse(const QString& message, double value)
{
    note(message, value, true);
    return false;
}

void GVRSignalDesignerModel::optimalSamplingRateCheck()
{
    const double r = samplingFreq_ / max_freq_;
    if (r < 10.0)
        note(kOptimalRate, 0.0, false);
    else
        note(QString(), 0.0, false);
}

void GVRSignalDesignerModel::designSignal()
{
    // Work buffers and the spare result arrays are kept between designs:
    // record-sized allocations would otherwise cost page faults every time.
    workSignal_.resize(kSignalSamples);
    workSpectrum_.resize(kSpectrumLength);
    const int index = static_cast<int>(yStepIndex_);
    const double maxFreq = signalTimeDomain(index, samplingFreq_, parms_[0], parms_[1], parms_[2], parms_[3],
                                            parms_[4], parms_[5], workSignal_);
    const SignalExtremes amplitude = measureSignal(workSignal_);
    const SignalExtremes magnitude = magSpectrum(workSignal_, workSpectrum_);

    const auto fill = [&](std::vector<double>& array, SignalExtremes extremes, std::span<const double> data) {
        array.assign({samplingFreq_, maxFreq, static_cast<double>(voltUnits_),
                      static_cast<double>(freqUnits_), extremes.max, extremes.min, 0.0, 0.0});
        array.insert(array.end(), data.begin(), data.end());
    };
    fill(spareTime_, amplitude, workSignal_);
    fill(spareFreq_, magnitude, std::span<const double>(workSpectrum_).first(kSpectrumLength / 2));

    // Finite parameters can still overflow (a huge amplitude, a vanishing τ):
    // such a design is refused like a failed check and changes nothing.
    if (!allFinite(spareTime_) || !allFinite(spareFreq_)) {
        note(kNotFinite, 0.0, false);
        return;
    }
    max_freq_ = maxFreq;
    max_amplitude_ = amplitude.max;
    min_amplitude_ = amplitude.min;
    optimalSamplingRateCheck();
    validResultsFlag_ = true;
    lastOutcome_ = DesignOutcome::Designed;
    designed_ = Designed{freqUnits_, voltUnits_, yStepIndex_, samplingFreq_, parms_};
    timeDomainArray_.swap(spareTime_);
    if (winSignalDesign_)
        winSignalDesign_->plotTimeWithArray(timeDomainArray_);
    freqDomainArray_.swap(spareFreq_);
    if (winSignalDesign_)
        winSignalDesign_->plotFreqWithArray(freqDomainArray_);
}

void GVRSignalDesignerModel::note(const QString& text, double value, bool withValue)
{
    if (winSignalDesign_)
        winSignalDesign_->displayNoteField(text, value, withValue);
}
