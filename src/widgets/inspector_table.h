// Set-up shared by the filter and signal inspector windows: a read-only
// table whose header clicks sort the model, and a window sized to fit it.
#pragma once

class QAbstractItemModel;
class QTableView;
class QWidget;

// Shows model in table read-only, with no selection or focus frame, rows and
// columns sized to their contents; header clicks sort model by that column.
void setUpInspectorTable(QTableView& table, QAbstractItemModel& model);

// Resizes window to show every column of table as first filled, within reason.
void fitInspectorToColumns(QWidget& window, QTableView& table);
