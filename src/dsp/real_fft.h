// Forward real-to-complex FFT on FFTW, unscaled: X[k] = sum x[n] e^(-2πi kn/N).
// A plan is made once per length and reused; the program has one thread.
// Plans are estimated, which is quick, unless wisdom from measured plans of
// the same length was loaded first: then they come out as the measured ones.
#pragma once

#include <complex>
#include <cstddef>
#include <span>
#include <string>

struct fftw_plan_s;

class RealFft {
public:
    // n: transform length, a power of two from 2 to 2^20.
    explicit RealFft(std::size_t n);
    ~RealFft();
    RealFft(const RealFft&) = delete;
    RealFft& operator=(const RealFft&) = delete;

    std::size_t size() const { return n_; }
    // Transform of x (x.size() ≤ n) zero padded to n. The plan leaves its input alone, so only
    // the slots written by the last transform need clearing again.
    void executePadded(std::span<const double> x);
    // n/2 + 1 bins of the last transform; the rest of the spectrum is their complex conjugate mirror.
    std::span<const std::complex<double>> output() const { return {out_, n_ / 2 + 1}; }

    // The shared transform of length n, created on first use.
    static RealFft& ofSize(std::size_t n);

    // Measures plans of these lengths (a second or so) and saves FFTW's wisdom for them
    // at path, replacing it whole; false when it cannot be written.
    static bool measureWisdom(std::span<const std::size_t> lengths, const std::string& path);
    // Loads wisdom saved by measureWisdom, for plans made after this call; false when the
    // file is missing or FFTW does not take it (another FFTW build, say).
    static bool loadWisdom(const std::string& path);

private:
    // rigour: FFTW's planning flag (FFTW_ESTIMATE or FFTW_MEASURE).
    RealFft(std::size_t n, unsigned rigour);

    std::size_t n_;
    std::size_t written_; // inputs from here on are known to be zero
    double* in_;
    std::complex<double>* out_;
    fftw_plan_s* plan_;
};
