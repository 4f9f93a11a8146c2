// A Multirate project in the project window (L = 10, M = 3, automatic
// filter, the sample signals at 300 KHz) from the click on Design until both
// charts have painted their new arrays.
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>

#include "bench_support.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"
#include "project/project_window.h"
#include "library/design_library.h"
#include "shell/sample_designs.h"

namespace {

// A press and a release in the middle of the button, as a mouse click.
void click(QWidget* button)
{
    const QPointF centre = QRectF(button->rect()).center();
    const QPointF global = button->mapToGlobal(centre);
    QMouseEvent press(QEvent::MouseButtonPress, centre, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, centre, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(button, &press);
    QApplication::sendEvent(button, &release);
}

} // namespace

int main(int argc, char** argv)
{
    bench::loadFftWisdom();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir root;
    DesignLibrary library(root.path());
    if (!prepareLibrary(library).isEmpty()) {
        std::fprintf(stderr, "project_window_bench: the sample designs were not found\n");
        return 1;
    }

    GVRWinProject window(library);
    window.showGVRWinProjectTwo();
    window.resize(1200, 800);
    QApplication::processEvents();
    window.signalOnePopUp()->setCurrentText(QStringLiteral("Cos35Fs300"));
    window.signalTwoPopUp()->setCurrentText(QStringLiteral("Cos10M3Fs300"));
    window.multirateLStepper()->setValue(10);
    window.multirateMStepper()->setValue(3);

    const auto job = [&] {
        click(window.designButton());
        // The charts paint now, as the next pass of the event loop would.
        window.viewProjTime()->repaint();
        window.viewProjFreq()->repaint();
    };
    job();
    if (window.theTimeArray().size() != GVRProjectModel::kTimeArrayLength ||
        window.theTimeArray()[8] != 1000.0) {
        std::fprintf(stderr, "project_window_bench: the design did not go through\n");
        return 1;
    }
    bench::report("multirate L=10 M=3 auto filter, click to charts (target 30000)",
                  bench::medianMicros(job, 15), std::nullopt, "");
    bench::report("  of which the design alone",
                  bench::medianMicros([&] { click(window.designButton()); }, 15), std::nullopt, "");
    return 0;
}
