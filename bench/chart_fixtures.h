// The chart fixtures the paint and interaction benchmarks share: a busy
// time record and a 51-tap low pass's response, served as the views read them.
#pragma once

#include <vector>

#include "charts/mag_phase_array_source.h"
#include "charts/time_array_source.h"

namespace bench {

struct ChartArrays : MagPhaseArraySource, TimeArraySource {
    std::vector<double> response;
    std::vector<double> time;
    std::vector<double> theMagPhaseArray() const override { return response; }
    std::vector<double> theTimeArray() const override { return time; }
};

// A noisy two-tone record of 16384 samples: a busy curve that fills the plot band.
std::vector<double> busyTimeArray();

// A 51-tap low pass: flat pass band, side lobes down to -90 dB, linear phase
// with a jump of π at each stop-band notch.
std::vector<double> lowPassResponseArray();

} // namespace bench
