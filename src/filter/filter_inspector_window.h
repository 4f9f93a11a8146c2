// GVRWinFiltInspector: the filter inspector window, one read-only table of
// every saved filter design with its parameters and measurements. It
// rebuilds itself from the library whenever a filter design is saved.
#pragma once

#include "filter/inspect_filt.h"
#include "filter/inspector_filt_table_model.h"
#include "widgets/inspector_window.h"

class GVRWinFiltInspector : public InspectorWindow<GVRInspectFilt, GVRInspectorFiltTableModel> {
    Q_OBJECT
public:
    explicit GVRWinFiltInspector(DesignLibrary& library, QWidget* parent = nullptr);

    void showGVRWinFiltInspector() { showInspector(); }
};
