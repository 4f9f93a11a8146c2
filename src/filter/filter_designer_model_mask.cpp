// The filter designer model's design to a tolerance mask and its measured
// analysis. A mask design ends as an ordinary design: the Kaiser method
// through the specified fields, the equiripple method with its coefficients
// put in place of the window method's before quantisation.
#include "filter/filter_designer_model.h"

#include "dsp/fir_synthesis.h"
#include "dsp/quantisation.h"
#include "dsp/window.h"
#include "filter/filter_design_view.h"
#include "filter/filter_keys.h"
#include "filter/mask_design.h"

#include <cmath>

bool GVRFilterDesignerModel::designFilterToMask(const QVariantMap& parameters, int method,
                                                const ToleranceMask& typedMask, std::optional<int> taps)
{
    const int units = parameters.value(KEYFP_UNITS).toInt();
    const double fs = parameters.value(KEYFP_SAMPLING_FREQ).toDouble();
    const int width = parameters.value(KEYFP_FILTER_WIDTH).toInt();
    note(QString());
    if (units != 0 && !(fs > 0.0)) {
        note(QStringLiteral("VALID RANGE: fsampling > 0"));
        return false;
    }
    const double half = units == 0 ? 1.0 : 0.5 * fs;
    ToleranceMask mask = typedMask;
    mask.type = parameters.value(KEYFP_FILTER_TYPE).toInt();
    const MaskProblem problem = maskProblem(mask, half);
    if (!problem.text.isEmpty()) {
        note(problem.text, problem.value, problem.withValue);
        return false;
    }
    if (method != kMaskKaiser && method != kMaskEquiripple) {
        note(QStringLiteral("VALID RANGE: method index 0 to 1"));
        return false;
    }
    if (width < 0 || width >= kWidthCount) {
        note(QStringLiteral("VALID RANGE: width index 0 to 13"));
        return false;
    }
    for (double* edge : {&mask.passband[0], &mask.passband[1], &mask.stopband[0], &mask.stopband[1]})
        *edge /= half;
    const std::optional<MaskDesign> found = designToMask(method, mask, width, taps);
    if (!found) {
        note(QStringLiteral("ERROR: the equiripple design did not converge"));
        return false;
    }

    QVariantMap design = parameters;
    design.insert(KEYFP_FILTER_LENGTH, double(found->taps));
    const bool kaiserWindow = method == kMaskKaiser && found->beta > 0.0;
    design.insert(KEYFP_WINDOW_TYPE, kaiserWindow ? int(kWindowKaiser) : int(kWindowRectangular));
    design.insert(KEYFP_BETA_UPSILON, found->beta);
    design.insert(KEYFP_CUTOFF_FREQ, found->cutoff * half);
    design.insert(KEYFP_CENTER_FREQ, found->center * half);

    maskDesignRunning_ = true;
    presetCoefficients_ = method == kMaskEquiripple ? &found->coefficients : nullptr;
    d_.designMethod = method == kMaskEquiripple ? 1 : 0;
    d_.mask = mask;
    designFilterWithParameters(design);
    presetCoefficients_ = nullptr;
    maskDesignRunning_ = false;
    if (!d_.validResultsFlag)
        return true;
    if (const auto check = maskCheck(); check && !check->met)
        note(QStringLiteral("Mask missed by %1 dB at %2")
                 .arg(check->missDb, 0, 'f', 1)
                 .arg(check->worstFrequency * half, 0, 'f', 3));
    return true;
}

std::optional<MaskCheck> GVRFilterDesignerModel::maskCheck() const
{
    if (!d_.mask || d_.filterPrecisionCoefficients.empty())
        return std::nullopt;
    std::vector<double> power(kAnalysisBins);
    analysisPower(d_.filterPrecisionCoefficients, power);
    return checkMask(*d_.mask, power);
}

double GVRFilterDesignerModel::typedCutoffNormalized() const
{
    return d_.filterType == kFilterHighPass ? 1.0 - d_.thetaCutoffFreqNormalized
                                            : d_.thetaCutoffFreqNormalized;
}

FilterMeasurement GVRFilterDesignerModel::measured() const
{
    std::vector<std::int32_t> q(d_.integerCoefficients.begin(), d_.integerCoefficients.end());
    return measureFilter(d_.filterType, typedCutoffNormalized(), d_.thetaCenterFreqNormalized, d_.filterWidth,
                         d_.filterCoefficients, d_.filterPrecisionCoefficients, q);
}

std::array<SweepRow, kSweepRows> GVRFilterDesignerModel::wordLengthSweep() const
{
    std::array<SweepRow, kSweepRows> rows{};
    ::wordLengthSweep(d_.filterType, typedCutoffNormalized(), d_.thetaCenterFreqNormalized,
                      d_.filterCoefficients, rows);
    return rows;
}
