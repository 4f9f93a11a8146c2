// Alerts of the design file commands.
#include "widgets/design_file_alerts.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DesignFileAlerts", text);
}

} // namespace

DesignFileAlerts::DesignFileAlerts(QWidget* designerWindow, QString replaceInformativeText,
                                   QString overwriteInformativeText)
    : window_(designerWindow), replaceInformativeText_(std::move(replaceInformativeText)),
      overwriteInformativeText_(std::move(overwriteInformativeText))
{
}

QMessageBox* DesignFileAlerts::makeAlert(const QString& text, const QString& informativeText)
{
    auto* box = new QMessageBox(window_);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setIcon(QMessageBox::Warning);
    box->setText(text);
    box->setInformativeText(informativeText);
    return box;
}

QMessageBox* DesignFileAlerts::alertInvalidFilename()
{
    QMessageBox* box = makeAlert(QString(), tr("The Filename is Invalid"));
    box->setDefaultButton(box->addButton(tr("OK"), QMessageBox::AcceptRole));
    box->open();
    return box;
}

QMessageBox* DesignFileAlerts::alertInvalidProjectFile()
{
    QMessageBox* box =
        makeAlert(QString(), tr("This Project File Contains Erroneous Information and Cannot be Opened"));
    box->setDefaultButton(box->addButton(tr("OK"), QMessageBox::AcceptRole));
    box->open();
    return box;
}

QMessageBox* DesignFileAlerts::alertDuplicateFile(const QString& name, std::function<void()> onReplace,
                                                  std::function<void()> onCancel)
{
    return askWithFirstButton(tr("\"%1\" already exists. Do you want to replace it?").arg(name),
                              replaceInformativeText_, tr("Replace"), std::move(onReplace),
                              std::move(onCancel));
}

QMessageBox* DesignFileAlerts::alertOverwriteFile(const QString& name, std::function<void()> onOverwrite,
                                                  std::function<void()> onCancel)
{
    return askWithFirstButton(
        tr("\"%1\" already exists. Do you want to overwrite its original contents?").arg(name),
        overwriteInformativeText_, tr("Overwrite"), std::move(onOverwrite), std::move(onCancel));
}

QMessageBox* DesignFileAlerts::alertSaveChanges(const QString& name, std::function<void()> onSave,
                                                std::function<void()> onDontSave,
                                                std::function<void()> onCancel)
{
    QMessageBox* box = makeAlert(tr("Do you want to save the changes you made to \"%1\"?").arg(name),
                                 tr("Your changes will be lost if you don't save them."));
    QPushButton* save = box->addButton(tr("Save"), QMessageBox::AcceptRole);
    QPushButton* dontSave = box->addButton(tr("Don't Save"), QMessageBox::DestructiveRole);
    QPushButton* cancel = box->addButton(tr("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(save);
    box->setEscapeButton(cancel);
    QObject::connect(box, &QDialog::finished, box,
                     [box, save, dontSave, onSave = std::move(onSave), onDontSave = std::move(onDontSave),
                      onCancel = std::move(onCancel)](int) {
                         const auto* clicked = box->clickedButton();
                         const std::function<void()>& then = clicked == save       ? onSave
                                                             : clicked == dontSave ? onDontSave
                                                                                   : onCancel;
                         if (then)
                             then();
                     });
    box->open();
    return box;
}

QMessageBox* DesignFileAlerts::askWithFirstButton(const QString& text, const QString& informativeText,
                                                  const QString& firstButton,
                                                  std::function<void()> onFirstButton,
                                                  std::function<void()> onOther)
{
    QMessageBox* box = makeAlert(text, informativeText);
    QPushButton* first = box->addButton(firstButton, QMessageBox::AcceptRole);
    QPushButton* cancel = box->addButton(tr("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(first);
    box->setEscapeButton(cancel);
    // Runs once the box is gone, so a save that follows is not under it.
    // Any way of dismissing it other than the first button does nothing.
    QObject::connect(box, &QDialog::finished, box,
                     [box, first, done = std::move(onFirstButton), other = std::move(onOther)](int) {
                         if (box->clickedButton() == first) {
                             if (done)
                                 done();
                         } else if (other) {
                             other();
                         }
                     });
    box->open();
    return box;
}
