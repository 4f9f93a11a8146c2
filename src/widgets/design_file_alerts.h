// The warning alerts of the design file commands, window-modal on the
// designer window and non-blocking: each returns the box it opened, and a
// completion runs only when the first button is chosen.
#pragma once

#include <functional>

#include <QPointer>
#include <QString>
#include <QWidget>

class QMessageBox;

class DesignFileAlerts {
public:
    DesignFileAlerts(QWidget* designerWindow, QString replaceInformativeText,
                     QString overwriteInformativeText);

    // "The Filename is Invalid", button "OK".
    QMessageBox* alertInvalidFilename();
    // "\"name\" already exists. Do you want to replace it?", "Replace"/"Cancel".
    QMessageBox* alertDuplicateFile(const QString& name, std::function<void()> onReplace,
                                    std::function<void()> onCancel = {});
    // "\"name\" already exists. Do you want to overwrite its original
    // contents?", "Overwrite"/"Cancel".
    QMessageBox* alertOverwriteFile(const QString& name, std::function<void()> onOverwrite,
                                    std::function<void()> onCancel = {});
    // "Do you want to save the changes you made to \"name\"?", buttons
    // "Save", "Don't Save", "Cancel"; each runs its callback once the box is gone.
    QMessageBox* alertSaveChanges(const QString& name, std::function<void()> onSave,
                                  std::function<void()> onDontSave, std::function<void()> onCancel);
    // "This Project File Contains Erroneous Information and Cannot be
    // Opened", button "OK".
    QMessageBox* alertInvalidProjectFile();

private:
    QMessageBox* makeAlert(const QString& text, const QString& informativeText);
    QMessageBox* askWithFirstButton(const QString& text, const QString& informativeText,
                                    const QString& firstButton, std::function<void()> onFirstButton,
                                    std::function<void()> onOther);

    QPointer<QWidget> window_;
    QString replaceInformativeText_;
    QString overwriteInformativeText_;
};
