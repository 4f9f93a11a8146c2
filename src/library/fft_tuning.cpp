#include "library/fft_tuning.h"

#include "dsp/frequency_response.h"
#include "dsp/real_fft.h"
#include "dsp/signal_spectrum.h"
#include "library/library_location.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

std::array<std::size_t, 2> tunedFftLengths()
{
    return {kResponsePoints, kSpectrumLength};
}

bool loadBundledFftWisdom()
{
    const QString path = bundledDataPath(QStringLiteral("fftw-wisdom"));
    return !path.isEmpty() && RealFft::loadWisdom(QFile::encodeName(path).toStdString());
}

QString cachedFftWisdomPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
           QStringLiteral("/orvana/fftw-wisdom");
}

FftWisdomSource loadFftWisdom()
{
    if (loadBundledFftWisdom())
        return FftWisdomSource::Bundled;
    if (RealFft::loadWisdom(QFile::encodeName(cachedFftWisdomPath()).toStdString()))
        return FftWisdomSource::Cached;
    return FftWisdomSource::None;
}

bool measureFftWisdom(const QString& path)
{
    if (path.isEmpty() || !QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    const auto lengths = tunedFftLengths();
    return RealFft::measureWisdom(lengths, QFile::encodeName(path).toStdString());
}
