// Rows of the coefficient export window.
#include "project/fir_export_table_model.h"

#include "library/natural_order.h"

FirExportTableModel::FirExportTableModel(QObject* parent) : RowTableModel(parent) {}

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

int FirExportTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 4;
}

QVariant FirExportTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rows().size())
        return {};
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return rows().at(index.row()).value(columnKey(index.column()));
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
    // A selected row follows its file to its new place.
    sortRows(order, [&](const GVRInspectFilt& a, const GVRInspectFilt& b) {
        return compareCellTexts(a.value(key), b.value(key));
    });
}
