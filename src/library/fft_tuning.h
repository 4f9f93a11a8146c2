// FFT plans tuned to the processor. A build run from its own folder measures
// the transform lengths the models use at build time and keeps FFTW's wisdom
// beside the sample designs. An installed program carries none (another
// processor may want other plans): it measures once, in the background, and
// keeps the wisdom in the user's cache folder. Until then plans are
// estimated, which gives the same numbers a little more slowly.
#pragma once

#include <array>
#include <cstddef>

#include <QString>

// The transform lengths the models use: the filter responses and the signal spectrum.
std::array<std::size_t, 2> tunedFftLengths();

// Loads the bundled wisdom ("fftw-wisdom", found as bundledDataPath finds it); false
// when there is none or FFTW does not take it.
bool loadBundledFftWisdom();

// "<generic cache folder>/orvana/fftw-wisdom" (~/.cache/orvana/fftw-wisdom),
// shared by the desktop program and the command line.
QString cachedFftWisdomPath();

enum class FftWisdomSource { Bundled, Cached, None };
// The bundled wisdom, else the user's cached wisdom; which one was loaded.
FftWisdomSource loadFftWisdom();

// Measures the plans of tunedFftLengths() and keeps the wisdom at `path`
// (its folder made if missing), replacing it atomically. False when it cannot.
bool measureFftWisdom(const QString& path);
