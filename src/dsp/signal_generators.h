// The eleven analytic test signals of the signal designer, sampled at
// t[k] = k / fs, and the dispatcher that adds Gaussian noise to them.
//
// Sinusoids are evaluated from the phase in cycles, c·k with c = fₐ / fs held
// in double-double and reduced to [-1/2, 1/2] before any trigonometry, so a
// sample is within a few 1e-16 · |A| of the exact formula even 8000 cycles
// into the record, where evaluating cos(2π fₐ kT) directly loses ~1e-11.
// Frequencies and times pair up (MHz with μs, KHz with ms), so f·t is cycles.
#pragma once

#include <cstdint>
#include <span>

// Longest record the designer makes; every function below accepts any n.
inline constexpr std::size_t kSignalSamples = 16384;

// index 0..10 (other values give all zeros and maxFreq 0); fs > 0 in the
// frequency unit; p1..p6 as the signal function defines them. Fills out
// (n = out.size()) with signal + noise and returns the highest significant
// frequency of the signal.
double signalTimeDomain(int index, double fs, double p1, double p2, double p3, double p4, double p5,
                        double p6, std::span<double> out);

// A, fₐ (fs units), ϕ (rad), fs > 0; out[k] = A cos(2π fₐ k/fs + ϕ).
void cosineSig(double A, double fa, double phi, double fs, std::span<double> out);
// A, fₐ, ϕ (rad), fs > 0; out[k] = A sin(2π fₐ k/fs + ϕ).
void sineSig(double A, double fa, double phi, double fs, std::span<double> out);

// Amplitudes A₁, A₂, frequencies fₐ₁, fₐ₂, fs > 0; out = x₁ + x₂ with ϕ = 0.
void cosineTwoSig(double A1, double fa1, double A2, double fa2, double fs, std::span<double> out);
void sineTwoSig(double A1, double fa1, double A2, double fa2, double fs, std::span<double> out);

// A, fₐ, ϕ (rad, the same for every harmonic), M (used as floor(M), negative
// or NaN → none, saturating at 2^32 − 1), fs > 0;
// out[k] = A Σ_{m=1..M} cos(2π m fₐ k/fs + ϕ). Cost does not grow past 64 harmonics.
void cosineSumSig(double A, double fa, double phi, double M, double fs, std::span<double> out);
void sineSumSig(double A, double fa, double phi, double M, double fs, std::span<double> out);

// A₁, fₐ₁, A₂, fₐ₂, fs > 0; out[k] = A₁ sin(2π fₐ₁ k/fs) · A₂ sin(2π fₐ₂ k/fs).
void mixerSig(double A1, double fa1, double A2, double fa2, double fs, std::span<double> out);

// A, τ (time unit), fs > 0; out[k] = A while k·T < τ (T = 1/fs), else 0.
void rectSig(double A, double tau, double fs, std::span<double> out);

// β ≠ 0, fs > 0; out[k] = sin(βπ k/fs) / (βπ k/fs), out[0] = 1.
void sincBetaSig(double beta, double fs, std::span<double> out);
// β ≠ 0, fs > 0; the square of sincBetaSig.
void sincSquaredBetaSig(double beta, double fs, std::span<double> out);

// Floor of a harmonic count as the sums use it: NaN or negative → 0,
// saturating at 2^32 − 1.
std::uint32_t harmonicCount(double M);
