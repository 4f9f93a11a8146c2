// Measurement of a sampled signal: its extremes, and the magnitude spectrum
// of one unscaled 16384-point FFT divided by 16384.
#pragma once

#include <cstddef>
#include <span>

inline constexpr std::size_t kSpectrumLength = 16384;

struct SignalExtremes {
    double max = 0.0;
    double min = 0.0;
};

// n = x.size() ≥ 1 samples (none gives 0, 0); the largest and smallest value.
SignalExtremes measureSignal(std::span<const double> x);

// x: up to 16384 samples (zero-padded to 16384, extra samples ignored);
// mag: n ≤ 16384 bins, mag[k] = |X[k]| / 16384 with X the unscaled forward
// transform, bins past 8192 being the mirrored half. Returns the extremes
// over those n bins.
SignalExtremes magSpectrum(std::span<const double> x, std::span<double> mag);
