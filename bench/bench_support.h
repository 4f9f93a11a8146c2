// Timing helpers for the benchmark programs: median of repeated runs, and the
// same job timed in numpy/scipy by a script run in the same session.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace bench {

// Median wall time in microseconds of `repeats` calls of `job`, after a warm-up.
double medianMicros(const std::function<void()>& job, int repeats);

// Runs bench/<script> under Debian's python3 with the arguments and returns
// the median microseconds it prints on its last line, or nothing when numpy
// or scipy is missing.
std::optional<double> pythonMedianMicros(const std::string& script, const std::string& args);

// Loads the FFT wisdom the build measured, as the programs do at start, and says
// on one line whether the plans are measured or estimated.
void loadFftWisdom();

// One line of output: "<label>: <median> µs" and, with a reference, its time and the ratio.
void report(const std::string& label, double micros, std::optional<double> referenceMicros,
            const std::string& referenceLabel);

} // namespace bench
