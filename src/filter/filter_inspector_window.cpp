// The filter inspector window.
#include "filter/filter_inspector_window.h"

#include <algorithm>

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "filter/inspector_filt_table_model.h"
#include "shell/design_library.h"

GVRWinFiltInspector::GVRWinFiltInspector(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), inspectorFiltModel_(library), tableModel_(new GVRInspectorFiltTableModel(this)),
      table_(new QTableView(this))
{
    setObjectName(QStringLiteral("GVRWinFiltInspector"));
    setWindowTitle(tr("Filter Inspector"));

    table_->setObjectName(QStringLiteral("filtInspectorTable"));
    table_->setModel(tableModel_);
    // Read-only, and no row ever stays selected.
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // No focus frame either: a framed cell would look selected.
    table_->setFocusPolicy(Qt::NoFocus);
    table_->setAlternatingRowColors(true);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);

    // The view's own sorting would sort at once on column 0; rows first
    // appear in the folder's order, so header clicks sort explicitly.
    QHeaderView* header = table_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setStretchLastSection(false);
    connect(header, &QHeaderView::sortIndicatorChanged, this, [this](int column, Qt::SortOrder order) {
        if (column >= 0)
            tableModel_->sort(column, order);
    });
    setCentralWidget(table_);

    connect(&library, &DesignLibrary::newFilterFile, this, &GVRWinFiltInspector::updateTableDisplay);
    updateTableDisplay();
    fitWidthToColumns();
}

void GVRWinFiltInspector::fitWidthToColumns()
{
    // Wide enough for every column as first filled, within reason.
    table_->resizeColumnsToContents();
    const int columns = table_->horizontalHeader()->length() + 2 * table_->frameWidth() +
                        table_->verticalScrollBar()->sizeHint().width();
    resize(std::clamp(columns, 640, 1400), 360);
}

const QList<GVRInspectFilt>& GVRWinFiltInspector::inspectorDataArray() const
{
    return tableModel_->rows();
}

void GVRWinFiltInspector::showGVRWinFiltInspector()
{
    show();
    raise();
    activateWindow();
}

void GVRWinFiltInspector::updateTableDisplay()
{
    // The rows come back in the folder's order; no column claims to sort them.
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    tableModel_->setRows(inspectorFiltModel_.getFiltInspectorArray());
    table_->clearSelection();
}
