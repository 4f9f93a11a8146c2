// Filter inspector table model.
#include "filter/inspector_filt_table_model.h"

#include <algorithm>

namespace {

// Header titles by column identifier, in table order.
const char* titleOf(const QString& key)
{
    static const struct {
        const char* key;
        const char* title;
    } titles[] = {
        {"filename", "Name"},   {"filter", "Filter"},  {"fs", "fs"},          {"window", "Window"},
        {"parm", "Parm"},       {"width", "Width"},    {"length", "Length"},  {"fcutoff", "fcutoff"},
        {"fcenter", "fcenter"}, {"db3band", "3dB BW"}, {"db3low", "3dB Low"}, {"db3high", "3dB High"},
        {"ripple", "Ripple"},   {"units", "Units"},
    };
    for (const auto& entry : titles)
        if (key == QLatin1String(entry.key))
            return entry.title;
    return nullptr;
}

// Columns of text rather than numbers, aligned to the left.
bool isTextColumn(const QString& key)
{
    return key == QLatin1String("filename") || key == QLatin1String("filter") ||
           key == QLatin1String("window") || key == QLatin1String("width") || key == QLatin1String("units");
}

} // namespace

GVRInspectorFiltTableModel::GVRInspectorFiltTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void GVRInspectorFiltTableModel::setRows(QList<GVRInspectFilt> rows)
{
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

QString GVRInspectorFiltTableModel::columnKey(int column)
{
    return GVRInspectFilt::keys().value(column);
}

QString GVRInspectorFiltTableModel::columnTitle(int column)
{
    const QString key = columnKey(column);
    const char* title = titleOf(key);
    return title ? tr(title) : key;
}

int GVRInspectorFiltTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int GVRInspectorFiltTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(GVRInspectFilt::keys().size());
}

QVariant GVRInspectorFiltTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rows_.size() || index.column() >= columnCount())
        return {};
    const QString key = columnKey(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return rows_.at(index.row()).value(key);
    case Qt::TextAlignmentRole:
        return int((isTextColumn(key) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant GVRInspectorFiltTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return columnTitle(section);
    if (role == Qt::InitialSortOrderRole)
        return int(Qt::AscendingOrder);
    return {};
}

void GVRInspectorFiltTableModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= columnCount())
        return;
    const QString key = columnKey(column);
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // The cells are text, compared as text ("10.00000" sorts before "9.00000").
    // Stable, so equal cells keep the folder's order.
    std::stable_sort(rows_.begin(), rows_.end(), [&](const GVRInspectFilt& a, const GVRInspectFilt& b) {
        const int c = QString::compare(a.value(key), b.value(key), Qt::CaseSensitive);
        return order == Qt::AscendingOrder ? c < 0 : c > 0;
    });
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
