// Open sheet table model.
#include "filter/file_table_model.h"

#include <algorithm>

FileTableModel::FileTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void FileTableModel::setFiles(QList<GVRFile> files)
{
    beginResetModel();
    files_ = std::move(files);
    endResetModel();
}

GVRFile FileTableModel::fileAt(int row) const
{
    if (row < 0 || row >= files_.size())
        return {};
    return files_.at(row);
}

QString FileTableModel::columnKey(int column)
{
    return column == DateColumn ? QStringLiteral("fileDate") : QStringLiteral("fileName");
}

int FileTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(files_.size());
}

int FileTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant FileTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= files_.size() || index.column() > DateColumn)
        return {};
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    return files_.at(index.row()).value(columnKey(index.column()));
}

QVariant FileTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return section == DateColumn ? tr("Date") : tr("Name");
    // A first click on a header sorts ascending.
    if (role == Qt::InitialSortOrderRole)
        return int(Qt::AscendingOrder);
    return {};
}

void FileTableModel::sort(int column, Qt::SortOrder order)
{
    if (column != NameColumn && column != DateColumn)
        return;
    const QString key = columnKey(column);
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // Sort row numbers so the selection can follow its file.
    QList<int> byRow(files_.size());
    for (int i = 0; i < byRow.size(); ++i)
        byRow[i] = i;
    // A plain comparison of the texts: dates sort as their formatted text.
    // Stable, so equal texts keep the listing's order.
    std::stable_sort(byRow.begin(), byRow.end(), [&](int a, int b) {
        const int c = QString::compare(files_.at(a).value(key), files_.at(b).value(key), Qt::CaseSensitive);
        return order == Qt::AscendingOrder ? c < 0 : c > 0;
    });
    QList<GVRFile> sorted;
    sorted.reserve(files_.size());
    QList<int> newRow(files_.size());
    for (int i = 0; i < byRow.size(); ++i) {
        sorted.append(files_.at(byRow[i]));
        newRow[byRow[i]] = i;
    }
    files_ = std::move(sorted);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before)
        after.append(this->index(newRow.value(index.row()), index.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
