// Where the filter response chart gets its data: the filter design window.
#pragma once

#include <optional>
#include <vector>

#include "dsp/tolerance_mask.h"

class MagPhaseArraySource {
public:
    virtual ~MagPhaseArraySource() = default;
    // A copy of the latest 4104-number response array; empty before the first design.
    virtual std::vector<double> theMagPhaseArray() const = 0;
    // The design's double and quantised coefficients, for the impulse, step,
    // group delay and zeros charts; empty before the first design.
    virtual std::vector<double> theCoefficients() const { return {}; }
    virtual std::vector<double> thePrecisionCoefficients() const { return {}; }
    // The tolerance mask the design was made to (normalised), while one is set.
    virtual std::optional<ToleranceMask> theMask() const { return std::nullopt; }
};
