// GVRWinSigInspector: the signal inspector window, one read-only table of
// every saved signal design with its function and parameters (amplitudes in
// volts, analog frequencies in MHz). It rebuilds itself from the library
// whenever a signal design is saved.
#pragma once

#include "signal/inspect_sig.h"
#include "signal/inspector_sig_table_model.h"
#include "widgets/inspector_window.h"

class GVRWinSigInspector : public InspectorWindow<GVRInspectSig, GVRInspectorSigTableModel> {
    Q_OBJECT
public:
    explicit GVRWinSigInspector(DesignLibrary& library, QWidget* parent = nullptr);

    void showGVRWinSigInspector() { showInspector(); }
};
