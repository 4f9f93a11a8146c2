// File commands of the designer windows.
#include "widgets/design_file_commands.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QWidget>

#include "widgets/design_file_listing.h"
#include "widgets/open_sheet.h"
#include "widgets/save_sheet.h"

DesignFileCommands::DesignFileCommands(QWidget* designerWindow, DesignFileKind kind, DesignFileHooks hooks,
                                       QObject* parent)
    : QObject(parent), window_(designerWindow), kind_(std::move(kind)), hooks_(std::move(hooks)),
      alerts_(designerWindow, kind_.replaceInformativeText, kind_.overwriteInformativeText)
{
    if (window_)
        window_->setWindowTitle(untitledTitle());
}

// The sheets are children of the window, which deletes them.
DesignFileCommands::~DesignFileCommands() = default;

QString DesignFileCommands::untitledTitle()
{
    return tr("(Untitled)");
}

void DesignFileCommands::forgetName()
{
    setName(std::nullopt, true);
}

QString DesignFileCommands::pathForName(const QString& name) const
{
    const QString folder = kind_.folder ? kind_.folder() : QString();
    return QDir(folder).filePath(name + kind_.extension);
}

QList<GVRFile> DesignFileCommands::openSheetFileArray() const
{
    return openSheet_ ? openSheet_->files() : QList<GVRFile>();
}

GVROpenSheet* DesignFileCommands::openSheet() const
{
    return openSheet_;
}

GVRSaveSheet* DesignFileCommands::saveSheet() const
{
    return saveSheet_;
}

QMessageBox* DesignFileCommands::currentAlert() const
{
    return alert_;
}

void DesignFileCommands::newMenuItem()
{
    bringToFront();
    forgetName();
    if (hooks_.clearForNew)
        hooks_.clearForNew();
}

void DesignFileCommands::openMenuItem()
{
    // Rebuilt every time, so files saved meanwhile show up.
    QList<GVRFile> rows = designFilesInFolder(kind_.folder ? kind_.folder() : QString(), kind_.extension);
    bringToFront();
    ensureOpenSheet();
    openSheet_->setFiles(std::move(rows));
    openSheet_->openButton()->setDefault(true);
    openSheet_->open();
    openSheet_->table()->setFocus();
}

void DesignFileCommands::openSheetOpen()
{
    // A second Open (a double click followed by Return) finds it closed.
    if (!openSheet_ || !openSheet_->isVisible())
        return;
    const std::optional<int> row = openSheet_->selectedRow();
    const GVRFile file = row ? openSheet_->files().value(*row) : GVRFile();
    // The sheet goes first so that an alert is not stacked on it.
    openSheet_->accept();
    if (!row)
        return;

    openDesignNamed(stripExtension(file.fileName(), kind_.extension));
}

void DesignFileCommands::openDesignNamed(const QString& name)
{
    // The name is taken before the model tries the file.
    setName(name, false);
    bringToFront();
    const bool opened = hooks_.openDesign ? hooks_.openDesign(name) : false;
    if (!opened && kind_.alertOnFailedOpen) {
        showAlert(alerts_.alertInvalidProjectFile());
        return;
    }
    if (hooks_.redesign)
        hooks_.redesign();
    setName(name, true);
    if (opened)
        emit designFileUsed(pathForName(name));
}

void DesignFileCommands::openSheetCancel()
{
    if (openSheet_)
        openSheet_->reject();
}

void DesignFileCommands::saveToFileWithNewFileFlag(bool newFile)
{
    if (!newFile && name_) {
        const QString name = *name_;
        showAlert(alerts_.alertOverwriteFile(name, [self = QPointer(this), name] {
            if (self)
                self->saveUnderName(name);
        }));
        return;
    }
    ensureSaveSheet();
    saveSheet_->saveButton()->setDefault(true);
    bringToFront();
    saveSheet_->open();
    saveSheet_->clearName();
}

void DesignFileCommands::saveSheetSave()
{
    if (!saveSheet_ || !saveSheet_->isVisible())
        return;
    const QString name = saveSheet_->typedName();
    saveSheet_->accept();
    if (name.isEmpty()) {
        showAlert(alerts_.alertInvalidFilename());
        return;
    }
    if (QFileInfo::exists(pathForName(name))) {
        showAlert(alerts_.alertDuplicateFile(name, [self = QPointer(this), name] {
            if (self)
                self->saveUnderName(name);
        }));
        return;
    }
    saveUnderName(name);
}

void DesignFileCommands::saveSheetCancel()
{
    if (saveSheet_)
        saveSheet_->reject();
}

void DesignFileCommands::saveUnderName(const QString& name)
{
    if (kind_.saveNeedsName && name.isEmpty())
        return;
    setName(name, false);
    // The title follows the name even when the model has nothing to save.
    const bool saved = hooks_.saveDesign ? hooks_.saveDesign(name) : false;
    setName(name, true);
    if (saved)
        emit designFileUsed(pathForName(name));
}

void DesignFileCommands::ensureOpenSheet()
{
    if (openSheet_)
        return;
    openSheet_ = new GVROpenSheet(window_);
    connect(openSheet_, &GVROpenSheet::openPressed, this, &DesignFileCommands::openSheetOpen);
    connect(openSheet_, &GVROpenSheet::renamePressed, this, &DesignFileCommands::openSheetRename);
    connect(openSheet_, &GVROpenSheet::duplicatePressed, this, &DesignFileCommands::openSheetDuplicate);
    connect(openSheet_, &GVROpenSheet::deletePressed, this, &DesignFileCommands::openSheetDelete);
}

void DesignFileCommands::ensureSaveSheet()
{
    if (saveSheet_)
        return;
    saveSheet_ = new GVRSaveSheet(window_);
    connect(saveSheet_, &GVRSaveSheet::savePressed, this, &DesignFileCommands::saveSheetSave);
}

void DesignFileCommands::bringToFront()
{
    if (hooks_.bringToFront)
        hooks_.bringToFront();
}

void DesignFileCommands::setName(const std::optional<QString>& name, bool setTitle)
{
    name_ = name;
    if (setTitle && window_)
        window_->setWindowTitle(name_ ? *name_ : untitledTitle());
    emit nameChanged(name_);
}

void DesignFileCommands::showAlert(QMessageBox* box)
{
    alert_ = box;
}
