// Save sheet widgets.
#include "widgets/save_sheet.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

GVRSaveSheet::GVRSaveSheet(QWidget* designerWindow)
    : QDialog(designerWindow), nameField_(new QLineEdit(this)),
      saveButton_(new QPushButton(tr("Save"), this)), cancelButton_(new QPushButton(tr("Cancel"), this))
{
    setObjectName(QStringLiteral("GVRSaveSheet"));
    setWindowTitle(tr("Save As"));
    setWindowModality(Qt::WindowModal);

    nameField_->setObjectName(QStringLiteral("saveSheetText"));
    nameField_->setMinimumWidth(260);
    saveButton_->setObjectName(QStringLiteral("saveSheetSaveButton"));
    cancelButton_->setObjectName(QStringLiteral("saveSheetCancelButton"));
    // Return means the default button whichever control has the focus:
    // auto-default buttons would take that role when focused.
    saveButton_->setAutoDefault(false);
    cancelButton_->setAutoDefault(false);
    saveButton_->setDefault(true);

    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(cancelButton_, QDialogButtonBox::RejectRole);
    buttons->addButton(saveButton_, QDialogButtonBox::AcceptRole);
    connect(saveButton_, &QPushButton::clicked, this, &GVRSaveSheet::savePressed);
    connect(cancelButton_, &QPushButton::clicked, this, &QDialog::reject);

    auto* form = new QFormLayout;
    form->addRow(tr("Save As:"), nameField_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

QString GVRSaveSheet::typedName() const
{
    return nameField_->text();
}

void GVRSaveSheet::clearName()
{
    nameField_->clear();
    nameField_->setFocus();
}
