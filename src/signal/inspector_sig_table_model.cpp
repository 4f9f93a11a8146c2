// Signal inspector table model.
#include "signal/inspector_sig_table_model.h"

#include "library/natural_order.h"

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

bool isNumber(const QVariant& cell)
{
    return cell.isValid() && cell.typeId() != QMetaType::QString;
}

// Empty cells before numbers, numbers by value, text after both.
int compareValues(const QVariant& a, const QVariant& b)
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
        return compareNaturally(a.toString(), b.toString());
    return 0;
}

} // namespace

GVRInspectorSigTableModel::GVRInspectorSigTableModel(QObject* parent) : InspectorTableModel(parent) {}

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

QString GVRInspectorSigTableModel::displayText(const GVRInspectSig& row, const QString& key) const
{
    return cellText(row.value(key));
}

int GVRInspectorSigTableModel::compareCells(const GVRInspectSig& a, const GVRInspectSig& b,
                                            const QString& key) const
{
    return compareValues(a.value(key), b.value(key));
}

bool GVRInspectorSigTableModel::isTextColumn(const QString& key) const
{
    return key == QLatin1String("filename") || key == QLatin1String("function");
}
