// The About box and the library versions it names.
#include "shell/about_box.h"

#include <dlfcn.h>
#include <fftw3.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QIcon>
#include <QMessageBox>
#include <QStringList>

#include "shell/startup.h"

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("AboutBox", text);
}

// "fftw-3.3.10-sse2-avx" -> "3.3.10".
QString fftwVersion()
{
    const QString full = QString::fromLatin1(fftw_version);
    const QStringList parts = full.split(QLatin1Char('-'));
    return parts.size() >= 2 ? parts.at(1) : full;
}

// libplist tells its version only from 2.3 on; older ones are named by the
// version built against, which the shared library's soname keeps compatible.
QString plistVersion()
{
    using VersionFunction = const char* (*)();
    if (auto* function = reinterpret_cast<VersionFunction>(dlsym(RTLD_DEFAULT, "libplist_version")))
        if (const char* version = function())
            return QString::fromLatin1(version);
    return QStringLiteral(ORVANA_PLIST_VERSION);
}

} // namespace

QString libraryVersionsText()
{
    return QStringLiteral("Qt %1\nFFTW %2\nlibplist %3")
        .arg(QString::fromLatin1(qVersion()), fftwVersion(), plistVersion());
}

QMessageBox* showAboutBox(QWidget* parent)
{
    auto* box = new QMessageBox(parent);
    box->setObjectName(QStringLiteral("aboutBox"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(tr("About Orvana"));
    const QIcon icon = QGuiApplication::windowIcon();
    if (!icon.isNull())
        box->setIconPixmap(icon.pixmap(64, 64));
    box->setText(tr("Orvana %1").arg(orvanaVersion()));
    box->setInformativeText(tr("A workbench for learning digital signal processing: window-method FIR "
                               "filters, test signals, Sum & Filter and Multirate projects.\n\n") +
                            libraryVersionsText());
    box->setStandardButtons(QMessageBox::Ok);
    box->open();
    return box;
}
