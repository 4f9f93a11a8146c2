// Properties of a window for harmonic analysis, after the classic tables:
// coherent gain, equivalent noise bandwidth, scallop loss, main-lobe widths
// and the highest side lobe, measured on the window exactly as the filter
// design computes it, with the textbook values beside them where they exist.
#pragma once

#include <optional>
#include <span>

struct WindowProperties {
    double coherentGain = 0.0;      // Σw / (N·max|w|)
    double enbwBins = 0.0;          // N·Σw² / (Σw)²
    double scallopLossDb = 0.0;     // −20·log10(|Σ w[n]·e^(−iπn/N)| / Σw)
    double mainLobe3dBBins = 0.0;   // full width where |W| is 3.0103 dB down, bins of N
    double mainLobe6dBBins = 0.0;   // the same 6.0206 dB down
    double highestSidelobeDb = 0.0; // largest 20·log10(|W|/|W(0)|) beyond the first zero of W
};

// Measures window w (N = w.size(), odd, 3..2047, symmetric, Σw ≠ 0) on a zero-padded grid of at least 64·N
// points. Values that cannot be measured (no crossing, no zero) are NaN.
WindowProperties windowProperties(std::span<const double> w);

// The published values for window index 0..10 (Rectangular, Hann, Hamming, Blackman,
// Blackman-Harris have them); nothing for the others.
std::optional<WindowProperties> textbookWindowProperties(int windowIndex);
