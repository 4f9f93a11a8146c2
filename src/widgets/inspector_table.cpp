// Set-up shared by the inspector windows.
#include "widgets/inspector_table.h"

#include <algorithm>

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include "widgets/window_parts.h"

void setUpInspectorTable(QTableView& table, QAbstractItemModel& model)
{
    table.setModel(&model);
    // Read-only, and no row ever stays selected.
    table.setSelectionMode(QAbstractItemView::NoSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    // No focus frame either: a framed cell would look selected.
    table.setFocusPolicy(Qt::NoFocus);
    table.setAlternatingRowColors(true);
    table.setWordWrap(false);
    table.verticalHeader()->hide();
    // One line per row, so every row has the same height; measuring each of
    // thousands of rows (ResizeToContents) made a large library slow to show.
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);

    // The view's own sorting would sort at once on column 0; rows first
    // appear in the folder's order, so header clicks sort explicitly.
    QHeaderView* header = table.horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicatorClearable(false);
    header->setSortIndicator(-1, Qt::AscendingOrder);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setStretchLastSection(false);
    QObject::connect(header, &QHeaderView::sortIndicatorChanged, &model,
                     [&model](int column, Qt::SortOrder order) {
                         if (column >= 0)
                             model.sort(column, order);
                     });
}

void fitInspectorToColumns(QWidget& window, QTableView& table)
{
    table.resizeColumnsToContents();
    const int columns = table.horizontalHeader()->length() + 2 * table.frameWidth() +
                        table.verticalScrollBar()->sizeHint().width();
    fitToScreen(window, QSize(std::clamp(columns, 640, 1400), 360));
}
