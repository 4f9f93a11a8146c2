// Forward real-to-complex FFT on FFTW, unscaled: X[k] = sum x[n] e^(-2πi kn/N).
// A plan is made once per length and reused; the program has one thread.
#pragma once

#include <complex>
#include <cstddef>
#include <span>

struct fftw_plan_s;

class RealFft {
public:
    // n: transform length, a power of two from 2 to 2^20.
    explicit RealFft(std::size_t n);
    ~RealFft();
    RealFft(const RealFft&) = delete;
    RealFft& operator=(const RealFft&) = delete;

    std::size_t size() const { return n_; }
    // n real inputs; fill before execute().
    std::span<double> input()
    {
        written_ = n_;
        return {in_, n_};
    }
    // n/2 + 1 bins; the rest of the spectrum is their complex conjugate mirror.
    std::span<const std::complex<double>> output() const { return {out_, n_ / 2 + 1}; }
    void execute();
    // Transform of x (x.size() ≤ n) zero padded to n. The plan leaves its input alone, so only
    // the slots written since the last padded transform need clearing again.
    void executePadded(std::span<const double> x);

    // The shared transform of length n, created on first use.
    static RealFft& ofSize(std::size_t n);

private:
    std::size_t n_;
    std::size_t written_; // inputs from here on are known to be zero
    double* in_;
    std::complex<double>* out_;
    fftw_plan_s* plan_;
};
