// Frequency response of a set of FIR coefficients on the fixed 4096-point
// grid, and the unwrapping of its one-argument-arctangent phase.
#pragma once

#include <cstddef>
#include <span>

// Points of the response grid; the first half (0 to fs/2) is what gets measured and drawn.
inline constexpr std::size_t kResponsePoints = 4096;
inline constexpr std::size_t kResponseHalf = 2048;

// 4096-point response of coefficients c (1..4096 of them, zero padded): dB = 20·log10|X[k]| and
// phase = atan(Im/Re) in radians (−π/2..π/2). dB.size() = 4096; phase.size() = 4096, or 0 to skip it.
void fftFilter(std::span<const double> c, std::span<double> dB, std::span<double> phase);

// The lower half of the same response: bins 0..m−1 of dB and phase, m = dB.size() ≤ 2049;
// phase.size() = m, or 0 to skip it. Values equal those fftFilter gives for these bins.
void fftFilterHalf(std::span<const double> c, std::span<double> dB, std::span<double> phase);

struct PhaseRange {
    double largest = 0.0;
    double smallest = 0.0;
};

// Unwraps the wrapped phase P (radians) into U (n = U.size() points, ≥ 5) using the dB magnitude D to
// find notches, where the phase jumps by π. P and D hold at least n points.
PhaseRange unwrapPhase(std::span<const double> P, std::span<const double> D, std::span<double> U);
