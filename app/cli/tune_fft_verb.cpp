// orvana-cli tune-fft: measures this processor's FFT plans once and keeps
// FFTW's wisdom in the user's cache folder, where both programs load it. The
// desktop program runs it in the background on its first start.
#include "cli/cli_options.h"
#include "cli/verbs.h"

#include "library/fft_tuning.h"

#include <QCommandLineParser>

namespace cli {

int runTuneFft(const QStringList& args)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measure the FFT plans the designs use on this processor (a second or so) and keep FFTW's "
        "wisdom for later runs. Until then plans are estimated: the same numbers, a little slower."));
    const QCommandLineOption help = helpOption();
    const QCommandLineOption output(
        QStringLiteral("output"),
        QStringLiteral("Wisdom file to write (default: %1).").arg(cachedFftWisdomPath()),
        QStringLiteral("FILE"));
    parser.addOptions({help, output});
    if (const auto finished = parseVerbArguments(parser, args, Positionals::None))
        return *finished;
    const QString path = parser.isSet(output) ? parser.value(output) : cachedFftWisdomPath();
    if (!measureFftWisdom(path)) {
        printErr(QStringLiteral("orvana-cli tune-fft: cannot write %1\n").arg(path));
        return Refused;
    }
    printOut(QStringLiteral("FFT wisdom written to %1\n").arg(path));
    return Designed;
}

} // namespace cli
