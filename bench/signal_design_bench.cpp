// Timings of the signal designer and the two project systems, each beside
// the same job done with numpy/scipy in the same run (bench/signal_jobs.py).
#include <cstdio>
#include <numeric>
#include <random>
#include <vector>

#include <QTemporaryDir>

#include "bench_support.h"
#include "dsp/gaussian_noise.h"
#include "dsp/multirate.h"
#include "dsp/signal_generators.h"
#include "dsp/signal_spectrum.h"
#include "dsp/sum_and_filter.h"
#include "library/design_library.h"
#include "library/memory_design_source.h"
#include "project/project_model.h"
#include "signal/signal_designer_model.h"

namespace {

constexpr std::size_t N = 16384;

std::vector<double> uniform(std::size_t n, unsigned seed)
{
    std::mt19937 gen(seed);
    std::uniform_real_distribution<double> d(-1.0, 1.0);
    std::vector<double> x(n);
    for (double& v : x)
        v = d(gen);
    return x;
}

GVRSignal signalRecord(std::vector<double> x)
{
    GVRSignal s;
    s.samplingFreq = 1.0;
    s.yStepIndex = 0.0;
    s.freqUnits = 0;
    s.voltUnits = 0;
    s.maxFreq = 0.1;
    s.sampledSignalArray = std::move(x);
    return s;
}

// A 255-tap Hann-shaped low pass of unit gain.
std::vector<double> hannTaps()
{
    std::vector<double> h(255);
    for (std::size_t i = 0; i < h.size(); ++i)
        h[i] = 0.5 - 0.5 * std::cos(2 * 3.141592653589793 * static_cast<double>(i + 1) / 256.0);
    const double sum = std::accumulate(h.begin(), h.end(), 0.0);
    for (double& v : h)
        v /= sum;
    return h;
}

} // namespace

int main()
{
    bench::loadFftWisdom();
    const int repeats = 200;
    std::printf("Orvana signal and project benchmarks (median of %d runs)\n\n", repeats);

    // Signal design: cosine sum, M = 14, σ = 0.1, the whole model call.
    QTemporaryDir scratch; // nothing is saved; the models still need a library
    DesignLibrary designLibrary(scratch.path());
    GVRSignalDesignerModel signalModel(designLibrary);
    const QVariantMap sum =
        GVRSignalDesignerModel::parameterDictionary(0, 0, 300.0, 2, {1.0, 10.0, 0.3, 14.0, 0.1, 0.0});
    bench::report("signal design, cosine sum M=14 + noise",
                  bench::medianMicros([&] { signalModel.designSignalWithParameters(sum); }, repeats),
                  bench::pythonMedianMicros("signal_jobs.py", "design 200"), "numpy");

    std::vector<double> out(N);
    bench::report("  cosineSumSig M=14 alone",
                  bench::medianMicros([&] { cosineSumSig(1.0, 10.0, 0.3, 14.0, 300.0, out); }, repeats), {},
                  "");
    bench::report("  gaussianSig alone", bench::medianMicros([&] { gaussianSig(0.1, 0.0, out); }, repeats),
                  {}, "");
    std::vector<double> mag(N);
    bench::report("  magSpectrum alone", bench::medianMicros([&] { magSpectrum(out, mag); }, repeats), {},
                  "");

    // Projects: two signals summed, then the system, spectra and arrays.
    MemoryDesignSource library;
    library.signalRecords["a"] = signalRecord(uniform(N, 1));
    library.signalRecords["b"] = signalRecord(uniform(N, 2));
    GVRFilter filter;
    filter.unitsType = 0;
    filter.dfFilterLengthN = 255.0;
    filter.filterPrecisionCoefficients = hannTaps();
    library.filterRecords["h"] = filter;
    GVRProjectModel project(designLibrary);
    project.setDesignSource(&library);

    const QVariantMap diagram1 = GVRProjectModel::parameterDictionary(1, "h", "a", "b", 0, 1, 1, 1, 0);
    bench::report("diagram 1, N_H = 255, whole design",
                  bench::medianMicros([&] { project.designProjectWithParameters(diagram1); }, repeats),
                  bench::pythonMedianMicros("signal_jobs.py", "sumfilter 200"), "numpy convolve");

    const QVariantMap diagram2 = GVRProjectModel::parameterDictionary(2, "h", "a", "b", 0, 1, 10, 3, 1);
    bench::report("diagram 2, L = 10, M = 3, automatic filter",
                  bench::medianMicros([&] { project.designProjectWithParameters(diagram2); }, repeats),
                  bench::pythonMedianMicros("signal_jobs.py", "multirate 200"), "scipy upfirdn");

    const auto x = uniform(N, 3);
    const auto h = hannTaps();
    std::vector<double> y(N);
    bench::report("  convolutionSysOut N_H = 255 alone",
                  bench::medianMicros([&] { convolutionSysOut(x, h, y); }, repeats), {}, "");
    bench::report("  multirateSysOut 10/3, N_H = 255 alone",
                  bench::medianMicros([&] { multirateSysOut(x, h, 10, 3, y); }, repeats),
                  bench::pythonMedianMicros("signal_jobs.py", "upfirdn 200"), "upfirdn, all outputs");
    bench::report("  multirateSysOut 10/3, N_H = 255 alone",
                  bench::medianMicros([&] { multirateSysOut(x, h, 10, 3, y); }, repeats),
                  bench::pythonMedianMicros("signal_jobs.py", "upfirdn-kept 200"), "upfirdn, kept outputs");
    std::vector<double> autoTaps(kAutoFilterTaps);
    bench::report("  autoGenLPF(10, 3) alone",
                  bench::medianMicros([&] { autoGenLPF(10, 3, autoTaps); }, repeats), {}, "");
    return 0;
}
