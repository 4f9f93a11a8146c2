// Whole-array dB, arctangent and range: argument checks in front of the
// vector kernels.
#include "dsp/fast_elementary.h"

#include "dsp/contract.h"
#include "dsp/vector_kernels.h"

std::size_t decibelsAndPhaseOfBins(std::span<const std::complex<double>> X, std::span<double> dB,
                                   std::span<double> phase, double tiny, std::span<std::uint16_t> nearZero)
{
    const std::size_t n = X.size();
    if (!DSP_EXPECTS(n <= 65536 && dB.size() == n && (phase.empty() || phase.size() == n) &&
                     nearZero.size() >= n))
        return 0;
    return vector_kernels::decibelsAndPhase(X, dB, phase, tiny, nearZero);
}

void rangeOf(std::span<const double> v, double& largest, double& smallest)
{
    if (!v.empty())
        vector_kernels::range(v, largest, smallest);
}
