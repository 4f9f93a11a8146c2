// orvana-cli: the design models without windows, for scripting and batch work.
#include <QCoreApplication>
#include <QGuiApplication>

#include <cstring>
#include <memory>

#include "cli/cli_options.h"
#include "cli/plot_output.h"
#include "cli/verbs.h"
#include "library/fft_tuning.h"

namespace {

struct Verb {
    const char* name;
    int (*run)(const QStringList&);
    const char* summary;
};

constexpr Verb kVerbs[] = {
    {"filter", cli::runFilter, "design a window-method FIR filter"},
    {"signal", cli::runSignal, "design a 16384-sample test signal"},
    {"project", cli::runProject, "run a Sum & Filter or Multirate project from saved designs"},
    {"export", cli::runExport, "write a saved filter's integer coefficients as CSV"},
    {"open", cli::runOpen, "print a saved design's keys and values"},
    {"window", cli::runWindow, "print a window's values and its properties"},
    {"sweep", cli::runSweep, "measure a filter design at every width from 8 to 20 bits"},
    {"compare", cli::runCompare, "overlay 2 to 4 saved filters' magnitude responses"},
    {"tune-fft", cli::runTuneFft, "measure this processor's FFT plans once, for faster designs"},
};

QString usageText()
{
    QString text = QStringLiteral("Usage: orvana-cli <verb> [options]\n\nVerbs:\n");
    for (const Verb& v : kVerbs)
        text += QStringLiteral("  %1  %2\n")
                    .arg(QString::fromLatin1(v.name), -9)
                    .arg(QString::fromLatin1(v.summary));
    text +=
        QStringLiteral("\nOptions:\n  -h, --help     Show this help.\n  -v, --version  Show the version.\n");
    text += QStringLiteral("\nRun 'orvana-cli <verb> --help' for the options of a verb.\n"
                           "\nExit status: 0 done, 1 refused or file error, 2 usage error,\n"
                           "3 designed but the results are not valid.\n");
    return text;
}

} // namespace

int main(int argc, char* argv[])
{
    // Charts need fonts, hence a GUI application, but never a display.
    bool plot = false;
    for (int i = 1; i < argc; ++i)
        plot = plot || cli::argumentsAskForPlot({QString::fromLocal8Bit(argv[i])});
    std::unique_ptr<QCoreApplication> app;
    if (plot) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        app = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setApplicationName(QStringLiteral("Orvana"));
    QStringList args = QCoreApplication::arguments();
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANA_VERSION));
    if (args.size() < 2) {
        cli::printErr(usageText());
        return cli::Usage;
    }
    const QString verb = args.at(1);
    if (verb == QLatin1String("--help") || verb == QLatin1String("-h") || verb == QLatin1String("help")) {
        cli::printOut(usageText());
        return 0;
    }
    if (verb == QLatin1String("--version") || verb == QLatin1String("-v")) {
        cli::printOut(QStringLiteral("orvana-cli %1\n").arg(QCoreApplication::applicationVersion()));
        return 0;
    }
    for (const Verb& v : kVerbs) {
        if (verb == QLatin1String(v.name)) {
            args.removeAt(1);
            args[0] = QStringLiteral("orvana-cli ") + verb;
            cli::setCommandName(args[0]);
            if (verb != QLatin1String("tune-fft"))
                loadFftWisdom();
            return v.run(args);
        }
    }
    cli::printErr(QStringLiteral("Unknown verb \"%1\".\n").arg(verb) + usageText());
    return cli::Usage;
}
