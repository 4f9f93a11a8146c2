// Open sheet table model.
#include "widgets/file_table_model.h"

FileTableModel::FileTableModel(QObject* parent) : RowTableModel(parent) {}

GVRFile FileTableModel::fileAt(int row) const
{
    if (row < 0 || row >= files().size())
        return {};
    return files().at(row);
}

QString FileTableModel::columnKey(int column)
{
    return column == DateColumn ? QStringLiteral("fileDate") : QStringLiteral("fileName");
}

int FileTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant FileTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= files().size() || index.column() > DateColumn)
        return {};
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    return files().at(index.row()).value(columnKey(index.column()));
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
    // A plain comparison of the texts: dates sort as their formatted text.
    sortRows(order, [&](const GVRFile& a, const GVRFile& b) {
        return QString::compare(a.value(key), b.value(key), Qt::CaseSensitive);
    });
}
