// orvana-first-paint: the desktop program built for the start-up benchmark.
// It prints "first paint: N ms" (from main) once any widget has painted, and
// quits; the shipped program has no such mode.
#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include "library/fft_tuning.h"
#include "shell/startup.h"

namespace {

class FirstPaintWatcher : public QObject {
public:
    explicit FirstPaintWatcher(const QElapsedTimer& sinceStart) : sinceStart_(sinceStart) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!done_ && event->type() == QEvent::Paint && watched->isWidgetType()) {
            done_ = true;
            // The paint itself finishes first; the quit comes after it.
            QTimer::singleShot(0, qApp, [elapsed = sinceStart_.elapsed()] {
                std::printf("first paint: %lld ms\n", static_cast<long long>(elapsed));
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
        }
        return false;
    }

private:
    QElapsedTimer sinceStart_;
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
    hooks.beforeWindows = [&sinceStart] { qApp->installEventFilter(new FirstPaintWatcher(sinceStart)); };
    hooks.reportLibraryProblems = false;
    return runOrvana(parseStartupOptions(QApplication::arguments()), hooks);
}
