// Signal inspector table model.
#include "signal/inspector_sig_table_model.h"

#include <algorithm>

namespace {

// Header titles by column identifier.
QString titleOf(const QString& key)
{
    static const struct {
        const char* key;
        const char* title;
    } titles[] = {
        {"filename", "Name"}, {"function", "Function"},
        {"fs", "fs"},         {"a1", "A₁"},
        {"fa1", "fₐ₁"},       {"phi", "ϕ"},
        {"a2", "A₂"},         {"fa2", "fₐ₂"},
        {"m", "M"},           {"tau", "τ"},
        {"beta", "β"},        {"sigma", "σ"},
        {"mu", "μ"},
    };
    for (const auto& entry : titles)
        if (key == QLatin1String(entry.key))
            return QString::fromUtf8(entry.title);
    return key;
}

bool isTextColumn(const QString& key)
{
    return key == QLatin1String("filename") || key == QLatin1String("function");
}

bool isNumber(const QVariant& cell)
{
    return cell.isValid() && cell.typeId() != QMetaType::QString;
}

// Empty cells before numbers, numbers by value, text after both.
int compareCells(const QVariant& a, const QVariant& b)
{
    const int rankA = !a.isValid() ? 0 : isNumber(a) ? 1 : 2;
    const int rankB = !b.isValid() ? 0 : isNumber(b) ? 1 : 2;
    if (rankA != rankB)
        return rankA < rankB ? -1 : 1;
    if (rankA == 1) {
        const double x = a.toDouble();
        const double y = b.toDouble();
        return x < y ? -1 : (y < x ? 1 : 0);
    }
    if (rankA == 2)
        return QString::compare(a.toString(), b.toString(), Qt::CaseSensitive);
    return 0;
}

} // namespace

GVRInspectorSigTableModel::GVRInspectorSigTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void GVRInspectorSigTableModel::setRows(QList<GVRInspectSig> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

QString GVRInspectorSigTableModel::columnKey(int column)
{
    return GVRInspectSig::keys().value(column);
}

QString GVRInspectorSigTableModel::columnTitle(int column)
{
    return titleOf(columnKey(column));
}

QString GVRInspectorSigTableModel::cellText(const QVariant& cell)
{
    if (!cell.isValid())
        return {};
    if (!isNumber(cell))
        return cell.toString();
    return QString::number(cell.toDouble(), 'g', 10);
}

int GVRInspectorSigTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int GVRInspectorSigTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(GVRInspectSig::keys().size());
}

QVariant GVRInspectorSigTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rows_.size() || index.column() >= columnCount())
        return {};
    const QString key = columnKey(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return cellText(rows_.at(index.row()).value(key));
    case Qt::TextAlignmentRole:
        return int((isTextColumn(key) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant GVRInspectorSigTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return columnTitle(section);
    if (role == Qt::InitialSortOrderRole)
        return int(Qt::AscendingOrder);
    return {};
}

void GVRInspectorSigTableModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= columnCount())
        return;
    const QString key = columnKey(column);
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // Stable, so equal cells keep the folder's order.
    std::stable_sort(rows_.begin(), rows_.end(), [&](const GVRInspectSig& a, const GVRInspectSig& b) {
        const int c = compareCells(a.value(key), b.value(key));
        return order == Qt::AscendingOrder ? c < 0 : c > 0;
    });
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
