// The loops of the numerical core that run on the processor's widest vectors.
// Google Highway compiles each of them once per instruction set and picks the
// best one the processor has when first called (vector_kernels.cpp). Callers
// check the array sizes; these routines take them as given.
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vector_kernels {

// dB[k] = 10·log10(|X[k]|²) and, unless phase is empty, phase[k] = atan(Im/Re); lists the bins with
// |Re| ≤ tiny and |Im| ≤ tiny in nearZero and returns their count. dB, phase (if any) and nearZero
// hold X.size().
std::size_t decibelsAndPhase(std::span<const std::complex<double>> X, std::span<double> dB,
                             std::span<double> phase, double tiny, std::span<std::uint16_t> nearZero);

// Largest and smallest of v (not empty), comparisons passing over NaN unless v[0] is NaN.
void range(std::span<const double> v, double& largest, double& smallest);

// q[n] = c[n] / cmax · fullScale rounded half away from zero, saturated to 32 bits, NaN to 0;
// q.size() = c.size().
void quantise(std::span<const double> c, double cmax, double fullScale, std::span<std::int32_t> q);

// cp[n] = q[n] / qmax · cmax; cp.size() = q.size().
void rescale(std::span<const std::int32_t> q, double qmax, double cmax, std::span<double> cp);

// The unwrapping of unwrapPhase (frequency_response.h) without its range; P, D and U of n points,
// 5 ≤ n ≤ 4096.
void unwrap(std::span<const double> P, std::span<const double> D, std::span<double> U);

// out[i] = I0(y[i]) by the eleven-term power series; out.size() = y.size().
void besselSeries(std::span<const double> y, std::span<double> out);

// w[i] = I0(β·√(1 − (2x[i] − 1)²)) / I0(β); w.size() = x.size().
void kaiserWindow(double beta, std::span<const double> x, std::span<double> w);

} // namespace vector_kernels
