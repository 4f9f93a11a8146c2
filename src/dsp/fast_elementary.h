// Whole-array dB, arctangent and range for the frequency response, on
// Highway's vector logarithm and arctangent (a few units in the last place;
// the response needs thousands of them per design).
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <span>

// For complex bins X (X.size() ≤ 65536): dB[k] = 10·log10(Re² + Im²) and, unless phase is empty,
// phase[k] = atan(Im/Re), both of X.size(). Lists in nearZero (room for X.size()) the bins with
// |Re| ≤ tiny and |Im| ≤ tiny, ascending, and returns their count.
std::size_t decibelsAndPhaseOfBins(std::span<const std::complex<double>> X, std::span<double> dB,
                                   std::span<double> phase, double tiny, std::span<std::uint16_t> nearZero);

// Largest and smallest of v (NaN passed over unless v[0] is NaN); both left alone when v is empty.
void rangeOf(std::span<const double> v, double& largest, double& smallest);
