// The formulas of the eleven signal functions.
#include "charts/formula_table.h"

#include <array>

namespace {

// One string per function, split at ",". The runs of spaces align the limits
// of the sums under the ∑ and pad every formula to a common width.
const std::array<const char*, kFormulaCount> kSources = {
    "      ,x[n] = A cos(2π fₐ nT + Φ) + AGN              ,      ",
    "      ,x[n] = A₁ cos(2π fₐ₁ nT) + A₂ cos(2π fₐ₂ nT) + AGN,      ",
    "               M     ,x[n] = A ∑ cos(2π m fₐ nT + Φ) + AGN          ,               m=1   ",
    "      ,x[n] = A sin(2π fₐ nT + Φ) + AGN              ,      ",
    "      ,x[n] = A₁ sin(2π fₐ₁ nT) + A₂ sin(2π fₐ₂ nT) + AGN,      ",
    "               M     ,x[n] = A ∑ sin(2π m fₐ nT + Φ) + AGN          ,               m=1   ",
    "      ,x[n] = AGN = μ + Rayleigh(σ) cos()           ,      ",
    "      ,x[n] = A₁ sin(2π fₐ₁ nT) * A₂ sin(2π fₐ₂ nT) + AGN,      ",
    "      ,x[n] = A rect(nT/τ) + AGN                     ,      ",
    "      ,x[n] = sinc(β π nT) + AGN                     ,      ",
    "      ,x[n] = sinc²(β π nT) + AGN                    ,      ",
};

} // namespace

QStringList formulaLines(int index)
{
    if (index < 0 || index >= kFormulaCount)
        return {QString(), QString(), QString()};
    return QString::fromUtf8(kSources[static_cast<std::size_t>(index)]).split(QLatin1Char(','));
}
