// Fixed-point view of a filter: coefficients rounded to signed integers of a
// chosen width and rescaled, and the symmetry test of the coefficients.
#pragma once

#include <cstdint>
#include <span>

// Coefficient width indices: 0 "Double", 1..13 for 20 down to 8 bits.
inline constexpr int kWidthDouble = 0;
inline constexpr int kWidthCount = 14;

// Bits (sign included) of width index 1..13: 21 − index; 0 for "Double" or an index out of range.
int widthBits(int widthIndex);
// The width index of `bits` 8..20 (the inverse of widthBits); -1 for any other count.
int widthIndexForBits(int bits);

struct PrecisionResult {
    double dynamicRange = 0.0;      // |max c / min c|
    double dynamicRangeError = 0.0; // percent
};

// Quantises c (N = c.size() = q.size() = cp.size()) to width `widthIndex` 0..13: q the integers
// (all 0 for "Double"), cp the integers rescaled to the range of c (a copy of c for "Double").
PrecisionResult bitPrecison(int widthIndex, std::span<const double> c, std::span<std::int32_t> q,
                            std::span<double> cp);

// Symmetry codes.
enum SymmetryCode : int { kSymmetryNone = 0, kSymmetryNegative = 1, kSymmetryPositive = 2 };

// Symmetry of c (width 0, within 1e-10) or of q (other widths) over the (N−1)/2 outer pairs;
// N = c.size() = q.size(), odd.
int verifySymmetry(int widthIndex, std::span<const double> c, std::span<const std::int32_t> q);
