// Design to a tolerance mask: the refusal of a mask that makes no sense, and
// the search for the shortest filter (25..255 taps) whose quantised response
// meets it, by Kaiser's window method or by an equiripple design.
#pragma once

#include "dsp/tolerance_mask.h"

#include <QString>

#include <optional>
#include <vector>

enum MaskMethod : int { kMaskKaiser = 0, kMaskEquiripple = 1 };

// The first broken rule of a mask typed in units whose half sampling frequency is `half`
// (1.0 for "Norm"), in the note line's "VALID RANGE: " words with its number; empty when it is valid.
struct MaskProblem {
    QString text;
    double value = 0.0;
    bool withValue = false;
};
MaskProblem maskProblem(const ToleranceMask& typed, double half);

struct MaskDesign {
    int taps = 0;
    double beta = 0.0;   // Kaiser's β (Kaiser method)
    double cutoff = 0.0; // the window design's cutoff as typed (middle of the transition), normalised
    double center = 0.0; // its band-pass centre, normalised
    MaskCheck check;     // of the quantised coefficients at `taps`
    std::vector<double> coefficients; // the double coefficients at `taps`
};

// The shortest odd N in 25..255 whose coefficients, quantised to width index `widthIndex`, meet the
// normalised mask; N = 255 (with its miss) when none does. With `taps` the design is made at that N.
// Nothing when the equiripple library refuses every length.
std::optional<MaskDesign> designToMask(int method, const ToleranceMask& mask, int widthIndex,
                                       std::optional<int> taps = std::nullopt);

// The coefficients of one trial and its check, for tests and benchmarks.
std::optional<MaskDesign> maskTrial(int method, const ToleranceMask& mask, int widthIndex, int taps);
