// GVRWinFirExport: the FIR coefficient export window. It lists every filter
// design of the library and writes the quantised integer coefficients of the
// selected one as one comma-separated line to a ".csv" file chosen in a save
// dialog. Double-precision designs are listed but refused. A Format pop-up
// (CSV by default) chooses the other coefficient formats instead.
#pragma once

#include <QFileDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <QString>

#include "project/fir_export_model.h"
#include "widgets/row_filler.h"

class DesignLibrary;
class FirExportTableModel;
class QComboBox;
class QPushButton;
class QTableView;

class GVRWinFirExport : public QMainWindow {
    Q_OBJECT
public:
    explicit GVRWinFirExport(DesignLibrary& library, QWidget* parent = nullptr);
    ~GVRWinFirExport() override;

    // "Double,20-bit,…,8-bit".
    static const QStringList& bitWidthTitle();

    QTableView* table() const { return table_; }
    FirExportTableModel* tableModel() const { return tableModel_; }
    QPushButton* exportButton() const { return exportBut_; }
    // The Format pop-up: one item per coefficient format, CSV first.
    QComboBox* formatPopUp() const { return formatPopUp_; }
    CoefficientFormat selectedFormat() const;
    // The save dialog while it is up (made for each export).
    QFileDialog* saveDialog() const { return saveDialog_; }
    // The alert last opened, while it is up.
    QMessageBox* currentAlert() const { return alert_; }
    // File name (with ".filt") and text path of the export under way or last done.
    QString selectedDotFiltFileName() const { return selectedDotFiltFileName_; }
    QString selectedDotCsvPath() const { return selectedDotCsvPath_; }

    // Folder the save dialog starts in; the user's documents folder unless set.
    void setSaveDialogFolder(const QString& folder) { saveDialogFolder_ = folder; }

public slots:
    void showGVRWinFirExport();
    // Rebuilds the list from the library; while the window is hidden, when it
    // is next shown.
    void updateTableDisplay();
    void pressExportBut();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void savePanelDidEnd(const QString& chosenPath);
    void exportCoefficients();
    void alertInvalidSelection();
    void alertInvalidCoefficients();
    void alertReplaceFile(const QString& fileName);
    void alertExportFailed(const QString& reason);
    QMessageBox* makeAlert(const QString& text, const QString& informativeText);

    const DesignLibrary& library_;
    RowFiller<GVRInspectFilt> filler_;
    GVRFirExportModel firExportModel_;
    FirExportTableModel* tableModel_ = nullptr;
    QTableView* table_ = nullptr;
    QPushButton* exportBut_ = nullptr;
    QComboBox* formatPopUp_ = nullptr;
    QPointer<QFileDialog> saveDialog_;
    QPointer<QMessageBox> alert_;
    QString saveDialogFolder_;
    QString selectedDotFiltFileName_;
    QString selectedDotCsvPath_;
    CoefficientFormat exportFormat_ = CoefficientFormat::Csv;
    bool listStale_ = true;
};
