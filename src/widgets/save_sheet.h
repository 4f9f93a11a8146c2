// The save sheet shared by the designers: a window-modal dialog on the
// designer window with a name field, Save and Cancel.
#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

class GVRSaveSheet : public QDialog {
    Q_OBJECT
public:
    explicit GVRSaveSheet(QWidget* designerWindow);

    // The name as typed (no folder, no extension).
    QString typedName() const;
    // Empties the name field and gives it the focus.
    void clearName();

    QLineEdit* nameField() const { return nameField_; }
    QPushButton* saveButton() const { return saveButton_; }
    QPushButton* cancelButton() const { return cancelButton_; }

signals:
    // Save button or Return. The sheet stays up; whoever handles this
    // closes it.
    void savePressed();

private:
    QLineEdit* nameField_;
    QPushButton* saveButton_;
    QPushButton* cancelButton_;
};
