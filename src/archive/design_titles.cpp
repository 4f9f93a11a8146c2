// The one copy of each list of choice titles.
#include "archive/design_titles.h"

namespace {

QStringList split(const char* text)
{
    return QString::fromUtf8(text).split(QLatin1Char(','));
}

} // namespace

namespace titles {

const QStringList& windowTypes()
{
    static const QStringList list = split("Rectangular,Blackman,Hamming,Hann,Blackman-Harris,Cosine,Nutall,"
                                          "Blackman-Nutall,Flat Top,Kaiser,Chebyshev");
    return list;
}

const QStringList& filterTypes()
{
    static const QStringList list = split("Low Pass,Band Pass,High Pass");
    return list;
}

const QStringList& bitWidths()
{
    static const QStringList list = split(
        "Double,20-bit,19-bit,18-bit,17-bit,16-bit,15-bit,14-bit,13-bit,12-bit,11-bit,10-bit,9-bit,8-bit");
    return list;
}

const QStringList& filterUnits()
{
    static const QStringList list = split("Norm,KHz,MHz");
    return list;
}

const QStringList& signalFreqUnits()
{
    static const QStringList list = split("MHz,KHz");
    return list;
}

} // namespace titles
