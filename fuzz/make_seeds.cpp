// Writes the fuzzer's seed corpus: files made by our own encoder, from an
// empty record to fully populated ones with awkward values.
#include <cmath>
#include <cstdio>
#include <limits>

#include <QDir>
#include <QFile>

#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"

namespace {

bool save(const QString& folder, const QString& name, const QByteArray& bytes)
{
    QFile file(folder + QLatin1Char('/') + name);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);

    GVRFilter filter;
    filter.filterType = 1;
    filter.windowType = 4;
    filter.filterWidth = 6;
    filter.unitsType = 1;
    filter.dfThetaSamplingFreq = 48.0;
    filter.dfFilterLengthN = 5.0;
    filter.dfBetaUpsilon = 3.5;
    filter.dfThetaCutoffFreqNormalized = 0.25;
    filter.dfThetaCenterFreqNormalized = 0.5;
    filter.dfGimeldbLow = 0.31;
    filter.dfGimeldbHigh = -1.0;
    filter.dfGimeldbBandwidth = std::numeric_limits<double>::quiet_NaN();
    filter.dfPassbandRipple = -0.0;
    filter.dfDynamicRange = std::numeric_limits<double>::infinity();
    filter.dfDynamicRangeError = 1e-300;
    filter.integerCoefficients = std::vector<std::int64_t>{-3, 100000, 0, 100000, -3};
    filter.filterCoefficients = std::vector<double>{-0.01, 0.5, 1.0, 0.5, -0.01};
    filter.filterPrecisionCoefficients = std::vector<double>{-0.0, 0.5, 1.0, 0.5, -0.0};
    GVRFilter named = filter;
    named.filterName = "Ωmega";

    GVRSignal signal;
    signal.samplingFreq = 300.0;
    signal.yStepIndex = 1.0;
    signal.freqUnits = 0;
    signal.voltUnits = 1;
    signal.parm1 = 10.0;
    signal.maxAmplitude = 1.0;
    signal.minAmplitude = -1.0;
    signal.maxFreq = 10.0;
    std::vector<double> samples(kSignalSampleCount);
    for (std::size_t k = 0; k < samples.size(); ++k)
        samples[k] = std::round(8.0 * std::cos(0.2 * double(k))) / 8.0; // few distinct values: a small file
    signal.sampledSignalArray = samples;

    GVRProject project;
    project.blockDiagramNumber = 2;
    project.signalOneSign = 0;
    project.signalTwoSign = 1;
    project.multirateL = 3;
    project.multirateM = 2;
    project.multirateFilterType = 1;
    project.filterName = "lp300fc25";
    project.signalOneName = "Cos10M3Fs300";
    project.signalTwoName = "Cos35Fs300";

    bool ok = save(folder, "empty.filt", encodeFilterArchive(GVRFilter{}));
    ok &= save(folder, "bandpass.filt", encodeFilterArchive(filter));
    ok &= save(folder, "two.filt", encodeFilterArchive(std::vector<GVRFilter>{filter, named}));
    ok &= save(folder, "empty.signal", encodeSignalArchive(GVRSignal{}));
    ok &= save(folder, "cosine.signal", encodeSignalArchive(signal));
    ok &= save(folder, "empty.orvana", encodeProjectArchive(GVRProject{}));
    ok &= save(folder, "multirate.orvana", encodeProjectArchive(project));
    return ok ? 0 : 1;
}
