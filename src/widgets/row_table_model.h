// Table model over a list of row records: the rows, their count, and a stable
// sort that reorders the list itself while persistent indexes (a selection)
// follow their rows. Subclasses give the columns, cells and headers.
#pragma once

#include <QAbstractTableModel>
#include <QList>

#include <algorithm>

template <class Row> class RowTableModel : public QAbstractTableModel {
public:
    explicit RowTableModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    void setRows(QList<Row> rows)
    {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
    }
    const QList<Row>& rows() const { return rows_; }
    // Replaces the rows from `first` on (rows filled in later, as a worker
    // thread decodes them); rows past the end are ignored.
    void replaceRows(qsizetype first, const QList<Row>& rows)
    {
        const qsizetype last = std::min(first + rows.size(), rows_.size()) - 1;
        if (first < 0 || last < first)
            return;
        for (qsizetype i = first; i <= last; ++i)
            rows_[i] = rows.at(i - first);
        emit this->dataChanged(this->index(int(first), 0), this->index(int(last), this->columnCount() - 1));
    }

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(rows_.size());
    }

protected:
    // Sorts by compare(a, b) (negative, zero or positive as a sorts before, with or after b),
    // stably, so equal rows keep their order.
    template <class Compare> void sortRows(Qt::SortOrder order, Compare compare)
    {
        emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
        QList<int> byRank(rows_.size());
        for (int i = 0; i < byRank.size(); ++i)
            byRank[i] = i;
        std::stable_sort(byRank.begin(), byRank.end(), [&](int a, int b) {
            const int c = compare(rows_.at(a), rows_.at(b));
            return order == Qt::AscendingOrder ? c < 0 : c > 0;
        });
        QList<Row> sorted;
        sorted.reserve(rows_.size());
        QList<int> newRowOf(rows_.size());
        for (int i = 0; i < byRank.size(); ++i) {
            sorted.append(rows_.at(byRank[i]));
            newRowOf[byRank[i]] = i;
        }
        rows_ = std::move(sorted);
        const QModelIndexList before = persistentIndexList();
        QModelIndexList after;
        after.reserve(before.size());
        for (const QModelIndex& index : before)
            after.append(this->index(newRowOf.value(index.row()), index.column()));
        changePersistentIndexList(before, after);
        emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    }

private:
    QList<Row> rows_;
};
