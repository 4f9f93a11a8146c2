// Block diagram 1: the signed sum of two signals and the FIR filter stage,
// which the multirate system reuses at its high rate.
#pragma once

#include <span>

// Sign codes of the project's sign pop-ups: 0 → +1, 1 → −1, 2 (or any other) → 0.
double signMultiplier(int signCode);

// x1, x2: n = x.size() samples (shorter ones read as zeros); x[i] = s₁·x₁[i] + s₂·x₂[i] (a term
// whose code is 2 contributes exactly nothing).
void sumTwoSignals(std::span<const double> x1, std::span<const double> x2, int sign1, int sign2,
                   std::span<double> x);

// h: N_H = h.size() ≥ 1 taps; input: n = y.size() samples (only input[0 .. n−1]
// is read; a shorter input reads as zeros past its end). The linear convolution
// read N_H − 1 samples ahead: y[i] = Σ_{p=0}^{N_H−1} input[i+p] · h[N_H−1−p] for i < R = n − 4⌈N_H/4⌉,
// summed in that order, and y[i] = 0 from R on. y may share input's memory.
void convolutionSysOut(std::span<const double> input, std::span<const double> h, std::span<double> y);

// First output index that convolutionSysOut leaves zero: n − 4⌈N_H/4⌉ (0 if negative).
std::size_t convolutionOutputLength(std::size_t n, std::size_t taps);
