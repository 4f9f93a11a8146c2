// Where the spectrum charts get their data: the signal or project window.
#pragma once

#include <vector>

class FreqArraySource {
public:
    virtual ~FreqArraySource() = default;
    // A copy of the latest frequency-domain array (8200 numbers for a signal,
    // 16400 for a project); empty before the first design.
    virtual std::vector<double> theFreqArray() const = 0;
};
