// orvana-selftest: the desktop program with a script on top, for the
// end-to-end test and for pictures of every window. Usage:
//   orvana-selftest --screenshot PNG [program options]
//   orvana-selftest --tour DIR [program options]
//   orvana-selftest --launch - [program options]   (prints "launched", quits)
#include <cstdio>

#include <QApplication>
#include <QTimer>

#include "library/fft_tuning.h"
#include "shell/startup.h"
#include "selftest/self_test.h"

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvana"));
    QApplication::setOrganizationName(QStringLiteral("Orvana"));
    QApplication::setApplicationVersion(orvanaVersion());
    loadBundledFftWisdom();

    // The script's own option comes first; the rest is the program's.
    QStringList arguments = QApplication::arguments();
    QString mode;
    QString target;
    if (arguments.size() >= 3) {
        mode = arguments.takeAt(1);
        target = arguments.takeAt(1);
    }
    const QStringList modes{QStringLiteral("--screenshot"), QStringLiteral("--tour"),
                            QStringLiteral("--launch")};
    if (!modes.contains(mode)) {
        std::fprintf(stderr,
                     "usage: orvana-selftest --screenshot PNG | --tour DIR | --launch - [orvana options]\n");
        return 2;
    }
    StartupHooks hooks;
    hooks.afterLaunch = [mode, target](OrvanaShell& shell) {
        if (mode == QLatin1String("--screenshot"))
            SelfTest::runScreenshotScript(shell, target);
        else if (mode == QLatin1String("--tour"))
            SelfTest::runWindowTour(shell, target);
        else
            QTimer::singleShot(0, qApp, [] {
                std::printf("launched\n");
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
    };
    return runOrvana(parseStartupOptions(arguments), hooks);
}
