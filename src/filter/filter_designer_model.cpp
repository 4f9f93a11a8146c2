// The filter designer model: validation in a fixed order (the first broken
// rule is the one the user sees), then the window-method design pipeline.
#include "filter/filter_designer_model.h"

#include "dsp/filter_measurements.h"
#include "dsp/fir_synthesis.h"
#include "dsp/frequency_response.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "filter/filter_design_view.h"
#include "filter/filter_keys.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kLowBound = 0.01;
constexpr double kHighBound = 0.99;
constexpr double kMinTaps = kDesignMinTaps;
constexpr double kMaxTaps = kDesignMaxTaps;
// Past these the windows still compute but mean nothing (β = 14 already gives ~140 dB).
constexpr double kMaxBeta = 100.0;
constexpr double kMaxUpsilon = 20.0;
// Numbers ahead of the dB magnitudes in the plot array.
constexpr std::size_t kPlotHeader = 8;

// A dictionary entry as a number; a missing or empty entry reads as 0, as an empty field
// would, and anything that is not a number reads as NaN so the checks catch it.
double numberOf(const QVariantMap& parameters, const QString& key)
{
    const QVariant value = parameters.value(key);
    if (!value.isValid() || value.isNull())
        return 0.0;
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok ? number : std::numeric_limits<double>::quiet_NaN();
}

int indexOf(double value)
{
    if (!std::isfinite(value) || value != std::floor(value) || std::fabs(value) > 1e6)
        return GVRFilterDesignerModel::kInvalidIndex;
    return static_cast<int>(value);
}

// "<name> is not a number" or "<name> is not finite", or empty when v is finite.
QString notFinite(const QString& name, double v)
{
    if (std::isnan(v))
        return QStringLiteral("VALID RANGE: %1 is not a number").arg(name);
    if (std::isinf(v))
        return QStringLiteral("VALID RANGE: %1 is not finite").arg(name);
    return {};
}

} // namespace

struct GVRFilterDesignerModel::Workspace {
    // Taps: ideal samples, ideal impulse, window, windowed, coefficients, precision coefficients.
    std::vector<double> H, h, w, hw, c, cp;
    std::vector<std::int32_t> q;
    // dB and phase of c (the dB is the plotted magnitude too without quantisation).
    std::vector<double> dBdouble = std::vector<double>(kResponseHalf);
    std::vector<double> phase = std::vector<double>(kResponseHalf);
    // The next plot array, filled in place and swapped in only when the design succeeds.
    std::vector<double> plot;

    void clearTaps(std::size_t N)
    {
        for (auto* v : {&H, &h, &w, &hw, &c, &cp})
            v->assign(N, 0.0);
        q.assign(N, 0);
    }
};

GVRFilterDesignerModel::GVRFilterDesignerModel(DesignLibrary& library)
    : work_(std::make_unique<Workspace>()), library_(library)
{
}

GVRFilterDesignerModel::~GVRFilterDesignerModel() = default;

void GVRFilterDesignerModel::note(const QString& text, double value, bool withValue)
{
    if (winFilterDesign_)
        winFilterDesign_->displayNoteField(text, value, withValue);
}

void GVRFilterDesignerModel::clearDesign()
{
    d_.validResultsFlag = false;
    designed_ = Design{};
}

DesignOutcome GVRFilterDesignerModel::designFilterWithParameters(const QVariantMap& parameters)
{
    d_.unitsType = indexOf(numberOf(parameters, KEYFP_UNITS));
    d_.filterType = indexOf(numberOf(parameters, KEYFP_FILTER_TYPE));
    d_.filterWidth = indexOf(numberOf(parameters, KEYFP_FILTER_WIDTH));
    d_.windowType = indexOf(numberOf(parameters, KEYFP_WINDOW_TYPE));
    d_.thetaSamplingFreq = numberOf(parameters, KEYFP_SAMPLING_FREQ);
    d_.filterLengthN = numberOf(parameters, KEYFP_FILTER_LENGTH);
    d_.betaUpsilon = numberOf(parameters, KEYFP_BETA_UPSILON);
    const double cutoff = numberOf(parameters, KEYFP_CUTOFF_FREQ);
    const double center = numberOf(parameters, KEYFP_CENTER_FREQ);

    lastOutcome_ = DesignOutcome::Refused;
    if (!checkParametersWithCutoffFreq(cutoff, center))
        return lastOutcome_;
    if (!maskDesignRunning_) {
        d_.designMethod = 0;
        d_.mask.reset();
    }
    firFilter();
    return lastOutcome_;
}

bool GVRFilterDesignerModel::checkParametersWithCutoffFreq(double cutoffFreq, double centerFreq)
{
    const bool bandPass = d_.filterType == kFilterBandPass;
    const double fs = d_.thetaSamplingFreq;
    double low = 0.0;
    double high = 0.0;
    if (d_.unitsType == 0) {
        d_.thetaCutoffFreqNormalized = cutoffFreq;
        if (bandPass)
            d_.thetaCenterFreqNormalized = centerFreq;
        low = kLowBound;
        high = kHighBound;
    } else if (!(fs <= 0.0)) {
        const double half = 0.5 * fs;
        d_.thetaCutoffFreqNormalized = cutoffFreq / half;
        if (bandPass)
            d_.thetaCenterFreqNormalized = centerFreq / half;
        low = kLowBound * half;
        high = kHighBound * half;
    }
    // A high pass is designed as the low pass of the complementary cutoff.
    if (d_.filterType == kFilterHighPass)
        d_.thetaCutoffFreqNormalized = 1.0 - d_.thetaCutoffFreqNormalized;

    const double cutoff = d_.thetaCutoffFreqNormalized;
    const double center = d_.thetaCenterFreqNormalized;
    note(QString());

    if (d_.unitsType != 0 && fs <= 0.0) {
        note(QStringLiteral("VALID RANGE: fsampling > 0"));
        return false;
    }
    if (cutoff < kLowBound) {
        note(QStringLiteral("VALID RANGE: fcutoff ≥ "), low, true);
        return false;
    }
    if (cutoff > kHighBound) {
        note(QStringLiteral("VALID RANGE: fcutoff ≤ "), high, true);
        return false;
    }
    if (d_.windowType == kWindowKaiser && d_.betaUpsilon <= 0.0) {
        note(QStringLiteral("VALID RANGE: β > 0"));
        return false;
    }
    if (d_.windowType == kWindowChebyshev && d_.betaUpsilon <= 0.0) {
        note(QStringLiteral("VALID RANGE: ϒ > 0"));
        return false;
    }
    if (bandPass && center - cutoff < kLowBound) {
        note(QStringLiteral("VALID RANGE: (fcenter - fcutoff) ≥ "), low, true);
        return false;
    }
    if (bandPass && center + cutoff > kHighBound) {
        note(QStringLiteral("VALID RANGE: (fcenter + fcutoff) ≤ "), high, true);
        return false;
    }
    return checkExtraRanges(cutoffFreq, centerFreq);
}

// Input the rules above let through because a comparison with NaN is false, or that
// no list or stepper of the window can produce.
bool GVRFilterDesignerModel::checkExtraRanges(double cutoffFreq, double centerFreq)
{
    auto refuse = [this](const QString& text, double value = 0.0, bool withValue = false) {
        note(text, value, withValue);
        return false;
    };
    if (d_.unitsType < 0 || d_.unitsType > 2)
        return refuse(QStringLiteral("VALID RANGE: units index 0 to 2"));
    if (d_.filterType < 0 || d_.filterType > 2)
        return refuse(QStringLiteral("VALID RANGE: filter type index 0 to 2"));
    for (const QString& message :
         {notFinite(QStringLiteral("fsampling"), d_.thetaSamplingFreq),
          notFinite(QStringLiteral("fcutoff"), cutoffFreq), notFinite(QStringLiteral("fcenter"), centerFreq),
          notFinite(QStringLiteral("fcutoff"), d_.thetaCutoffFreqNormalized)}) {
        if (!message.isEmpty())
            return refuse(message);
    }
    if (d_.filterType == kFilterBandPass && !std::isfinite(d_.thetaCenterFreqNormalized))
        return refuse(notFinite(QStringLiteral("fcenter"), d_.thetaCenterFreqNormalized));
    const double n = d_.filterLengthN;
    if (!(n >= kMinTaps && n <= kMaxTaps) || n != std::floor(n) || std::fmod(n, 2.0) != 1.0)
        return refuse(QStringLiteral("VALID RANGE: filter length N odd, 25 ≤ N ≤ 255"));
    if (d_.windowType < 0 || d_.windowType >= kWindowCount)
        return refuse(QStringLiteral("VALID RANGE: window index 0 to 10"));
    if (d_.filterWidth < 0 || d_.filterWidth >= kWidthCount)
        return refuse(QStringLiteral("VALID RANGE: width index 0 to 13"));
    const bool kaiserWindow = d_.windowType == kWindowKaiser;
    const QString parameterName = kaiserWindow                        ? QStringLiteral("β")
                                  : d_.windowType == kWindowChebyshev ? QStringLiteral("ϒ")
                                                                      : QStringLiteral("β/ϒ");
    if (!std::isfinite(d_.betaUpsilon))
        return refuse(notFinite(parameterName, d_.betaUpsilon));
    if (kaiserWindow && d_.betaUpsilon > kMaxBeta)
        return refuse(QStringLiteral("VALID RANGE: β ≤ "), kMaxBeta, true);
    if (d_.windowType == kWindowChebyshev && d_.betaUpsilon > kMaxUpsilon)
        return refuse(QStringLiteral("VALID RANGE: ϒ ≤ "), kMaxUpsilon, true);
    return true;
}

void GVRFilterDesignerModel::firFilter()
{
    const double lengthN = d_.filterLengthN;
    if (!(lengthN >= 3.0 && lengthN <= static_cast<double>(kFirMaxTaps)))
        return;
    const std::size_t N = static_cast<std::size_t>(lengthN);
    if (N % 2 == 0)
        return;

    Workspace& ws = *work_;
    ws.clearTaps(N);
    auto& [H, h, w, hw, c, cp, q, dBdouble, phase, plot] = ws;

    const double theta = d_.thetaCutoffFreqNormalized;
    idealLowPassSamples(passbandCount(N, theta), H);
    iDFTforSinc(H, h);
    winfun(d_.windowType, d_.betaUpsilon, w);
    winSync(h, w, hw);
    filt(d_.filterType, d_.thetaCenterFreqNormalized, hw, c);
    if (presetCoefficients_ && presetCoefficients_->size() == N)
        std::copy(presetCoefficients_->begin(), presetCoefficients_->end(), c.begin());

    const PrecisionResult precision = bitPrecison(d_.filterWidth, c, q, cp);
    d_.dynamicRange = precision.dynamicRange;
    d_.dynamicRangeError = precision.dynamicRangeError;
    displayNoticeWithSymmetry(verifySymmetry(d_.filterWidth, c, q));

    // The plot array: 8 header numbers, the dB magnitude of the quantised coefficients
    // and the unwrapped phase of the double ones, lower half of the response only.
    // Without quantisation both are the same coefficients and one transform serves.
    plot.resize(kPlotHeader + 2 * kResponseHalf);
    const std::span<double> dBmagnitude(plot.data() + kPlotHeader, kResponseHalf);
    const std::span<double> unwrapped(plot.data() + kPlotHeader + kResponseHalf, kResponseHalf);
    const bool quantised = d_.filterWidth != kWidthDouble;
    fftFilterHalf(c, quantised ? std::span<double>(dBdouble) : dBmagnitude, phase);
    if (quantised)
        fftFilterHalf(cp, dBmagnitude, {});
    const PhaseRange phaseRange =
        unwrapPhase(phase, quantised ? std::span<const double>(dBdouble) : dBmagnitude, unwrapped);

    const Filt3dBResult m = calcFilt3dB(d_.filterType, dBmagnitude, d_.thetaCenterFreqNormalized);
    d_.gimeldbLow = m.low;
    d_.gimeldbHigh = m.high;
    d_.gimeldbBandwidth = m.bandwidth;
    d_.passbandRipple = m.ripple;
    // A crossing interpolated against a flat neighbour has no finite frequency: not found.
    d_.validResultsFlag = m.valid && std::isfinite(m.low) && std::isfinite(m.high) &&
                          std::isfinite(m.bandwidth) && std::isfinite(m.ripple);

    if (!d_.validResultsFlag) {
        lastOutcome_ = DesignOutcome::DesignedInvalid;
        designed_ = Design{};
        if (winFilterDesign_)
            winFilterDesign_->clearFilterDesignResults();
        note(QStringLiteral("WARNING: Increase Filter Length (3dB Point Not Found)"));
        return;
    }

    displayFilterDesignResults();

    const double axisScale = d_.unitsType == 0 ? 1.0 : 0.5 * d_.thetaSamplingFreq;
    const double header[kPlotHeader] = {static_cast<double>(kResponseHalf),
                                        m.largest,
                                        m.smallest,
                                        axisScale,
                                        phaseRange.largest,
                                        phaseRange.smallest,
                                        0.0,
                                        0.0};
    std::copy(std::begin(header), std::end(header), plot.begin());
    dBmagAndPhaseArray_.swap(plot);
    if (winFilterDesign_)
        winFilterDesign_->plotMagnitudeAndPhaseWithArray(dBmagAndPhaseArray_);

    d_.filterCoefficients.assign(c.begin(), c.end());
    d_.filterPrecisionCoefficients.assign(cp.begin(), cp.end());
    d_.integerCoefficients.assign(q.begin(), q.end());
    designed_ = d_;
    lastOutcome_ = DesignOutcome::Designed;
}

void GVRFilterDesignerModel::displayFilterDesignResults()
{
    const double scale = d_.unitsType == 0 ? 1.0 : 0.5 * d_.thetaSamplingFreq;
    filterResultsDictionary_.insert(KEYFDR_3DB_LOW, d_.gimeldbLow * scale);
    filterResultsDictionary_.insert(KEYFDR_3DB_HIGH, d_.gimeldbHigh * scale);
    filterResultsDictionary_.insert(KEYFDR_3DB_BANDWIDTH, d_.gimeldbBandwidth * scale);
    filterResultsDictionary_.insert(KEYFDR_PASSBAND_RIPPLE, d_.passbandRipple);
    filterResultsDictionary_.insert(KEYFDR_DYNAMIC_RNG, d_.dynamicRange);
    filterResultsDictionary_.insert(KEYFDR_DYNAMIC_RNG_ERR, d_.dynamicRangeError);
    if (filterResultsDictionary_.size() == 6 && winFilterDesign_)
        winFilterDesign_->displayFilterDesignResults(filterResultsDictionary_);
}

void GVRFilterDesignerModel::displayNoticeWithSymmetry(int symmetry)
{
    switch (symmetry) {
    case kSymmetryNegative:
        note(QStringLiteral("Filter Coefficients: Negative Symmetry"));
        break;
    case kSymmetryPositive:
        note(QStringLiteral("Filter Coefficients: Positive Symmetry"));
        break;
    default:
        note(QStringLiteral("ERROR: Filter Coefficients are not Symmetric"));
        break;
    }
}
