// The shared real FFT against a direct DFT, including padded transforms that
// follow longer ones (their stale inputs must not leak into the result), and
// the saving and loading of measured plans.
#include "dsp/real_fft.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

std::complex<double> directBin(const std::vector<double>& x, std::size_t k, std::size_t n)
{
    std::complex<double> sum;
    for (std::size_t j = 0; j < x.size(); ++j)
        sum += x[j] * std::polar(1.0, -2.0 * std::numbers::pi * static_cast<double>(k * j % n) / n);
    return sum;
}

} // namespace

TEST(RealFft, PaddedTransformsMatchTheDirectSumWhateverCameBefore)
{
    const std::size_t n = 64;
    RealFft& fft = RealFft::ofSize(n);
    std::vector<double> longer(40), shorter(7);
    for (std::size_t j = 0; j < longer.size(); ++j)
        longer[j] = std::sin(0.7 * static_cast<double>(j)) + 0.1 * static_cast<double>(j);
    for (std::size_t j = 0; j < shorter.size(); ++j)
        shorter[j] = 1.0 / static_cast<double>(j + 1);
    std::vector<double> full(n, 3.0); // a full-length transform before them
    for (const auto* x : {&full, &longer, &shorter, &longer, &shorter}) {
        fft.executePadded(*x);
        for (std::size_t k = 0; k <= n / 2; ++k) {
            ASSERT_LT(std::abs(fft.output()[k] - directBin(*x, k, n)), 1e-12) << k;
        }
    }
}

TEST(RealFft, WisdomIsSavedWholeAndOnlyFftwsIsTaken)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("orvana-wisdom-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    const std::string path = (folder / "fftw-wisdom").string();
    const std::size_t lengths[] = {32, 128};
    ASSERT_TRUE(RealFft::measureWisdom(lengths, path));
    EXPECT_FALSE(fs::exists(path + ".part"));
    std::ifstream saved(path);
    std::string first;
    std::getline(saved, first);
    EXPECT_NE(first.find("fftw_wisdom"), std::string::npos) << first;
    EXPECT_TRUE(RealFft::loadWisdom(path));

    EXPECT_FALSE(RealFft::loadWisdom((folder / "missing").string()));
    EXPECT_FALSE(RealFft::loadWisdom(folder.string())); // a folder, not a file
    const std::string foreign = (folder / "foreign").string();
    std::ofstream(foreign) << "(not fftw at all";
    EXPECT_FALSE(RealFft::loadWisdom(foreign));
    EXPECT_FALSE(RealFft::measureWisdom(lengths, (folder / "no-such-folder" / "w").string()));
    fs::remove_all(folder);
}
