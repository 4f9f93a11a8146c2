// The desktop program: options, design library, windows.
#include <QApplication>

#include "library/fft_tuning.h"
#include "shell/startup.h"

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Orvana"));
    QApplication::setOrganizationName(QStringLiteral("Orvana"));
    QApplication::setApplicationDisplayName(QStringLiteral("Orvana"));
    QApplication::setApplicationVersion(orvanaVersion());
    loadBundledFftWisdom();
    return runOrvana(parseStartupOptions(QApplication::arguments()));
}
