// GVRWinFiltInspector: the filter inspector window, one read-only table of
// every saved filter design with its parameters and measurements. It
// rebuilds itself from the library whenever a filter design is saved.
#pragma once

#include <QList>
#include <QMainWindow>

#include "filter/inspect_filt.h"
#include "filter/inspector_filt_model.h"
#include "widgets/row_filler.h"

class DesignLibrary;
class GVRInspectorFiltTableModel;
class QTableView;

class GVRWinFiltInspector : public QMainWindow {
    Q_OBJECT
public:
    explicit GVRWinFiltInspector(DesignLibrary& library, QWidget* parent = nullptr);

    // The rows shown, in their current order.
    const QList<GVRInspectFilt>& inspectorDataArray() const;
    QTableView* table() const { return table_; }
    GVRInspectorFiltTableModel* tableModel() const { return tableModel_; }

public slots:
    void showGVRWinFiltInspector();
    // Rows read afresh from the folder, in the folder's order, none selected.
    // A large folder lists its names at once and fills the rows in worker
    // threads; rowsLoading() is true until they are all in.
    void updateTableDisplay();

public:
    bool rowsLoading() const { return filler_.busy(); }
    // Blocks until every row is in, listing the folder first if the event
    // loop has not yet come to it.
    void waitForRows() { filler_.waitForRows(); }

private:
    const DesignLibrary& library_;
    RowFiller<GVRInspectFilt> filler_;
    GVRInspectorFiltModel inspectorFiltModel_;
    GVRInspectorFiltTableModel* tableModel_ = nullptr;
    QTableView* table_ = nullptr;
};
