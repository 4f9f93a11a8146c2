// Rows of the coefficient export window.
#include "project/fir_export_table_model.h"

#include <algorithm>

#include <QCollator>

FirExportTableModel::FirExportTableModel(QObject* parent) : QAbstractTableModel(parent) {}

QString FirExportTableModel::columnKey(int column)
{
    switch (column) {
    case FilenameColumn:
        return QStringLiteral("filename");
    case FilterColumn:
        return QStringLiteral("filter");
    case LengthColumn:
        return QStringLiteral("length");
    case WidthColumn:
        return QStringLiteral("width");
    default:
        return {};
    }
}

void FirExportTableModel::setRows(QList<GVRInspectFilt> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int FirExportTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int FirExportTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 4;
}

QVariant FirExportTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rows_.size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return rows_.at(index.row()).value(columnKey(index.column()));
    if (role == Qt::TextAlignmentRole && index.column() == LengthColumn)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant FirExportTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case FilenameColumn:
        return tr("Filter File");
    case FilterColumn:
        return tr("Filter");
    case LengthColumn:
        return tr("Length");
    case WidthColumn:
        return tr("Width");
    default:
        return {};
    }
}

void FirExportTableModel::sort(int column, Qt::SortOrder order)
{
    const QString key = columnKey(column);
    if (key.isEmpty())
        return;
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    QList<int> byRank(rows_.size());
    for (int i = 0; i < byRank.size(); ++i)
        byRank[i] = i;
    std::stable_sort(byRank.begin(), byRank.end(), [&](int a, int b) {
        const int c = collator.compare(rows_.at(a).value(key), rows_.at(b).value(key));
        return order == Qt::AscendingOrder ? c < 0 : c > 0;
    });
    QList<GVRInspectFilt> sorted;
    sorted.reserve(rows_.size());
    QList<int> newRowOf(rows_.size());
    for (int i = 0; i < byRank.size(); ++i) {
        sorted.append(rows_.at(byRank[i]));
        newRowOf[byRank[i]] = i;
    }
    rows_ = std::move(sorted);
    // A selected row follows its file to its new place.
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before)
        after.append(this->index(newRowOf.value(index.row()), index.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
