// Table model of the filter inspector: GVRInspectFilt rows, one column per
// column identifier. Sorting reorders the rows by comparing the cell texts.
#pragma once

#include "filter/inspect_filt.h"
#include "widgets/inspector_table_model.h"

class GVRInspectorFiltTableModel : public InspectorTableModel<GVRInspectFilt> {
    Q_OBJECT
public:
    explicit GVRInspectorFiltTableModel(QObject* parent = nullptr);

    // Header text of a column ("Name", "Filter", "fs", …).
    static QString columnTitle(int column);

protected:
    QString displayText(const GVRInspectFilt& row, const QString& key) const override;
    int compareCells(const GVRInspectFilt& a, const GVRInspectFilt& b, const QString& key) const override;
    QString headerTitle(int column) const override { return columnTitle(column); }
    bool isTextColumn(const QString& key) const override;
};
