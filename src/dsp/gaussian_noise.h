// Additive Gaussian noise by the Box–Muller transform, one cosine branch:
// noise = μ + σ √(2 ln(1 / (1 − U₁))) cos(2π U₂). Every call draws fresh
// values from generators seeded by the operating system's entropy, so noise
// is never reproducible; the transform itself is exposed for testing.
#pragma once

#include <cstdint>
#include <span>

// σ ≥ 0 and μ in the voltage unit; out (n = out.size()) gets fresh noise.
// σ = 0 gives exactly μ in every sample.
void gaussianSig(double sigma, double mu, std::span<double> out);

// in and out of equal length (they may be the same buffer); out = in + noise.
void addGaussianNoiseSig(std::span<const double> in, double sigma, double mu, std::span<double> out);

// The transform alone: draws r1[k], r2[k] in 0 .. 2^31 − 1 (higher bits are
// ignored) give U = r · 2^-31, so U₁ < 1 and no sample is infinite; the
// largest magnitude is σ · 6.55. All spans of length n = out.size().
void boxMullerSig(std::span<const std::uint32_t> r1, std::span<const std::uint32_t> r2, double sigma,
                  double mu, std::span<double> out);

// n uniform draws in 0 .. 2^31 − 1 from a generator freshly seeded by the
// system's entropy source.
void uniformDraws(std::span<std::uint32_t> out);
