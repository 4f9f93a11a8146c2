// More views of an FIR design for its charts: step response, group delay
// and the zeros of the transfer function. Free functions over coefficient
// arrays; the charts only read what they return.
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <vector>

namespace designviews {

// Running sum of the coefficients: s[n] = h[0] + … + h[n].
std::vector<double> stepResponse(std::span<const double> h);

// Group delay in samples of h at the frequencies k·fs/4096, k = 0 … points−1
// (points ≤ 2049), as Re{DFT(n·h) / DFT(h)}. NaN where |H| < 1e−6·max|H|
// over those frequencies, where the delay is undefined.
std::vector<double> groupDelay(std::span<const double> h, std::size_t points = 2048);

// The N − 1 zeros of Σ h[n]·z^(−n): the eigenvalues of the companion matrix
// of h[0]·z^(N−1) + … + h[N−1] (Eigen), or for a linear-phase h (symmetric
// or antisymmetric to rounding) the reciprocal pairs from the colleague
// matrix of half its degree, after the zeros at ±1 its symmetry forces; then
// one zero at the origin for each trailing zero coefficient, then one at
// infinity (real part +∞, imaginary 0) for each leading zero coefficient:
// H(z) = z^(−1)·(…) there, so the degree of the polynomial drops while the
// filter keeps its N − 1 zeros. Empty for fewer than two coefficients or all
// zeros (no polynomial to factor).
std::vector<std::complex<double>> transferZeros(std::span<const double> h);

} // namespace designviews
