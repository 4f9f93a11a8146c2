// Block diagram 2: rate change by L/M — zero insertion, the FIR stage at the
// high rate, and keeping every M-th sample — plus the automatic low pass.
#pragma once

#include <cstddef>
#include <span>

inline constexpr std::size_t kAutoFilterTaps = 255;

// L ≥ 1; u: n = u.size() outputs, u[i] = x[i/L] when L divides i, else 0
// (x reads as zero past its end; u may share x's memory). Returns false
// (u all zero) for L < 1.
bool interpolateSignal(std::span<const double> x, int L, std::span<double> u);

// M ≥ 1; y: n = y.size() outputs, y[j] = v[M·j] while M·j < n, then zeros
// (v reads as zero past its end). Returns false (y all zero) for M < 1.
bool decimateSignal(std::span<const double> v, int M, std::span<double> y);

// L, M ≥ 1; h: exactly 255 taps, a Chebyshev-windowed (ϒ = 3.5) low pass
// whose band edge is near half the lower of the input and output rates.
// Returns false (h untouched) for L or M below 1.
bool autoGenLPF(int L, int M, std::span<double> h);

// The pass-band bin count k = ⌊(255 / max(L, M) + 1) · 0.5⌋ of autoGenLPF.
std::size_t autoFilterPassBins(int L, int M);

// L, M in 1 .. 16; x: n input samples; h: N_H ≥ 1 taps; y: outputs wanted.
// Equals decimateSignal(convolutionSysOut(interpolateSignal(x, L, L·n), h), M)
// cut to y.size(), to rounding (taps are summed in two interleaved halves),
// but only forms the products that meet an input sample and only the
// outputs kept. L = M = 1 copies x unfiltered. y may share x's memory.
// Returns false (y all zero) for L or M outside 1 .. 16.
bool multirateSysOut(std::span<const double> x, std::span<const double> h, int L, int M, std::span<double> y);

// The two high-rate sequences the system forms before decimation, cut to
// their first w.size() and p.size() samples: w = interpolateSignal(x, L, L·n)
// and p = convolutionSysOut(w, h) over the whole L·n samples (n = x.size()),
// so p[M·j] is output j of multirateSysOut to rounding. With L = M = 1 the
// system filters nothing and both are copies of x. Only the first p.size()
// + 4⌈N_H/4⌉ high-rate samples are formed. Returns false (all zero) for L or
// M outside 1 .. 16.
bool multirateStages(std::span<const double> x, std::span<const double> h, int L, int M, std::span<double> w,
                     std::span<double> p);
