// Where the filter response chart gets its data: the filter design window.
#pragma once

#include <vector>

class MagPhaseArraySource {
public:
    virtual ~MagPhaseArraySource() = default;
    // A copy of the latest 4104-number response array; empty before the first design.
    virtual std::vector<double> theMagPhaseArray() const = 0;
};
