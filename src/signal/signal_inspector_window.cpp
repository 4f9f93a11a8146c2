// The signal inspector window.
#include "signal/signal_inspector_window.h"

#include <algorithm>

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "shell/design_library.h"
#include "signal/inspector_sig_table_model.h"

GVRWinSigInspector::GVRWinSigInspector(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), inspectorSigModel_(library), tableModel_(new GVRInspectorSigTableModel(this)),
      table_(new QTableView(this))
{
    setObjectName(QStringLiteral("GVRWinSigInspector"));
    setWindowTitle(tr("Signal Inspector"));

    table_->setObjectName(QStringLiteral("sigInspectorTable"));
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

    connect(&library, &DesignLibrary::newSignalFile, this, &GVRWinSigInspector::updateTableDisplay);
    updateTableDisplay();
    fitWidthToColumns();
}

void GVRWinSigInspector::fitWidthToColumns()
{
    // Wide enough for every column as first filled, within reason.
    table_->resizeColumnsToContents();
    const int columns = table_->horizontalHeader()->length() + 2 * table_->frameWidth() +
                        table_->verticalScrollBar()->sizeHint().width();
    resize(std::clamp(columns, 640, 1400), 360);
}

const QList<GVRInspectSig>& GVRWinSigInspector::inspectorDataArray() const
{
    return tableModel_->rows();
}

void GVRWinSigInspector::showGVRWinSigInspector()
{
    show();
    raise();
    activateWindow();
}

void GVRWinSigInspector::updateTableDisplay()
{
    // The rows come back in the folder's order; no column claims to sort them.
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    tableModel_->setRows(inspectorSigModel_.getSigInspectorArray());
    table_->clearSelection();
}
