// Saved filters read for a comparison.
#include "filter/filter_comparison.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "dsp/frequency_response.h"
#include "library/design_source.h"

namespace {

constexpr double kMaxTaps = 512.0;

} // namespace

std::optional<ComparedFilter> comparedFilter(const DesignSource& source, const QString& name, QString* error)
{
    auto refuse = [&](const QString& why) {
        if (error)
            *error = QStringLiteral("\"%1\": %2").arg(name, why);
        return std::nullopt;
    };
    const std::optional<GVRFilter> record = source.filterRecord(name);
    if (!record)
        return refuse(QStringLiteral("no readable filter design of that name in the library"));
    const GVRFilter& r = *record;
    if (!r.dfFilterLengthN || !r.filterPrecisionCoefficients || !r.unitsType)
        return refuse(QStringLiteral("the design lacks its length, units or coefficients"));
    const double taps = *r.dfFilterLengthN;
    const std::vector<double>& cp = *r.filterPrecisionCoefficients;
    if (!(taps >= 1.0 && taps <= kMaxTaps) || taps != std::trunc(taps) || cp.size() < std::size_t(taps))
        return refuse(QStringLiteral("the design's length does not match its coefficients"));
    const auto n = static_cast<std::ptrdiff_t>(taps);
    if (!std::all_of(cp.begin(), cp.begin() + n, [](double v) { return std::isfinite(v); }))
        return refuse(QStringLiteral("the design's coefficients are not finite numbers"));
    ComparedFilter f;
    f.name = name;
    const std::int64_t units = *r.unitsType;
    if (units < 0 || units > 2)
        return refuse(QStringLiteral("the design's units are unknown"));
    f.units = static_cast<int>(units);
    if (f.units != 0) {
        if (!r.dfThetaSamplingFreq || !std::isfinite(*r.dfThetaSamplingFreq) || *r.dfThetaSamplingFreq <= 0.0)
            return refuse(QStringLiteral("the design's sampling frequency is not a positive number"));
        f.fsOver2 = 0.5 * *r.dfThetaSamplingFreq;
    }
    f.dB.assign(kResponseHalf, 0.0);
    fftFilterHalf(std::span<const double>(cp.data(), std::size_t(n)), f.dB, {});
    return f;
}
