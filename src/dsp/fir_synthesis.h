// Window-method FIR synthesis: ideal low-pass frequency samples, the centred
// inverse DFT that turns them into an impulse response, peak-restoring
// windowing and the band transform to band pass or high pass.
#pragma once

#include <cstddef>
#include <span>

// Largest number of taps (and inverse-DFT points) any routine here accepts.
inline constexpr std::size_t kFirMaxTaps = 512;

// The filter designer's length range: odd lengths from 25 to 255 taps.
inline constexpr int kDesignMinTaps = 25;
inline constexpr int kDesignMaxTaps = 255;

// Filter type indices, as stored in designs.
enum FilterTypeIndex : int { kFilterLowPass = 0, kFilterBandPass = 1, kFilterHighPass = 2 };

// Pass-band sample count M = floor((N·θ + 1)/2); N taps (odd, ≤ 512), θ normalised cutoff in [0, 1].
std::size_t passbandCount(std::size_t N, double theta);

// Ideal low-pass samples: H[k] = 1 for k ≤ M and k ≥ N − M, else 0; N = H.size() ≤ 512, M < N/2.
void idealLowPassSamples(std::size_t M, std::span<double> H);

// Centred inverse DFT by direct cosine sum: h[(k+(N-1)/2) mod N] = (1/N) Σ H[i] cos(2πki/N). N = H.size() =
// h.size(), odd, ≤ 512.
void iDFTforSinc(std::span<const double> H, std::span<double> h);

// Plain inverse DFT of a real spectrum: x[k] = (1/N) Σ X[i] cos(2πki/N); N = X.size() = x.size(), 1..512.
void inverseDFT(std::span<const double> X, std::span<double> x);

// out[i] = a·cos(ω·u[i]); ω in radians per unit of u; out.size() = u.size().
void cosineTerm(double a, double omega, std::span<const double> u, std::span<double> out);

// Windowing with peak restoration: hw = w·h·(max h / max(w·h)); all three of size N ≤ 512.
void winSync(std::span<const double> h, std::span<const double> w, std::span<double> hw);

// Band transform of the windowed low pass hw into c (same size N, odd ≤ 512): type 0 low pass,
// 1 band pass centred on theta0 (normalised, 0..1), 2 high pass; any other type gives zeros.
void filt(int type, double theta0, std::span<const double> hw, std::span<double> c);
