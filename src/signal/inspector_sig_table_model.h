// Table model of the signal inspector: GVRInspectSig rows, one column per
// column identifier. Number cells show up to ten significant digits and
// sort by value, empty cells first; the name and function sort as text.
#pragma once

#include <QAbstractTableModel>
#include <QList>

#include "signal/inspect_sig.h"

class GVRInspectorSigTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit GVRInspectorSigTableModel(QObject* parent = nullptr);

    void setRows(QList<GVRInspectSig> rows);
    const QList<GVRInspectSig>& rows() const { return rows_; }
    // Column identifier of a column ("filename", "function", "fs", …); empty when out of range.
    static QString columnKey(int column);
    // Header text of a column ("Name", "Function", "fs", "A₁", …).
    static QString columnTitle(int column);
    // The text a cell shows: strings as they are, numbers with up to ten
    // significant digits, an empty cell as nothing.
    static QString cellText(const QVariant& cell);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    QList<GVRInspectSig> rows_;
};
