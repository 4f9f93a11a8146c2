// Parks–McClellan equiripple FIR design through liquid-dsp's firdespm, for a
// low pass, band pass or high pass described by a tolerance mask.
#pragma once

#include "dsp/tolerance_mask.h"

#include <span>

// The optimum odd-length (h.size() = N, odd, 3..511) linear-phase filter for the mask's edges, weight 1 in
// the passband and δp/δs in the stopband. False (h untouched) when the mask's edges are out of order or the
// library refuses.
bool equirippleDesign(const ToleranceMask& mask, std::span<double> h);
