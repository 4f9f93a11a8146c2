// The open sheet shared by the designers: a window-modal dialog on the
// designer window with the table of saved designs, Open and Cancel, and the
// library's housekeeping: Rename, Duplicate and Move to Trash of the selected design.
#pragma once

#include <optional>

#include <QDialog>

#include "widgets/file_table_model.h"

class QPushButton;
class QTableView;

class GVROpenSheet : public QDialog {
    Q_OBJECT
public:
    explicit GVROpenSheet(QWidget* designerWindow);

    // Shows `files` in listing order with no sort indicator, row 0 selected.
    void setFiles(QList<GVRFile> files);
    // The rows in their current (possibly sorted) order.
    const QList<GVRFile>& files() const { return model_->files(); }
    // The selected row, if any.
    std::optional<int> selectedRow() const;
    void selectRow(int row);

    QTableView* table() const { return table_; }
    QPushButton* openButton() const { return openButton_; }
    QPushButton* cancelButton() const { return cancelButton_; }
    QPushButton* renameButton() const { return renameButton_; }
    QPushButton* duplicateButton() const { return duplicateButton_; }
    QPushButton* deleteButton() const { return deleteButton_; }

signals:
    // Open button, Return or a double click on a row. The sheet stays up;
    // whoever handles this closes it.
    void openPressed();
    // The housekeeping buttons; whoever handles them keeps the sheet's rows current.
    void renamePressed();
    void duplicatePressed();
    void deletePressed();

private:
    FileTableModel* model_;
    QTableView* table_;
    QPushButton* openButton_;
    QPushButton* cancelButton_;
    QPushButton* renameButton_;
    QPushButton* duplicateButton_;
    QPushButton* deleteButton_;

    void updateButtons();
};
