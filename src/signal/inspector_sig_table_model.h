// Table model of the signal inspector: GVRInspectSig rows, one column per
// column identifier. Number cells show up to ten significant digits and
// sort by value, empty cells first; the name and function sort as text.
#pragma once

#include "widgets/inspector_table_model.h"
#include "signal/inspect_sig.h"

class GVRInspectorSigTableModel : public InspectorTableModel<GVRInspectSig> {
    Q_OBJECT
public:
    explicit GVRInspectorSigTableModel(QObject* parent = nullptr);

    // Header text of a column ("Name", "Function", "fs", "A₁", …).
    static QString columnTitle(int column);
    // The text a cell shows: strings as they are, numbers with up to ten
    // significant digits, an empty cell as nothing.
    static QString cellText(const QVariant& cell);

protected:
    QString displayText(const GVRInspectSig& row, const QString& key) const override;
    int compareCells(const GVRInspectSig& a, const GVRInspectSig& b, const QString& key) const override;
    QString headerTitle(int column) const override { return columnTitle(column); }
    bool isTextColumn(const QString& key) const override;
};
