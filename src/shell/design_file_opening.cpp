// Opening design files by path (the command line, the desktop's file manager,
// File ▸ Open Recent) in the right designer window.
#include "shell/orvana_shell.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

#include "filter/filter_design_window.h"
#include "library/design_file_import.h"
#include "library/design_library.h"
#include "project/project_window.h"
#include "shell/recent_files.h"
#include "signal/signal_design_window.h"
#include "widgets/design_file_commands.h"

bool OrvanaShell::openDesignFile(const QString& path)
{
    QString error;
    const std::optional<DesignFileTarget> target = placeDesignFileInLibrary(library_, path, &error);
    if (!target) {
        auto* box = new QMessageBox(QMessageBox::Warning, tr("Orvana"),
                                    tr("The design file \"%1\" could not be opened.")
                                        .arg(QDir::toNativeSeparators(QFileInfo(path).fileName())),
                                    QMessageBox::Ok);
        box->setObjectName(QStringLiteral("openFileAlert"));
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setInformativeText(error);
        box->open();
        openFileAlerts_.append(box);
        return false;
    }

    DesignFileCommands* commands = nullptr;
    switch (target->folder) {
    case DesignLibrary::Folder::Filter:
        if (target->copied)
            library_.announceNewFilterFile();
        commands = filterDesign_->fileCommands();
        break;
    case DesignLibrary::Folder::Signal:
        if (target->copied)
            library_.announceNewSignalFile();
        commands = signalDesign_->fileCommands();
        break;
    case DesignLibrary::Folder::ProjectOne:
        project_->showGVRWinProjectOne();
        commands = project_->fileCommands();
        break;
    case DesignLibrary::Folder::ProjectTwo:
        project_->showGVRWinProjectTwo();
        commands = project_->fileCommands();
        break;
    }
    bool opened = false;
    auto once = connect(commands, &DesignFileCommands::designFileUsed, this, [&opened] { opened = true; });
    commands->openDesignNamed(target->name);
    disconnect(once);
    // A recent design that is gone leaves the list.
    if (!opened && !QFileInfo::exists(path))
        recentFiles_->remove(path);
    return opened;
}

int OrvanaShell::openDesignFiles(const QStringList& paths)
{
    int opened = 0;
    for (const QString& path : paths)
        opened += openDesignFile(path) ? 1 : 0;
    return opened;
}

QWidget* OrvanaShell::openFileAlert() const
{
    for (QWidget* alert : openFileAlerts_)
        if (alert)
            return alert;
    return nullptr;
}
