// Whole-array logarithm and arctangent for the frequency response: branch-free
// loops the compiler can vectorise, accurate to a few units in the last place
// (the response needs thousands of them per design).
#pragma once

#include <span>

// dB[i] = 10·log10(power[i]) for squared magnitudes; dB.size() = power.size().
void decibelsOfPower(std::span<const double> power, std::span<double> dB);

// out[i] = atan(im[i] / re[i]), the one-argument arctangent (−π/2..π/2); all three spans of one size.
void arctangentOfRatio(std::span<const double> im, std::span<const double> re, std::span<double> out);
