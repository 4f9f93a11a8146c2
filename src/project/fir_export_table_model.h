// Table model of the coefficient export window: one row per filter file,
// columns file name, filter type, length and coefficient width. Sorting
// reorders the row array itself, so the selected row always names the file
// shown in it.
#pragma once

#include <QList>

#include "filter/inspect_filt.h"
#include "widgets/row_table_model.h"

class FirExportTableModel : public RowTableModel<GVRInspectFilt> {
    Q_OBJECT
public:
    enum Column { FilenameColumn = 0, FilterColumn = 1, LengthColumn = 2, WidthColumn = 3 };

    explicit FirExportTableModel(QObject* parent = nullptr);

    // Identifier of a column's field: "filename", "filter", "length", "width".
    static QString columnKey(int column);

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    // Compares the shown texts, digits as numbers ("25" before "101").
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
};
