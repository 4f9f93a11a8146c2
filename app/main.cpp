// The desktop program: options, design library, windows, and the design files
// named on the command line (as the desktop entry's %F hands them over).
#include <cstring>
#include <memory>

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QProcess>
#include <QSvgRenderer>

#include "library/fft_tuning.h"
#include "shell/orvana_shell.h"
#include "shell/startup.h"

namespace {

void nameTheApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("Orvana"));
    QCoreApplication::setOrganizationName(QStringLiteral("Orvana"));
    QCoreApplication::setApplicationVersion(orvanaVersion());
}

// --help and --version answer without a display: they are read before any
// window system is opened.
bool asksForTextOnly(int argc, char* argv[])
{
    for (int i = 1; i < argc; ++i) {
        for (const char* option : {"-h", "--help", "-?", "--help-all", "-v", "--version"})
            if (std::strcmp(argv[i], option) == 0)
                return true;
        if (std::strcmp(argv[i], "--") == 0)
            break;
    }
    return false;
}

// The program's icon, drawn from its SVG at the sizes window managers ask for.
QIcon orvanaIcon()
{
    QSvgRenderer renderer(QStringLiteral(":/icons/orvana.svg"));
    QIcon icon;
    if (!renderer.isValid())
        return icon;
    for (int size : {16, 32, 48, 64, 128, 256}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

// Without wisdom of its own (an installed program's first start) the command
// line measures the plans in the background; this run keeps estimated plans.
void tuneFftInBackground()
{
    const QString cli = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("orvana-cli"));
    if (QFileInfo(cli).isExecutable())
        QProcess::startDetached(cli, {QStringLiteral("tune-fft")});
}

} // namespace

int main(int argc, char* argv[])
{
    if (asksForTextOnly(argc, argv)) {
        // The usage line names the program, not the path it was started by.
        static char name[] = "orvana";
        argv[0] = name;
        QCoreApplication app(argc, argv);
        nameTheApplication();
        parseStartupOptions(QCoreApplication::arguments()); // prints and ends the process
        return 0;
    }

    QApplication app(argc, argv);
    nameTheApplication();
    QApplication::setApplicationDisplayName(QStringLiteral("Orvana"));
    QApplication::setDesktopFileName(QStringLiteral("org.orvana.Orvana"));
    QApplication::setWindowIcon(orvanaIcon());
    if (loadFftWisdom() == FftWisdomSource::None)
        tuneFftInBackground();

    const StartupOptions options = parseStartupOptions(QApplication::arguments());
    StartupHooks hooks;
    hooks.afterLaunch = [files = options.files](OrvanaShell& shell) { shell.openDesignFiles(files); };
    return runOrvana(options, hooks);
}
