// Window functions of the FIR designer: eleven symmetric windows evaluated on
// the position ramp x_n = n/(N−1), both end points included.
#pragma once

#include <cstddef>
#include <span>

// Window indices, in the order of the window list.
enum WindowIndex : int {
    kWindowRectangular = 0,
    kWindowBlackman,
    kWindowHamming,
    kWindowHann,
    kWindowBlackmanHarris,
    kWindowCosine,
    kWindowNutall,
    kWindowBlackmanNutall,
    kWindowFlatTop,
    kWindowKaiser,
    kWindowChebyshev,
    kWindowCount
};

// Window `index` 0..10 into w (N = w.size(), 2..512; odd, 3..511, for Chebyshev); parameter is
// β (Kaiser, > 0) or ϒ (Chebyshev, > 0), unused otherwise. An index outside 0..10 leaves w untouched.
void winfun(int index, double parameter, std::span<double> w);

// out = A + B + C + s element by element; all four spans of the same size.
void vectAdd3s(std::span<const double> A, std::span<const double> B, std::span<const double> C, double s,
               std::span<double> out);

// Sine-shaped window cos(π·x − π/2) over the ramp x (values in [0, 1]); w.size() = x.size().
void cosineWinFunc(std::span<const double> x, std::span<double> w);

// Five-term flat-top window over the ramp x, scaled so its largest value is 1; w.size() = x.size() ≤ 512.
void flatTop(std::span<const double> x, std::span<double> w);

// Modified Bessel function I0 by its eleven-term power series, element by element; out.size() = y.size().
void besselTaylor(std::span<const double> y, std::span<double> out);

// Kaiser window I0(β·√(1 − (2x − 1)²)) / I0(β) over the ramp x; β > 0; w.size() = x.size() ≤ 512.
void kaiser(double beta, std::span<const double> x, std::span<double> w);

// Dolph–Chebyshev window, side-lobe level upsilon in decades of amplitude (> 0); N = w.size(), odd, 3..511.
void cheby(double upsilon, std::span<double> w);
