// Table model of the open sheets: GVRFile rows in two columns, "Name" and
// "Date". Sorting reorders the row array itself, comparing the shown texts.
#pragma once

#include <QList>

#include "widgets/gvr_file.h"
#include "widgets/row_table_model.h"

class FileTableModel : public RowTableModel<GVRFile> {
    Q_OBJECT
public:
    enum Column { NameColumn = 0, DateColumn = 1 };

    explicit FileTableModel(QObject* parent = nullptr);

    void setFiles(QList<GVRFile> files) { setRows(std::move(files)); }
    const QList<GVRFile>& files() const { return rows(); }
    // Row `row`, or an empty GVRFile when out of range.
    GVRFile fileAt(int row) const;
    // Key of a column's field ("fileName", "fileDate").
    static QString columnKey(int column);

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
};
