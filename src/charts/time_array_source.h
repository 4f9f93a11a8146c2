// Where the time-domain charts get their data: the signal or project window.
#pragma once

#include <vector>

class TimeArraySource {
public:
    virtual ~TimeArraySource() = default;
    // A copy of the latest time-domain array (16392 numbers for a signal,
    // 32784 for a project); empty before the first design.
    virtual std::vector<double> theTimeArray() const = 0;
};
