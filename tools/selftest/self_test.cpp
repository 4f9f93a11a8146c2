// Automated runs of the real program's windows: pictures of them after
// designs made through their own widgets.
#include "selftest/self_test.h"

#include <cstdio>
#include <functional>
#include <memory>

#include <QLabel>
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTableView>
#include <QTimer>

#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "project/fir_export_window.h"
#include "project/project_window.h"
#include "shell/orvana_shell.h"
#include "shell/pref_controller.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "widgets/design_file_commands.h"
#include "widgets/open_sheet.h"

namespace {

// Opens `fileName` from a designer's open sheet as a user would: the row
// selected, then the Open button.
bool openThroughSheet(DesignFileCommands* commands, const std::function<void()>& openMenu,
                      const QString& fileName)
{
    openMenu();
    GVROpenSheet* sheet = commands ? commands->openSheet() : nullptr;
    if (!sheet || !sheet->isVisible())
        return false;
    for (int row = 0; row < sheet->files().size(); ++row) {
        if (sheet->files().at(row).fileName() == fileName) {
            sheet->selectRow(row);
            sheet->openButton()->click();
            return true;
        }
    }
    sheet->cancelButton()->click();
    return false;
}

bool designSampleFilter(GVRWinFilterDesign* window,
                        const QString& fileName = QStringLiteral("lp300fc25.filt"))
{
    window->showGVRWinFilterDesign();
    const bool opened = openThroughSheet(
        window->fileCommands(), [window] { window->openMenuItem(); }, fileName);
    window->designFilterBut()->click();
    return opened && window->noteField()->text().indexOf(QLatin1String("VALID RANGE")) < 0 &&
           !window->theMagPhaseArray().empty();
}

// Steps run one after another with time to paint in between.
class Script : public QObject {
public:
    explicit Script(int pauseMs) : pauseMs_(pauseMs) { setParent(qApp); }
    void add(std::function<void()> step) { steps_.push_back(std::move(step)); }
    void start()
    {
        QTimer::singleShot(pauseMs_, this, [this] { next(); });
    }

private:
    void next()
    {
        if (index_ >= steps_.size())
            return;
        steps_[index_++]();
        QTimer::singleShot(pauseMs_, this, [this] { next(); });
    }
    std::vector<std::function<void()>> steps_;
    std::size_t index_ = 0;
    int pauseMs_;
};

QPixmap grabScreen()
{
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->grabWindow(0) : QPixmap();
}

} // namespace

void SelfTest::runScreenshotScript(OrvanaShell& shell, const QString& pngPath)
{
    auto ok = std::make_shared<bool>(false);
    auto* script = new Script(600);
    script->add([&shell, ok] {
        *ok = designSampleFilter(shell.filterDesign());
        shell.filterDesign()->raise();
    });
    script->add([pngPath, ok] {
        const QPixmap shot = grabScreen();
        const bool saved = !shot.isNull() && shot.save(pngPath, "PNG");
        if (!*ok)
            std::fprintf(stderr, "orvana self test: the filter design did not go through\n");
        if (!saved)
            std::fprintf(stderr, "orvana self test: could not save %s\n", qPrintable(pngPath));
        QCoreApplication::exit(*ok && saved ? 0 : 1);
    });
    script->start();
}

void SelfTest::runWindowTour(OrvanaShell& shell, const QString& folder)
{
    QDir().mkpath(folder);
    auto* script = new Script(500);
    // Every picture at one fixed size per kind of window, whatever the screen.
    auto shoot = [folder](QWidget* window, const QString& name, QSize size) {
        window->resize(size.expandedTo(window->minimumSizeHint()));
        QCoreApplication::processEvents();
        window->grab().save(QDir(folder).filePath(name + QStringLiteral(".png")), "PNG");
    };
    const QSize designer(1040, 720);
    const QSize table(1240, 320);

    script->add(
        [&shell] { designSampleFilter(shell.filterDesign(), QStringLiteral("bp50fc3fcntr15.filt")); });
    script->add([&shell, shoot, designer] {
        shoot(shell.filterDesign(), QStringLiteral("filter-designer"), designer);
    });
    // Compare…: two saved filters over the band pass, one of them normalised.
    script->add([&shell, shoot, designer] {
        GVRWinFilterDesign* w = shell.filterDesign();
        w->setComparedDesigns({QStringLiteral("lp300fc25"), QStringLiteral("lpNormfcp333")});
        shoot(w, QStringLiteral("filter-compare"), designer);
        w->clearComparison();
    });

    script->add([&shell] {
        GVRWinSignalDesign* w = shell.signalDesign();
        w->showGVRWinSignalDesign();
        openThroughSheet(
            w->fileCommands(), [w] { w->openMenuItem(); }, QStringLiteral("Cos10M3Fs300.signal"));
    });
    script->add([&shell, shoot, designer] {
        shoot(shell.signalDesign(), QStringLiteral("signal-designer"), designer);
    });

    for (int mode : {1, 2}) {
        script->add([&shell, mode] {
            GVRWinProject* w = shell.project();
            if (mode == 1)
                w->showGVRWinProjectOne();
            else
                w->showGVRWinProjectTwo();
            DesignFileCommands* commands = w->fileCommands();
            w->openMenuItem();
            if (GVROpenSheet* sheet = commands->openSheet();
                sheet && sheet->isVisible() && !sheet->files().isEmpty()) {
                sheet->selectRow(0);
                sheet->openButton()->click();
            }
        });
        script->add([&shell, shoot, mode, designer] {
            shoot(shell.project(), mode == 1 ? QStringLiteral("sum-and-filter") : QStringLiteral("multirate"),
                  designer);
        });
    }
    // The Multirate model's inner stages, chosen as the user does in the Graph list.
    for (int item : {2, 3}) {
        script->add([&shell, shoot, item, designer] {
            QComboBox* graph = shell.project()->graphPopUp();
            graph->setCurrentIndex(item);
            emit graph->activated(item);
            shoot(shell.project(),
                  item == 2 ? QStringLiteral("multirate-upsampled") : QStringLiteral("multirate-filtered"),
                  designer);
        });
    }

    script->add([&shell] { shell.filtInspector()->showGVRWinFiltInspector(); });
    script->add(
        [&shell, shoot, table] { shoot(shell.filtInspector(), QStringLiteral("filter-inspector"), table); });
    script->add([&shell] { shell.sigInspector()->showGVRWinSigInspector(); });
    script->add(
        [&shell, shoot, table] { shoot(shell.sigInspector(), QStringLiteral("signal-inspector"), table); });
    script->add([&shell] {
        GVRWinFirExport* w = shell.firExport();
        w->showGVRWinFirExport();
        w->table()->selectRow(0);
    });
    script->add([&shell, shoot] { shoot(shell.firExport(), QStringLiteral("fir-export"), QSize(720, 420)); });
    script->add([&shell] { shell.prefController()->setPrefControllerWin(); });
    script->add([&shell, shoot] {
        if (QDialog* panel = shell.prefController()->prefControllerWindow())
            shoot(panel, QStringLiteral("preferences"), panel->sizeHint());
    });
    script->add([] { QCoreApplication::exit(0); });
    script->start();
}
