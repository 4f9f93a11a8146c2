// GVRWinSigInspector: the signal inspector window, one read-only table of
// every saved signal design with its function and parameters (amplitudes in
// volts, analog frequencies in MHz). It rebuilds itself from the library
// whenever a signal design is saved.
#pragma once

#include <QList>
#include <QMainWindow>

#include "signal/inspect_sig.h"
#include "signal/inspector_sig_model.h"
#include "widgets/row_filler.h"

class DesignLibrary;
class GVRInspectorSigTableModel;
class QTableView;

class GVRWinSigInspector : public QMainWindow {
    Q_OBJECT
public:
    explicit GVRWinSigInspector(DesignLibrary& library, QWidget* parent = nullptr);

    // The rows shown, in their current order.
    const QList<GVRInspectSig>& inspectorDataArray() const;
    QTableView* table() const { return table_; }
    GVRInspectorSigTableModel* tableModel() const { return tableModel_; }

public slots:
    void showGVRWinSigInspector();
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
    RowFiller<GVRInspectSig> filler_;
    GVRInspectorSigModel inspectorSigModel_;
    GVRInspectorSigTableModel* tableModel_ = nullptr;
    QTableView* table_ = nullptr;
};
