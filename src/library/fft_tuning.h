// FFT plans tuned when the program was built: the build measures the transform
// lengths the models use and keeps FFTW's wisdom beside the sample designs, and
// every program loads it before its first transform. Without it plans are
// estimated, which gives the same numbers a little more slowly.
#pragma once

#include <array>
#include <cstddef>

// The transform lengths the models use: the filter responses and the signal spectrum.
std::array<std::size_t, 2> tunedFftLengths();

// Loads the bundled wisdom ("fftw-wisdom", found as bundledDataPath finds it); false
// when there is none or FFTW does not take it.
bool loadBundledFftWisdom();
