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
    refreshTitle();
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

QString DesignFileCommands::titleName() const
{
    return name_ ? *name_ : untitledTitle();
}

void DesignFileCommands::refreshTitle()
{
    if (!window_)
        return;
    // The name first, then what the window is, so the task switcher tells the
    // three windows apart; the platform adds the application name.
    const QString kind = kind_.windowKind ? kind_.windowKind() : QString();
    QString name = titleName();
    name.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    window_->setWindowTitle(kind.isEmpty() ? name + QLatin1String("[*]")
                                           : QStringLiteral("%1 — %2[*]").arg(name, kind));
}

void DesignFileCommands::setModified(bool modified)
{
    if (window_)
        window_->setWindowModified(modified);
}

bool DesignFileCommands::isModified() const
{
    return window_ && window_->isWindowModified();
}

void DesignFileCommands::note(const QString& text)
{
    if (hooks_.showNote)
        hooks_.showNote(text);
}

void DesignFileCommands::proceedAfterSaving(std::function<void()> proceed)
{
    // Only a design that could be saved is worth the question: an edit that
    // never designed has nothing a save could keep.
    const bool worthAsking = isModified() && (!hooks_.nothingToSave || hooks_.nothingToSave().isEmpty());
    if (!worthAsking) {
        if (proceed)
            proceed();
        return;
    }
    bringToFront();
    QPointer<DesignFileCommands> self(this);
    auto onSave = [self, proceed] {
        if (!self)
            return;
        self->afterSave_ = proceed;
        if (self->name_)
            self->saveUnderName(*self->name_);
        else
            self->openSaveSheet();
    };
    auto onDontSave = [self, proceed] {
        if (self && proceed)
            proceed();
    };
    showAlert(alerts_.alertSaveChanges(titleName(), onSave, onDontSave, {}));
}

bool DesignFileCommands::mayClose()
{
    if (closeAnswered_) {
        closeAnswered_ = false;
        return true;
    }
    if (!isModified() || (hooks_.nothingToSave && !hooks_.nothingToSave().isEmpty()))
        return true;
    QPointer<DesignFileCommands> self(this);
    proceedAfterSaving([self] {
        if (!self || !self->window_)
            return;
        self->closeAnswered_ = true;
        self->window_->close();
        self->closeAnswered_ = false;
    });
    return false;
}

void DesignFileCommands::quitAfterSaving(QList<QPointer<DesignFileCommands>> designers,
                                         std::function<void()> quit)
{
    while (!designers.isEmpty() && !designers.first())
        designers.removeFirst();
    if (designers.isEmpty()) {
        if (quit)
            quit();
        return;
    }
    DesignFileCommands* first = designers.takeFirst();
    first->proceedAfterSaving(
        [rest = std::move(designers), quit = std::move(quit)] { quitAfterSaving(rest, quit); });
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
    dropPendingProceed();
    proceedAfterSaving([self = QPointer(this)] {
        if (!self)
            return;
        self->bringToFront();
        self->forgetName();
        if (self->hooks_.clearForNew)
            self->hooks_.clearForNew();
        self->setModified(false);
    });
}

void DesignFileCommands::openMenuItem()
{
    dropPendingProceed();
    proceedAfterSaving([self = QPointer(this)] {
        if (self)
            self->showOpenSheet();
    });
}

void DesignFileCommands::showOpenSheet()
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
    bringToFront();
    const bool opened = hooks_.openDesign ? hooks_.openDesign(name) : false;
    if (!opened) {
        // The design on screen stays, and so do its name and title: a later
        // Save must not offer to overwrite the file that could not be read.
        if (kind_.alertOnFailedOpen) {
            showAlert(alerts_.alertInvalidProjectFile());
        } else {
            const QString reason = hooks_.lastFileError ? hooks_.lastFileError() : QString();
            note(reason.isEmpty() ? tr("\"%1\" cannot be opened.").arg(name + kind_.extension) : reason);
        }
        return;
    }
    setName(name, true);
    if (hooks_.redesign)
        hooks_.redesign();
    // What is on screen is what the file holds.
    setModified(false);
    emit designFileUsed(pathForName(name));
}

void DesignFileCommands::openSheetCancel()
{
    if (openSheet_)
        openSheet_->reject();
}

void DesignFileCommands::saveToFileWithNewFileFlag(bool newFile)
{
    dropPendingProceed();
    // Nothing valid to save: say why, and leave title and file alone.
    const QString nothing = hooks_.nothingToSave ? hooks_.nothingToSave() : QString();
    if (!nothing.isEmpty()) {
        note(nothing);
        return;
    }
    if (!newFile && name_) {
        const QString name = *name_;
        showAlert(alerts_.alertOverwriteFile(name, [self = QPointer(this), name] {
            if (self)
                self->saveUnderName(name);
        }));
        return;
    }
    openSaveSheet();
}

void DesignFileCommands::openSaveSheet()
{
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
        dropPendingProceed();
        showAlert(alerts_.alertInvalidFilename());
        return;
    }
    if (QFileInfo::exists(pathForName(name))) {
        QPointer<DesignFileCommands> self(this);
        showAlert(alerts_.alertDuplicateFile(
            name,
            [self, name] {
                if (self)
                    self->saveUnderName(name);
            },
            [self] {
                if (self)
                    self->dropPendingProceed();
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
    std::function<void()> proceed = std::move(afterSave_);
    afterSave_ = nullptr;
    if (kind_.saveNeedsName && name.isEmpty())
        return;
    const bool saved = hooks_.saveDesign ? hooks_.saveDesign(name) : false;
    if (!saved) {
        // A refused name or a failed write keeps the old name and title, so a
        // later Save does not offer to overwrite a file that was never written.
        const QString reason = hooks_.lastFileError ? hooks_.lastFileError() : QString();
        note(reason.isEmpty() ? tr("\"%1\" was not saved.").arg(name) : reason);
        return;
    }
    setName(name, true);
    setModified(false);
    emit designFileUsed(pathForName(name));
    if (proceed)
        proceed();
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
    // Cancel, Escape or closing the sheet: a save the question asked for is off.
    connect(saveSheet_, &QDialog::rejected, this, &DesignFileCommands::dropPendingProceed);
}

void DesignFileCommands::bringToFront()
{
    if (hooks_.bringToFront)
        hooks_.bringToFront();
}

void DesignFileCommands::setName(const std::optional<QString>& name, bool setTitle)
{
    name_ = name;
    if (setTitle)
        refreshTitle();
    emit nameChanged(name_);
}

void DesignFileCommands::showAlert(QMessageBox* box)
{
    alert_ = box;
}
