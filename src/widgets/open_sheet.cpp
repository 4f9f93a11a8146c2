// Open sheet widgets.
#include "widgets/open_sheet.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

GVROpenSheet::GVROpenSheet(QWidget* designerWindow)
    : QDialog(designerWindow), model_(new FileTableModel(this)), table_(new QTableView(this)),
      openButton_(new QPushButton(tr("Open"), this)), cancelButton_(new QPushButton(tr("Cancel"), this)),
      renameButton_(new QPushButton(tr("Rename…"), this)),
      duplicateButton_(new QPushButton(tr("Duplicate"), this)),
      deleteButton_(new QPushButton(tr("Move to Trash…"), this))
{
    setObjectName(QStringLiteral("GVROpenSheet"));
    setWindowTitle(tr("Open"));
    setWindowModality(Qt::WindowModal);

    table_->setObjectName(QStringLiteral("openSheetTable"));
    table_->setModel(model_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setAlternatingRowColors(true);
    table_->setShowGrid(false);
    table_->verticalHeader()->hide();
    table_->setWordWrap(false);

    // The view's own sorting would sort at once on column 0; the rows must
    // first appear in the folder's order, so header clicks sort explicitly.
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setSectionResizeMode(FileTableModel::NameColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(FileTableModel::DateColumn, QHeaderView::ResizeToContents);
    connect(header, &QHeaderView::sortIndicatorChanged, this, [this](int column, Qt::SortOrder order) {
        if (column >= 0)
            model_->sort(column, order);
    });
    connect(table_, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.isValid())
            emit openPressed();
    });

    openButton_->setObjectName(QStringLiteral("openSheetOpenButton"));
    cancelButton_->setObjectName(QStringLiteral("openSheetCancelButton"));
    // Return means the default button whichever control has the focus:
    // auto-default buttons would take that role when focused.
    openButton_->setAutoDefault(false);
    cancelButton_->setAutoDefault(false);
    openButton_->setDefault(true);
    renameButton_->setObjectName(QStringLiteral("openSheetRenameButton"));
    duplicateButton_->setObjectName(QStringLiteral("openSheetDuplicateButton"));
    deleteButton_->setObjectName(QStringLiteral("openSheetDeleteButton"));
    auto* buttons = new QDialogButtonBox(this);
    for (QPushButton* button : {renameButton_, duplicateButton_, deleteButton_}) {
        button->setAutoDefault(false);
        buttons->addButton(button, QDialogButtonBox::ActionRole);
    }
    connect(renameButton_, &QPushButton::clicked, this, &GVROpenSheet::renamePressed);
    connect(duplicateButton_, &QPushButton::clicked, this, &GVROpenSheet::duplicatePressed);
    connect(deleteButton_, &QPushButton::clicked, this, &GVROpenSheet::deletePressed);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { updateButtons(); });
    buttons->addButton(cancelButton_, QDialogButtonBox::RejectRole);
    buttons->addButton(openButton_, QDialogButtonBox::AcceptRole);
    connect(openButton_, &QPushButton::clicked, this, &GVROpenSheet::openPressed);
    connect(cancelButton_, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table_);
    layout->addWidget(buttons);
    resize(620, 300);
    updateButtons();
}

void GVROpenSheet::setFiles(QList<GVRFile> files)
{
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    model_->setFiles(std::move(files));
    selectRow(0);
}

std::optional<int> GVROpenSheet::selectedRow() const
{
    const QModelIndexList rows = table_->selectionModel()->selectedRows();
    if (rows.isEmpty())
        return std::nullopt;
    return rows.first().row();
}

void GVROpenSheet::selectRow(int row)
{
    if (row < 0 || row >= model_->rowCount()) {
        table_->clearSelection();
        updateButtons();
        return;
    }
    table_->selectRow(row);
    updateButtons();
}

void GVROpenSheet::updateButtons()
{
    const bool any = selectedRow().has_value();
    for (QPushButton* button : {renameButton_, duplicateButton_, deleteButton_})
        button->setEnabled(any);
}
