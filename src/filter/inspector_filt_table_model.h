// Table model of the filter inspector: GVRInspectFilt rows, one column per
// column identifier. Sorting reorders the rows by comparing the cell texts.
#pragma once

#include <QAbstractTableModel>
#include <QList>

#include "filter/inspect_filt.h"

class GVRInspectorFiltTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit GVRInspectorFiltTableModel(QObject* parent = nullptr);

    void setRows(QList<GVRInspectFilt> rows);
    const QList<GVRInspectFilt>& rows() const { return rows_; }
    // Column identifier of a column ("filename", "filter", …); empty when out of range.
    static QString columnKey(int column);
    // Header text of a column ("Name", "Filter", "fs", …).
    static QString columnTitle(int column);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    QList<GVRInspectFilt> rows_;
};
