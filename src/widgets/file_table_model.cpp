// Open sheet table model.
#include "widgets/file_table_model.h"

#include "library/natural_order.h"
#include "widgets/design_file_listing.h"

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
    // Names naturally, dates by the time they stand for (not by month name).
    sortRows(order, [&](const GVRFile& a, const GVRFile& b) {
        if (column == DateColumn) {
            const QDateTime x = parseFileDate(a.fileDate());
            const QDateTime y = parseFileDate(b.fileDate());
            if (x != y)
                return x < y ? -1 : 1;
        }
        return compareNaturally(a.value(key), b.value(key));
    });
}
