// Filter inspector table model.
#include "filter/inspector_filt_table_model.h"

#include "library/natural_order.h"

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

} // namespace

GVRInspectorFiltTableModel::GVRInspectorFiltTableModel(QObject* parent) : InspectorTableModel(parent) {}

QString GVRInspectorFiltTableModel::columnTitle(int column)
{
    const QString key = columnKey(column);
    const char* title = titleOf(key);
    return title ? tr(title) : key;
}

QString GVRInspectorFiltTableModel::displayText(const GVRInspectFilt& row, const QString& key) const
{
    return row.value(key);
}

int GVRInspectorFiltTableModel::compareCells(const GVRInspectFilt& a, const GVRInspectFilt& b,
                                             const QString& key) const
{
    // Numbers by value, widths and names naturally ("8-bit" before "16-bit").
    return compareCellTexts(a.value(key), b.value(key));
}

bool GVRInspectorFiltTableModel::isTextColumn(const QString& key) const
{
    return key == QLatin1String("filename") || key == QLatin1String("filter") ||
           key == QLatin1String("window") || key == QLatin1String("width") || key == QLatin1String("units");
}
