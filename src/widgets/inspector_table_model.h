// Table model shared by the two inspectors: a list of row records, one column
// per column identifier of the row type. A subclass says what a cell shows,
// how two cells compare, its header titles and which columns hold text.
#pragma once

#include <QString>

#include "widgets/row_table_model.h"

template <class Row> class InspectorTableModel : public RowTableModel<Row> {
public:
    using RowTableModel<Row>::rows;

    explicit InspectorTableModel(QObject* parent = nullptr) : RowTableModel<Row>(parent) {}
    // Column identifier of a column; empty when out of range.
    static QString columnKey(int column) { return Row::keys().value(column); }

    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(Row::keys().size());
    }

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override
    {
        if (!index.isValid() || index.row() >= rows().size() || index.column() >= columnCount())
            return {};
        const QString key = columnKey(index.column());
        switch (role) {
        case Qt::DisplayRole:
            return displayText(rows().at(index.row()), key);
        case Qt::TextAlignmentRole:
            return int((isTextColumn(key) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        default:
            return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override
    {
        if (orientation != Qt::Horizontal)
            return {};
        if (role == Qt::DisplayRole)
            return headerTitle(section);
        if (role == Qt::InitialSortOrderRole)
            return int(Qt::AscendingOrder);
        return {};
    }

    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override
    {
        if (column < 0 || column >= columnCount())
            return;
        const QString key = columnKey(column);
        this->sortRows(order, [&](const Row& a, const Row& b) { return compareCells(a, b, key); });
    }

protected:
    virtual QString displayText(const Row& row, const QString& key) const = 0;
    // Negative, zero or positive as a's cell sorts before, with or after b's.
    virtual int compareCells(const Row& a, const Row& b, const QString& key) const = 0;
    virtual QString headerTitle(int column) const = 0;
    // Columns of text rather than numbers, aligned to the left.
    virtual bool isTextColumn(const QString& key) const = 0;
};
