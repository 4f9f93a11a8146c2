// New, Open, Save and Save As of a designer window: the open and save
// sheets, the alerts, the current design name and the window title; and the
// open sheet's Rename, Duplicate and Move to Trash of a saved design. One
// instance per designer, configured with its folder, extension and texts
// and with hooks into its model.
#pragma once

#include <functional>
#include <optional>

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include "widgets/design_file_alerts.h"
#include "widgets/design_file_kind.h"
#include "widgets/gvr_file.h"

class GVROpenSheet;
class GVRSaveSheet;
class QMessageBox;
class QWidget;

// What the commands ask of the designer. Names are bare ("lp300fc25");
// DesignFileCommands::pathForName gives the file for designers that want it.
struct DesignFileHooks {
    std::function<void()> bringToFront;                  // show and raise the window
    std::function<void()> clearForNew;                   // empty the form, note line, charts and results
    std::function<bool(const QString& name)> openDesign; // model reads the file; false when refused
    std::function<bool(const QString& name)> saveDesign; // model writes the file; false when not
    std::function<void()> redesign;                      // design afresh from the form
    std::function<QString()> nothingToSave;       // why there is no design to save; empty when there is
    std::function<QString()> lastFileError;       // the model's reason for a failed open or save
    std::function<void(const QString&)> showNote; // a message on the note line
};

class DesignFileCommands : public QObject {
    Q_OBJECT
public:
    // `designerWindow` carries the sheets and alerts and shows the title.
    DesignFileCommands(QWidget* designerWindow, DesignFileKind kind, DesignFileHooks hooks,
                       QObject* parent = nullptr);
    ~DesignFileCommands() override;

    // Menu commands.
    void newMenuItem();
    void openMenuItem();
    void saveMenuItem() { saveToFileWithNewFileFlag(false); }
    void saveAsMenuItem() { saveToFileWithNewFileFlag(true); }
    void saveToFileWithNewFileFlag(bool newFile);

    // Sheet buttons (also reached through the sheets' own buttons).
    void openSheetOpen();
    void openSheetCancel();
    void saveSheetSave();
    void saveSheetCancel();
    // Housekeeping buttons of the open sheet, on the selected row: Rename asks
    // for the new name, Move to Trash for a confirmation, both non-blocking.
    void openSheetRename();
    void openSheetDuplicate();
    void openSheetDelete();

    // Opens the design `name` of this designer's folder as the open sheet does.
    void openDesignNamed(const QString& name);

    // The library housekeeping itself; each returns an empty string when done,
    // else why not. The current design follows a rename, and becomes untitled
    // when its file goes to the trash.
    QString renameDesign(const QString& from, const QString& to);
    QString duplicateDesign(const QString& name, QString* copyName = nullptr);
    QString trashDesign(const QString& name);

    // Name of the current design, none while untitled.
    const std::optional<QString>& currentName() const { return name_; }
    // Makes the design untitled: no name, title "(Untitled)".
    void forgetName();
    // Sets the title again: "<name> — <kind>", with the edited mark.
    void refreshTitle();

    // The design was edited since it was last saved or opened (the window's
    // modified mark, [*] in the title).
    void setModified(bool modified);
    bool isModified() const;
    // Runs `proceed` at once when nothing would be lost; otherwise asks Save,
    // Don't Save or Cancel first, and runs it after a successful save or Don't Save.
    void proceedAfterSaving(std::function<void()> proceed);
    // For the window's closeEvent: false (and the question asked) when the
    // close has to wait for the answer; the window closes itself afterwards.
    bool mayClose();
    // Asks each edited designer in turn, then runs `quit`; Cancel anywhere stops.
    static void quitAfterSaving(QList<QPointer<DesignFileCommands>> designers, std::function<void()> quit);
    // Folder + name + extension.
    QString pathForName(const QString& name) const;
    const DesignFileKind& kind() const { return kind_; }
    static QString untitledTitle();

    // Rows the open sheet shows, in their current order.
    QList<GVRFile> openSheetFileArray() const;
    // The sheets, made on first use (null before).
    GVROpenSheet* openSheet() const;
    GVRSaveSheet* saveSheet() const;
    // The alert last opened, while it is up.
    QMessageBox* currentAlert() const;

signals:
    // After every change of name or title.
    void nameChanged(const std::optional<QString>& name);
    // A design file was opened or saved (the recent files follow).
    void designFileUsed(const QString& path);
    // A design file was renamed, duplicated or moved to the trash.
    void designFilesChanged();

private:
    void ensureOpenSheet();
    void ensureSaveSheet();
    void bringToFront();
    void setName(const std::optional<QString>& name, bool setTitle);
    // The completion of Replace and Overwrite, and the plain save.
    void saveUnderName(const QString& name);
    void openSaveSheet();
    void showOpenSheet();
    // A save asked for by the save-changes question ended without saving.
    void dropPendingProceed() { afterSave_ = nullptr; }
    QString titleName() const;
    void note(const QString& text);
    void showAlert(QMessageBox* box);
    // After housekeeping: the sheet lists the folder again, `select` selected.
    void refreshOpenSheet(const QString& select);
    QString selectedDesignName() const;
    void showProblem(const QString& problem);

    QPointer<QWidget> window_;
    DesignFileKind kind_;
    DesignFileHooks hooks_;
    DesignFileAlerts alerts_;
    std::optional<QString> name_;
    QPointer<GVROpenSheet> openSheet_;
    QPointer<GVRSaveSheet> saveSheet_;
    QPointer<QMessageBox> alert_;
    std::function<void()> afterSave_; // what waits for the save the question asked for
    bool closeAnswered_ = false;
};
