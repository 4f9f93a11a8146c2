#include "bench_support.h"

#include "dsp/real_fft.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

namespace bench {

double medianMicros(const std::function<void()>& job, int repeats)
{
    job(); // warm-up: plans, caches, first-touch allocations
    std::vector<double> times;
    times.reserve(static_cast<size_t>(repeats));
    for (int i = 0; i < repeats; ++i) {
        const auto t0 = std::chrono::steady_clock::now();
        job();
        const auto t1 = std::chrono::steady_clock::now();
        times.push_back(std::chrono::duration<double, std::micro>(t1 - t0).count());
    }
    std::nth_element(times.begin(), times.begin() + repeats / 2, times.end());
    return times[static_cast<size_t>(repeats / 2)];
}

std::optional<double> pythonMedianMicros(const std::string& script, const std::string& args)
{
    const std::string cmd = "/usr/bin/python3 " ORVANA_BENCH_DIR "/" + script + " " + args + " 2>/dev/null";
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(cmd.c_str(), "r"), pclose);
    if (!pipe)
        return std::nullopt;
    char line[256];
    std::optional<double> last;
    while (std::fgets(line, sizeof line, pipe.get())) {
        double v = 0;
        if (std::sscanf(line, "%lf", &v) == 1)
            last = v;
    }
    return last;
}

void loadFftWisdom()
{
    const bool loaded = RealFft::loadWisdom(ORVANA_FFT_WISDOM_FILE);
    std::printf("FFT plans: %s\n", loaded ? "measured at build time (" ORVANA_FFT_WISDOM_FILE ")"
                                          : "estimated (no build-time wisdom found)");
}

void report(const std::string& label, double micros, std::optional<double> referenceMicros,
            const std::string& referenceLabel)
{
    std::printf("%-48s %10.1f us median", label.c_str(), micros);
    if (referenceMicros)
        std::printf("   | %s %10.1f us, ratio %.1fx", referenceLabel.c_str(), *referenceMicros,
                    *referenceMicros / micros);
    else if (!referenceLabel.empty())
        std::printf("   | %s unavailable", referenceLabel.c_str());
    std::printf("\n");
}

} // namespace bench
