// orvana-first-paint: the desktop program built for the start-up benchmark.
// It prints "first paint: N ms" (from main) once any widget has painted, and
// quits; the shipped program has no such mode. With ORVANA_BENCH_INSPECTORS=1
// in the environment it then also waits for both inspectors to hold every
// row and prints "inspectors complete: N ms".
#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include "filter/filter_inspector_window.h"
#include "library/fft_tuning.h"
#include "shell/orvana_shell.h"
#include "shell/startup.h"
#include "signal/signal_inspector_window.h"

namespace {

bool g_firstPaintPrinted = false;

class FirstPaintWatcher : public QObject {
public:
    FirstPaintWatcher(const QElapsedTimer& sinceStart, bool thenInspectors)
        : sinceStart_(sinceStart), thenInspectors_(thenInspectors)
    {
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!done_ && event->type() == QEvent::Paint && watched->isWidgetType()) {
            done_ = true;
            // The paint itself finishes first; the quit comes after it.
            QTimer::singleShot(0, qApp, [elapsed = sinceStart_.elapsed(), wait = thenInspectors_] {
                std::printf("first paint: %lld ms\n", static_cast<long long>(elapsed));
                std::fflush(stdout);
                g_firstPaintPrinted = true;
                if (!wait)
                    QCoreApplication::exit(0);
            });
        }
        return false;
    }

private:
    QElapsedTimer sinceStart_;
    bool thenInspectors_ = false;
    bool done_ = false;
};

} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvana"));
    QApplication::setOrganizationName(QStringLiteral("Orvana"));
    QApplication::setApplicationVersion(orvanaVersion());
    loadBundledFftWisdom();
    StartupHooks hooks;
    const bool thenInspectors = qEnvironmentVariable("ORVANA_BENCH_INSPECTORS") == QLatin1String("1");
    hooks.beforeWindows = [&sinceStart, thenInspectors] {
        qApp->installEventFilter(new FirstPaintWatcher(sinceStart, thenInspectors));
    };
    if (thenInspectors) {
        hooks.afterLaunch = [&sinceStart](OrvanaShell& shell) {
            auto* poll = new QTimer(qApp);
            QObject::connect(poll, &QTimer::timeout, qApp, [&sinceStart, &shell] {
                if (!g_firstPaintPrinted || shell.filtInspector()->rowsLoading() ||
                    shell.sigInspector()->rowsLoading())
                    return;
                std::printf("inspectors complete: %lld ms\n", static_cast<long long>(sinceStart.elapsed()));
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
            poll->start(5);
        };
    }
    hooks.reportLibraryProblems = false;
    return runOrvana(parseStartupOptions(QApplication::arguments()), hooks);
}
