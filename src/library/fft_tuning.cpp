#include "library/fft_tuning.h"

#include "dsp/frequency_response.h"
#include "dsp/real_fft.h"
#include "dsp/signal_spectrum.h"
#include "library/library_location.h"

#include <QFile>

std::array<std::size_t, 2> tunedFftLengths()
{
    return {kResponsePoints, kSpectrumLength};
}

bool loadBundledFftWisdom()
{
    const QString path = bundledDataPath(QStringLiteral("fftw-wisdom"));
    return !path.isEmpty() && RealFft::loadWisdom(QFile::encodeName(path).toStdString());
}
