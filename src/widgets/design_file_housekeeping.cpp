// The open sheet's housekeeping of the design library: rename, duplicate and
// move to the trash, each followed by a fresh listing and a change announcement
// so that the inspectors and the designers' pop-ups follow at once.
#include "widgets/design_file_commands.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

#include "widgets/design_file_listing.h"
#include "widgets/open_sheet.h"

namespace {

// A design name the library can hold: not blank, no folder separator, not hidden.
QString nameProblem(const QString& name)
{
    if (name.trimmed().isEmpty())
        return DesignFileCommands::tr("A design needs a name.");
    if (name.contains(QLatin1Char('/')) || name.startsWith(QLatin1Char('.')))
        return DesignFileCommands::tr("\"%1\" cannot be used as a design name: it must not contain \"/\" "
                                      "or begin with \".\".")
            .arg(name);
    return {};
}

} // namespace

QString DesignFileCommands::selectedDesignName() const
{
    if (!openSheet_)
        return {};
    const std::optional<int> row = openSheet_->selectedRow();
    return row ? stripExtension(openSheet_->files().value(*row).fileName(), kind_.extension) : QString();
}

void DesignFileCommands::refreshOpenSheet(const QString& select)
{
    if (!openSheet_)
        return;
    openSheet_->setFiles(designFilesInFolder(kind_.folder ? kind_.folder() : QString(), kind_.extension));
    const QString fileName = select + kind_.extension;
    for (int row = 0; row < openSheet_->files().size(); ++row)
        if (openSheet_->files().at(row).fileName() == fileName)
            openSheet_->selectRow(row);
}

void DesignFileCommands::showProblem(const QString& problem)
{
    auto* box = new QMessageBox(QMessageBox::Warning, QString(), problem, QMessageBox::Ok,
                                openSheet_ ? static_cast<QWidget*>(openSheet_) : window_.data());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->open();
    showAlert(box);
}

QString DesignFileCommands::renameDesign(const QString& from, const QString& to)
{
    QString problem = nameProblem(to);
    if (problem.isEmpty() && from == to)
        return {};
    const QString source = pathForName(from);
    const QString target = pathForName(to);
    if (problem.isEmpty() && !QFileInfo::exists(source))
        problem = tr("The design \"%1\" is no longer in the library.").arg(from);
    // A rename never replaces another design.
    if (problem.isEmpty() && QFileInfo::exists(target))
        problem = tr("\"%1\" already exists. Choose another name.").arg(to);
    if (problem.isEmpty()) {
        QFile file(source);
        if (!file.rename(target))
            problem = tr("\"%1\" could not be renamed: %2").arg(from, file.errorString());
    }
    if (!problem.isEmpty())
        return problem;
    if (name_ && *name_ == from)
        setName(to, true);
    emit designFilesChanged();
    return {};
}

QString DesignFileCommands::duplicateDesign(const QString& name, QString* copyName)
{
    const QString source = pathForName(name);
    if (!QFileInfo::exists(source))
        return tr("The design \"%1\" is no longer in the library.").arg(name);
    QString copy = tr("%1 copy").arg(name);
    for (int n = 2; QFileInfo::exists(pathForName(copy)); ++n)
        copy = tr("%1 copy %2").arg(name).arg(n);
    QFile file(source);
    if (!file.copy(pathForName(copy)))
        return tr("\"%1\" could not be duplicated: %2").arg(name, file.errorString());
    if (copyName)
        *copyName = copy;
    emit designFilesChanged();
    return {};
}

QString DesignFileCommands::trashDesign(const QString& name)
{
    QFile file(pathForName(name));
    if (!file.exists())
        return tr("The design \"%1\" is no longer in the library.").arg(name);
    if (!file.moveToTrash())
        return tr("\"%1\" could not be moved to the trash: %2").arg(name, file.errorString());
    if (name_ && *name_ == name)
        forgetName();
    emit designFilesChanged();
    return {};
}

void DesignFileCommands::openSheetRename()
{
    const QString from = selectedDesignName();
    if (from.isEmpty())
        return;
    auto* ask = new QInputDialog(openSheet_);
    ask->setObjectName(QStringLiteral("renameDesignDialog"));
    ask->setAttribute(Qt::WA_DeleteOnClose);
    ask->setWindowModality(Qt::WindowModal);
    ask->setWindowTitle(tr("Rename"));
    ask->setLabelText(tr("New name for \"%1\":").arg(from));
    ask->setTextValue(from);
    ask->setOkButtonText(tr("Rename"));
    connect(ask, &QInputDialog::textValueSelected, this, [this, from](const QString& typed) {
        const QString to = typed.trimmed();
        const QString problem = renameDesign(from, to);
        refreshOpenSheet(problem.isEmpty() ? to : from);
        if (!problem.isEmpty())
            showProblem(problem);
    });
    ask->open();
}

void DesignFileCommands::openSheetDuplicate()
{
    const QString name = selectedDesignName();
    if (name.isEmpty())
        return;
    QString copy;
    const QString problem = duplicateDesign(name, &copy);
    refreshOpenSheet(problem.isEmpty() ? copy : name);
    if (!problem.isEmpty())
        showProblem(problem);
}

void DesignFileCommands::openSheetDelete()
{
    const QString name = selectedDesignName();
    if (name.isEmpty())
        return;
    auto* box = new QMessageBox(openSheet_);
    box->setObjectName(QStringLiteral("trashDesignAlert"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setIcon(QMessageBox::Warning);
    box->setText(tr("Move \"%1\" to the trash?").arg(name));
    box->setInformativeText(
        tr("The design file goes to the desktop's trash, from where it can be restored."));
    QPushButton* trash = box->addButton(tr("Move to Trash"), QMessageBox::DestructiveRole);
    box->setDefaultButton(box->addButton(tr("Cancel"), QMessageBox::RejectRole));
    connect(box, &QMessageBox::buttonClicked, this, [this, trash, name](QAbstractButton* clicked) {
        if (clicked != trash)
            return;
        const QString problem = trashDesign(name);
        refreshOpenSheet(name);
        if (!problem.isEmpty())
            showProblem(problem);
    });
    box->open();
    showAlert(box);
}
