#include "dsp/real_fft.h"

#include "dsp/contract.h"

#include <fftw3.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

namespace {

bool isValidLength(std::size_t n)
{
    return n >= 2 && n <= (std::size_t{1} << 20) && (n & (n - 1)) == 0;
}

} // namespace

// ESTIMATE keeps the first design quick (or picks up loaded wisdom); the plan is reused afterwards.
RealFft::RealFft(std::size_t n) : RealFft(n, FFTW_ESTIMATE) {}

RealFft::RealFft(std::size_t n, unsigned rigour) : n_(n), written_(n)
{
    if (!isValidLength(n))
        throw std::invalid_argument("RealFft: length must be a power of two");
    in_ = fftw_alloc_real(n);
    out_ = reinterpret_cast<std::complex<double>*>(fftw_alloc_complex(n / 2 + 1));
    plan_ = fftw_plan_dft_r2c_1d(static_cast<int>(n), in_, reinterpret_cast<fftw_complex*>(out_),
                                 rigour | FFTW_PRESERVE_INPUT);
}

RealFft::~RealFft()
{
    fftw_destroy_plan(plan_);
    fftw_free(in_);
    fftw_free(out_);
}

void RealFft::executePadded(std::span<const double> x)
{
    if (!DSP_EXPECTS(x.size() <= n_))
        return;
    const std::size_t m = x.size();
    std::copy_n(x.begin(), m, in_);
    if (written_ > m)
        std::fill(in_ + m, in_ + written_, 0.0);
    written_ = m;
    fftw_execute(plan_);
}

RealFft& RealFft::ofSize(std::size_t n)
{
    static std::map<std::size_t, std::unique_ptr<RealFft>> plans;
    auto& slot = plans[n];
    if (!slot)
        slot = std::make_unique<RealFft>(n);
    return *slot;
}

bool RealFft::measureWisdom(std::span<const std::size_t> lengths, const std::string& path)
{
    // Planning with MEASURE leaves the measured plans in FFTW's wisdom.
    for (const std::size_t n : lengths) {
        if (!isValidLength(n))
            return false;
        const RealFft measured(n, FFTW_MEASURE);
    }
    // Written beside the target and renamed over it, so a reader never sees half a file.
    const std::string temporary = path + ".part";
    if (!fftw_export_wisdom_to_filename(temporary.c_str()))
        return false;
    std::error_code error;
    std::filesystem::rename(temporary, path, error);
    if (error) {
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}

bool RealFft::loadWisdom(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return false;
    return fftw_import_wisdom_from_filename(path.c_str()) != 0;
}
