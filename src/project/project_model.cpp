// Project model: silent parameter check, loading of the saved designs, unit
// and sampling-rate reconciliation, the two systems and the result arrays.
#include "project/project_model.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "dsp/multirate.h"
#include "dsp/signal_spectrum.h"
#include "dsp/sum_and_filter.h"
#include "dsp/unit_conversion.h"
#include "library/design_source.h"
#include "project/project_keys.h"
#include "project/project_view.h"

namespace {

const QString kRateErrorSumAndFilter =
    QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]");
const QString kRateErrorMultirate =
    QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs; H[m] requires rate of L*fs");
const QString kUnreadable = QStringLiteral("ERROR - Cannot read the design \"%1\"");
const QString kNotFinite = QStringLiteral("ERROR - Results are not finite numbers");

constexpr int kSignLeftOut = 2;
constexpr std::size_t kMaxTaps = 512;

// A saved signal as the systems need it; nothing when a field is missing or
// unusable (wrong length, non-finite values, unknown unit codes).
struct SignalInput {
    std::vector<double> x;
    double fs = 0.0;
    double maxFreq = 0.0;
    int voltUnits = 0;
    int freqUnits = 0;
};

bool isCode01(const std::optional<std::int64_t>& code)
{
    return code && (*code == 0 || *code == 1);
}

bool allFinite(const std::vector<double>& v, std::size_t count)
{
    return std::all_of(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(count),
                       [](double x) { return std::isfinite(x); });
}

std::optional<SignalInput> signalInput(const std::optional<GVRSignal>& record)
{
    if (!record)
        return std::nullopt;
    const GVRSignal& r = *record;
    if (!r.sampledSignalArray || r.sampledSignalArray->size() != GVRProjectModel::kSamples ||
        !allFinite(*r.sampledSignalArray, GVRProjectModel::kSamples))
        return std::nullopt;
    if (!r.samplingFreq || !std::isfinite(*r.samplingFreq) || *r.samplingFreq <= 0.0)
        return std::nullopt;
    if (!r.maxFreq || !std::isfinite(*r.maxFreq) || !isCode01(r.voltUnits) || !isCode01(r.freqUnits))
        return std::nullopt;
    return SignalInput{*r.sampledSignalArray, *r.samplingFreq, *r.maxFreq, static_cast<int>(*r.voltUnits),
                       static_cast<int>(*r.freqUnits)};
}

// The filter stage: taps, units code (0 normalised, 1 KHz, 2 MHz, anything
// else fails the rate check) and, with units, the rate it was designed for.
struct FilterInput {
    std::vector<double> h;
    std::int64_t units = 0;
    double fs = 0.0;
};

std::optional<FilterInput> userFilter(const GVRFilter& r)
{
    if (!r.dfFilterLengthN || !r.unitsType || !r.filterPrecisionCoefficients)
        return std::nullopt;
    const double taps = *r.dfFilterLengthN;
    if (!(taps >= 1.0 && taps <= static_cast<double>(kMaxTaps)) || taps != std::trunc(taps))
        return std::nullopt;
    const auto count = static_cast<std::size_t>(taps);
    const std::vector<double>& c = *r.filterPrecisionCoefficients;
    if (c.size() < count || !allFinite(c, count))
        return std::nullopt;
    FilterInput f{std::vector<double>(c.begin(), c.begin() + static_cast<std::ptrdiff_t>(count)),
                  *r.unitsType, 0.0};
    if (f.units == 1 || f.units == 2) {
        if (!r.dfThetaSamplingFreq || !std::isfinite(*r.dfThetaSamplingFreq))
            return std::nullopt;
        f.fs = *r.dfThetaSamplingFreq;
    }
    return f;
}

// A dictionary integer; anything that is not a whole number in range reads
// as a value every check refuses.
int integerOf(const QVariant& value)
{
    bool ok = false;
    const double v = value.toDouble(&ok);
    if (!ok || !std::isfinite(v) || std::fabs(v) > 1e9 || v != std::trunc(v))
        return std::numeric_limits<int>::min();
    return static_cast<int>(v);
}

// One record's eight-number header: fs, the highest frequency, the volt and
// frequency unit codes, the extremes, two spare zeros.
std::vector<double> recordHeader(double fs, double maxFreq, int volt, int freqCode, SignalExtremes range)
{
    return {fs,  maxFreq, static_cast<double>(volt), static_cast<double>(freqCode), range.max, range.min,
            0.0, 0.0};
}

// The input's header, then the output's.
std::vector<double> headers(double fsIn, double maxFreq, int voltIn, int freqCode, SignalExtremes in,
                            double fsOut, int voltOut, SignalExtremes out)
{
    std::vector<double> both = recordHeader(fsIn, maxFreq, voltIn, freqCode, in);
    const std::vector<double> second = recordHeader(fsOut, maxFreq, voltOut, freqCode, out);
    both.insert(both.end(), second.begin(), second.end());
    return both;
}

} // namespace

QVariantMap GVRProjectModel::parameterDictionary(int blockDiagramNumber, const QString& filterName,
                                                 const QString& signalOneName, const QString& signalTwoName,
                                                 int signalOneSign, int signalTwoSign, int multirateL,
                                                 int multirateM, int multirateFilterType)
{
    return {{KEYMOD_BLOCK_DIAGRAM, blockDiagramNumber},
            {KEYMOD_FILTER_NAME, filterName},
            {KEYMOD_SIG_ONE_NAME, signalOneName},
            {KEYMOD_SIG_TWO_NAME, signalTwoName},
            {KEYMOD_SIG_ONE_SIGN, signalOneSign},
            {KEYMOD_SIG_TWO_SIGN, signalTwoSign},
            {KEYMOD_MULTIRATE_L, multirateL},
            {KEYMOD_MULTIRATE_M, multirateM},
            {KEYMOD_MULTIRATE_FILT, multirateFilterType}};
}

void GVRProjectModel::clearDesign()
{
    validResultsFlag_ = false;
    designed_ = GVRProject{};
    timeDomainArray_.clear();
    freqDomainArray_.clear();
    stageInput_.clear();
    stageTaps_.clear();
}

GVRProjectModel::StageArrays GVRProjectModel::multirateStageArrays(MultirateStage stage) const
{
    StageArrays out;
    if (stageInput_.empty())
        return out;
    std::vector<double> w(kSamples);
    std::vector<double> p(kSamples);
    multirateStages(stageInput_, stageTaps_, stageL_, stageM_, w,
                    stage == MultirateStage::Upsampled ? std::span<double>() : std::span<double>(p));
    const std::vector<double>& shown = stage == MultirateStage::Upsampled ? w : p;
    std::vector<double> magnitudes(kSpectrumLength);
    const SignalExtremes range = measureSignal(shown);
    const SignalExtremes magRange = magSpectrum(shown, magnitudes);
    const double fs = static_cast<double>(stageL_) * stageFs_;
    out.time = recordHeader(fs, 0.5 * fs, stageVolt_, stageFreqCode_, range);
    out.time.insert(out.time.end(), shown.begin(), shown.end());
    out.freq = recordHeader(fs, 0.5 * fs, stageVolt_, stageFreqCode_, magRange);
    out.freq.insert(out.freq.end(), magnitudes.begin(), magnitudes.begin() + kSpectrumLength / 2);
    return out;
}

DesignOutcome GVRProjectModel::designProjectWithParameters(const QVariantMap& parameters)
{
    lastOutcome_ = DesignOutcome::Refused;
    blockDiagramNumber_ = integerOf(parameters.value(KEYMOD_BLOCK_DIAGRAM));
    signalOneSign_ = integerOf(parameters.value(KEYMOD_SIG_ONE_SIGN));
    signalTwoSign_ = integerOf(parameters.value(KEYMOD_SIG_TWO_SIGN));
    multirateL_ = integerOf(parameters.value(KEYMOD_MULTIRATE_L));
    multirateM_ = integerOf(parameters.value(KEYMOD_MULTIRATE_M));
    multirateFilterType_ = integerOf(parameters.value(KEYMOD_MULTIRATE_FILT));
    filterName_ = parameters.value(KEYMOD_FILTER_NAME).toString();
    signalOneName_ = parameters.value(KEYMOD_SIG_ONE_NAME).toString();
    signalTwoName_ = parameters.value(KEYMOD_SIG_TWO_NAME).toString();

    if (parameters.size() != 9)
        return lastOutcome_;
    for (const auto& key : {KEYMOD_BLOCK_DIAGRAM, KEYMOD_FILTER_NAME, KEYMOD_SIG_ONE_NAME,
                            KEYMOD_SIG_TWO_NAME, KEYMOD_SIG_ONE_SIGN, KEYMOD_SIG_TWO_SIGN, KEYMOD_MULTIRATE_L,
                            KEYMOD_MULTIRATE_M, KEYMOD_MULTIRATE_FILT})
        if (!parameters.contains(key))
            return lastOutcome_;
    if (!checkAllParameters())
        return lastOutcome_;
    designProject();
    return lastOutcome_;
}

bool GVRProjectModel::checkAllParameters() const
{
    const auto within = [](int v, int lo, int hi) { return v >= lo && v <= hi; };
    return !filterName_.isEmpty() && !signalOneName_.isEmpty() && !signalTwoName_.isEmpty() &&
           within(blockDiagramNumber_, 1, 2) && within(signalOneSign_, 0, 2) &&
           within(signalTwoSign_, 0, 2) && within(multirateL_, 1, 12) && within(multirateM_, 1, 12) &&
           within(multirateFilterType_, 0, 1);
}

void GVRProjectModel::designProject()
{
    validResultsFlag_ = false;
    const bool multirate = blockDiagramNumber_ == 2;
    const bool automatic = multirate && multirateFilterType_ == 1;
    const QString& rateError = multirate ? kRateErrorMultirate : kRateErrorSumAndFilter;

    // Every design reads all three records afresh, the filter too when the
    // automatic one is used. One that cannot be read stops the design.
    const std::optional<GVRSignal> one = library_->signalRecord(signalOneName_);
    const std::optional<GVRSignal> two = library_->signalRecord(signalTwoName_);
    const std::optional<GVRFilter> filter = library_->filterRecord(filterName_);
    signalOneRecord_ = one.value_or(GVRSignal{});
    signalTwoRecord_ = two.value_or(GVRSignal{});
    filterOneRecord_ = filter.value_or(GVRFilter{});
    std::optional<SignalInput> s1 = signalInput(one);
    std::optional<SignalInput> s2 = signalInput(two);
    if (!s1)
        return note(kUnreadable.arg(signalOneName_));
    if (!s2)
        return note(kUnreadable.arg(signalTwoName_));
    if (!filter)
        return note(kUnreadable.arg(filterName_));

    FilterInput stage;
    if (automatic) {
        stage.h.assign(kAutoFilterTaps, 0.0);
        autoGenLPF(multirateL_, multirateM_, stage.h);
    } else if (const auto user = userFilter(*filter)) {
        stage = *user;
        if (multirate)
            stage.fs /= multirateL_; // H[m] runs at L·fs
    } else {
        return note(kUnreadable.arg(filterName_));
    }

    // The signals' rates in the filter's unit.
    double fs1 = s1->fs;
    double fs2 = s2->fs;
    switch (stage.units) {
    case 0:
        if (s1->freqUnits != s2->freqUnits)
            (s1->freqUnits == 1 ? fs1 : fs2) /= 1000.0;
        break;
    case 1:
        fs1 *= s1->freqUnits == 0 ? 1000.0 : 1.0;
        fs2 *= s2->freqUnits == 0 ? 1000.0 : 1.0;
        break;
    case 2:
        fs1 /= s1->freqUnits == 1 ? 1000.0 : 1.0;
        fs2 /= s2->freqUnits == 1 ? 1000.0 : 1.0;
        break;
    default:
        return note(rateError);
    }

    const bool oneTakesPart = signalOneSign_ != kSignLeftOut;
    const bool twoTakesPart = signalTwoSign_ != kSignLeftOut;
    if (!oneTakesPart && !twoTakesPart)
        return note(rateError);
    if (oneTakesPart && twoTakesPart && !(std::fabs(fs1 - fs2) < kRateTolerance))
        return note(rateError);
    double fs = oneTakesPart ? fs1 : fs2;
    if (stage.units == 1 || stage.units == 2) {
        if (!(std::fabs(fs - stage.fs) < kRateTolerance))
            return note(rateError);
        fs = stage.fs;
    }
    validResultsFlag_ = true;
    note(QString());

    std::vector<double> x1 = std::move(s1->x);
    std::vector<double> x2 = std::move(s2->x);
    const int voltIn = voltUnits(x1, x2, s1->voltUnits, s2->voltUnits, x1, x2);
    const FreqUnitsChoice freq =
        freqUnits(s1->freqUnits, s2->freqUnits, s1->maxFreq, s2->maxFreq, signalOneSign_, signalTwoSign_);
    // fs is in the unit the rate check used (the filter's, or MHz when the
    // signals' units differ); the charts read it in the unit of freq.code, so
    // bring it there: the headers must state the rate of the samples they head.
    const int fsCode = stage.units == 1                 ? 1
                       : stage.units == 2               ? 0
                       : s1->freqUnits != s2->freqUnits ? 0
                                                        : s1->freqUnits;
    if (fsCode == 0 && freq.code == 1)
        fs *= 1000.0;
    else if (fsCode == 1 && freq.code == 0)
        fs /= 1000.0;

    std::vector<double> x(kSamples);
    sumTwoSignals(x1, x2, signalOneSign_, signalTwoSign_, x);
    std::vector<double> X(kSpectrumLength);
    const SignalExtremes xRange = measureSignal(x);
    const SignalExtremes XRange = magSpectrum(x, X);

    std::vector<double> y(kSamples);
    double fsOut = fs;
    if (multirate) {
        multirateSysOut(x, stage.h, multirateL_, multirateM_, y);
        fsOut = (static_cast<double>(multirateL_) * fs) / multirateM_;
    } else {
        convolutionSysOut(x, stage.h, y);
    }
    const int voltOut = rescale(y, voltIn, y);
    std::vector<double> Y(kSpectrumLength);
    const SignalExtremes yRange = measureSignal(y);
    const SignalExtremes YRange = magSpectrum(y, Y);

    std::vector<double> time = headers(fs, freq.maxFreq, voltIn, freq.code, xRange, fsOut, voltOut, yRange);
    time.reserve(kTimeArrayLength);
    time.insert(time.end(), x.begin(), x.end());
    time.insert(time.end(), y.begin(), y.end());
    std::vector<double> spectra =
        headers(fs, freq.maxFreq, voltIn, freq.code, XRange, fsOut, voltOut, YRange);
    spectra.reserve(kFreqArrayLength);
    spectra.insert(spectra.end(), X.begin(), X.begin() + kSpectrumLength / 2);
    spectra.insert(spectra.end(), Y.begin(), Y.begin() + kSpectrumLength / 2);

    // Finite records can still overflow in the sum, the filter or the mV scale.
    if (!allFinite(time, time.size()) || !allFinite(spectra, spectra.size())) {
        validResultsFlag_ = false;
        lastOutcome_ = DesignOutcome::DesignedInvalid;
        return note(kNotFinite);
    }
    lastOutcome_ = DesignOutcome::Designed;
    // The inner multirate sequences are formed only when a chart asks for them.
    if (multirate) {
        stageInput_ = std::move(x);
        stageTaps_ = std::move(stage.h);
        stageFs_ = fs;
        stageL_ = multirateL_;
        stageM_ = multirateM_;
        stageVolt_ = voltIn;
        stageFreqCode_ = freq.code;
    } else {
        stageInput_.clear();
        stageTaps_.clear();
    }
    designed_ = GVRProject{};
    designed_.filterName = filterName_.toStdString();
    designed_.signalOneName = signalOneName_.toStdString();
    designed_.signalTwoName = signalTwoName_.toStdString();
    designed_.blockDiagramNumber = blockDiagramNumber_;
    designed_.signalOneSign = signalOneSign_;
    designed_.signalTwoSign = signalTwoSign_;
    designed_.multirateL = multirateL_;
    designed_.multirateM = multirateM_;
    designed_.multirateFilterType = multirateFilterType_;
    timeDomainArray_ = std::move(time);
    if (winProject_)
        winProject_->plotTimeWithArray(timeDomainArray_);
    freqDomainArray_ = std::move(spectra);
    if (winProject_)
        winProject_->plotFreqWithArray(freqDomainArray_);
}

void GVRProjectModel::note(const QString& text)
{
    if (winProject_)
        winProject_->displayNoteField(text, 0.0, false);
}
