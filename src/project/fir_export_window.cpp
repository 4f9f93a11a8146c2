// The coefficient export window: list, checks, save dialog and replace alert.
#include "project/fir_export_window.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableView>
#include <QVBoxLayout>

#include "archive/design_titles.h"
#include "library/design_library.h"
#include "project/fir_export_table_model.h"
#include "widgets/window_parts.h"

const QStringList& GVRWinFirExport::bitWidthTitle()
{
    return titles::bitWidths();
}

GVRWinFirExport::GVRWinFirExport(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), library_(library), firExportModel_(library),
      tableModel_(new FirExportTableModel(this)), table_(new QTableView(this)),
      exportBut_(new QPushButton(tr("Export…"), this)), formatPopUp_(new QComboBox(this))
{
    setObjectName(QStringLiteral("GVRWinFirExport"));
    setWindowTitle(tr("FIR Coefficient Export"));

    table_->setObjectName(QStringLiteral("firExportTable"));
    table_->setModel(tableModel_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    // Rows first appear in the folder's order; header clicks sort them.
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setSectionResizeMode(FirExportTableModel::FilenameColumn, QHeaderView::Stretch);
    for (int column : {FirExportTableModel::FilterColumn, FirExportTableModel::LengthColumn,
                       FirExportTableModel::WidthColumn})
        header->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    connect(header, &QHeaderView::sortIndicatorChanged, this, [this](int column, Qt::SortOrder order) {
        if (column >= 0)
            tableModel_->sort(column, order);
    });

    exportBut_->setObjectName(QStringLiteral("exportBut"));
    exportBut_->setToolTip(tr("Export Coefficients of Selected Filter"));
    exportBut_->setDefault(true);
    connect(exportBut_, &QPushButton::clicked, this, &GVRWinFirExport::pressExportBut);
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.isValid())
            pressExportBut();
    });

    formatPopUp_->setObjectName(QStringLiteral("formatPopUp"));
    for (const CoefficientFormatInfo& info : coefficientFormats())
        formatPopUp_->addItem(tr(info.title), static_cast<int>(info.format));
    formatPopUp_->setCurrentIndex(0);

    auto* central = new QWidget(this);
    auto* column = new QVBoxLayout(central);
    auto* hint =
        new QLabel(tr("Select a filter designed with an integer coefficient width (20-bit to 8-bit) "
                      "and export its coefficients as one comma-separated line, or in the format chosen "
                      "below (Double designs too for C, MATLAB, Python and JSON)."),
                   central);
    hint->setWordWrap(true);
    column->addWidget(hint);
    column->addWidget(table_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel(tr("Format:"), central));
    buttons->addWidget(formatPopUp_);
    buttons->addStretch(1);
    buttons->addWidget(exportBut_);
    column->addLayout(buttons);
    setCentralWidget(central);
    fitToScreen(*this, QSize(560, 420));

    updateTableDisplay();
    connect(&library, &DesignLibrary::newFilterFile, this, &GVRWinFirExport::updateTableDisplay);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            updateTableDisplay();
    });
}

GVRWinFirExport::~GVRWinFirExport() = default;

void GVRWinFirExport::showGVRWinFirExport()
{
    show();
    raise();
    activateWindow();
}

CoefficientFormat GVRWinFirExport::selectedFormat() const
{
    return static_cast<CoefficientFormat>(formatPopUp_->currentData().toInt());
}

void GVRWinFirExport::showEvent(QShowEvent* event)
{
    if (listStale_)
        updateTableDisplay();
    QMainWindow::showEvent(event);
}

void GVRWinFirExport::updateTableDisplay()
{
    // Hidden, the window lists nothing until it is shown: at start-up it must
    // not compete with the inspectors for a large library.
    listStale_ = !isVisible();
    if (listStale_)
        return;
    // The rows come back in folder order; a sort the user chose is applied
    // again once they are all in.
    const QString folder = library_.filterFolder() + u'/';
    const QStringList files = library_.fileNames(DesignLibrary::Folder::Filter);
    QList<GVRInspectFilt> rows(files.size());
    for (qsizetype i = 0; i < files.size(); ++i)
        rows[i].filename = files.at(i);
    filler_.fill(
        *table_, *tableModel_, std::move(rows),
        [files, folder](qsizetype i) {
            return GVRFirExportModel::rowForFile(folder + files.at(i), files.at(i));
        },
        [this] {
            const QHeaderView* header = table_->horizontalHeader();
            if (header->sortIndicatorSection() >= 0)
                tableModel_->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
        });
}

void GVRWinFirExport::pressExportBut()
{
    const QModelIndexList selected = table_->selectionModel()->selectedRows();
    if (selected.isEmpty()) {
        alertInvalidSelection();
        return;
    }
    if (tableModel_->rows().isEmpty())
        return;
    const GVRInspectFilt row = tableModel_->rows().value(selected.first().row());
    selectedDotFiltFileName_ = row.filename;
    exportFormat_ = selectedFormat();
    if (row.width == bitWidthTitle().first() && !coefficientFormatTakesDoubles(exportFormat_)) {
        alertInvalidCoefficients();
        return;
    }
    if (selectedDotFiltFileName_.isEmpty())
        return;

    if (saveDialog_)
        saveDialog_->deleteLater();
    // A folder that exists: Documents when there is one, else home. A missing
    // folder would make the dialog offer its name as the file name.
    QString folder = saveDialogFolder_.isEmpty()
                         ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                         : saveDialogFolder_;
    if (!QFileInfo(folder).isDir())
        folder = QDir::homePath();
    saveDialog_ = new QFileDialog(this, tr("Export Coefficients"), folder);
    saveDialog_->setObjectName(QStringLiteral("exportSavePanel"));
    saveDialog_->setAttribute(Qt::WA_DeleteOnClose);
    // Our own dialog (not the desktop's) keeps the behaviour the same everywhere.
    saveDialog_->setOption(QFileDialog::DontUseNativeDialog);
    // ".csv" may be appended to what is typed, so the dialog's own
    // overwrite question could ask about the wrong file.
    saveDialog_->setOption(QFileDialog::DontConfirmOverwrite);
    saveDialog_->setAcceptMode(QFileDialog::AcceptSave);
    saveDialog_->setFileMode(QFileDialog::AnyFile);
    saveDialog_->setWindowModality(Qt::WindowModal);
    // The design's name with the format's extension, ready to confirm.
    if (exportFormat_ == CoefficientFormat::Csv) {
        QString suggested = selectedDotFiltFileName_;
        if (suggested.endsWith(QStringLiteral(".filt")))
            suggested.chop(5);
        saveDialog_->selectFile(suggested + QStringLiteral(".csv"));
    } else {
        const CoefficientFormatInfo& info = coefficientFormatInfo(exportFormat_);
        const QString extension = QString::fromLatin1(info.extension);
        saveDialog_->setNameFilter(tr(info.title).replace(extension, u'*' + extension));
        QString base = selectedDotFiltFileName_;
        base.chop(QFileInfo(base).suffix().size() + 1);
        saveDialog_->selectFile(base + extension);
    }
    connect(saveDialog_, &QFileDialog::fileSelected, this, &GVRWinFirExport::savePanelDidEnd);
    saveDialog_->open();
}

void GVRWinFirExport::savePanelDidEnd(const QString& chosenPath)
{
    if (chosenPath.isEmpty())
        return;
    // The extension is added only when the name lacks it ("taps.csv" stays as it is).
    const QString extension = QString::fromLatin1(coefficientFormatInfo(exportFormat_).extension);
    selectedDotCsvPath_ = chosenPath;
    if (!chosenPath.endsWith(extension, Qt::CaseInsensitive))
        selectedDotCsvPath_ += extension;
    if (!QFileInfo::exists(selectedDotCsvPath_)) {
        exportCoefficients();
        return;
    }
    if (saveDialog_)
        saveDialog_->close();
    alertReplaceFile(QFileInfo(selectedDotCsvPath_).fileName());
}

void GVRWinFirExport::exportCoefficients()
{
    QString error;
    if (!firExportModel_.openFilterFileAndSaveCoefficientsToFile(selectedDotFiltFileName_,
                                                                 selectedDotCsvPath_, &error, exportFormat_))
        alertExportFailed(error);
}

QMessageBox* GVRWinFirExport::makeAlert(const QString& text, const QString& informativeText)
{
    auto* box = new QMessageBox(this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setIcon(QMessageBox::Warning);
    box->setText(text);
    box->setInformativeText(informativeText);
    alert_ = box;
    return box;
}

void GVRWinFirExport::alertInvalidSelection()
{
    QMessageBox* box = makeAlert(QString(), tr("A Row must first be selected"));
    box->setDefaultButton(box->addButton(tr("OK"), QMessageBox::AcceptRole));
    box->open();
}

void GVRWinFirExport::alertInvalidCoefficients()
{
    QMessageBox* box =
        makeAlert(QString(), tr("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)"));
    box->setDefaultButton(box->addButton(tr("OK"), QMessageBox::AcceptRole));
    box->open();
}

void GVRWinFirExport::alertReplaceFile(const QString& fileName)
{
    QMessageBox* box =
        makeAlert(tr("\"%1\" already exists. Do you want to replace it?").arg(fileName),
                  tr("A Filter file with the same name already exists. Replacing it will delete "
                     "the original Filter design."));
    QPushButton* replace = box->addButton(tr("Replace"), QMessageBox::AcceptRole);
    QPushButton* cancel = box->addButton(tr("Cancel"), QMessageBox::RejectRole);
    box->setDefaultButton(replace);
    box->setEscapeButton(cancel);
    connect(box, &QDialog::finished, this, [this, box, replace](int) {
        if (box->clickedButton() == replace)
            exportCoefficients();
    });
    box->open();
}

void GVRWinFirExport::alertExportFailed(const QString& reason)
{
    QMessageBox* box = makeAlert(tr("The coefficients could not be exported."), reason);
    box->setDefaultButton(box->addButton(tr("OK"), QMessageBox::AcceptRole));
    box->open();
}
