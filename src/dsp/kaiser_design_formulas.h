// Kaiser's design formulas for the window method: the β that gives a
// stopband attenuation and the length that gives a transition width.
#pragma once

// β for attenuation A dB: 0.1102·(A − 8.7) above 50, 0.5842·(A − 21)^0.4 + 0.07886·(A − 21) from 21 to 50,
// 0 below 21.
double kaiserBeta(double attenuationDb);

// Odd length N from N − 1 = (A − 8)/(2.285·Δω), rounded up to odd; Δω the transition in radians per
// sample (> 0). At least 1.
int kaiserLength(double attenuationDb, double transitionRadians);

// Odd length from Kaiser's estimate for equiripple designs, N − 1 = (−20·log10√(δp·δs) − 13)/(14.6·Δf),
// Δf the transition in cycles per sample (> 0), rounded up to odd; at least 1.
int equirippleLengthEstimate(double deltaPass, double deltaStop, double transitionCycles);
