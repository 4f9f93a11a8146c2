// The filter inspector window.
#include "filter/filter_inspector_window.h"

#include "filter/inspector_filt_model.h"

GVRWinFiltInspector::GVRWinFiltInspector(DesignLibrary& library, QWidget* parent)
    : InspectorWindow(library, DesignLibrary::Folder::Filter, &GVRInspectorFiltModel::rowForFile,
                      QStringLiteral("filtInspectorTable"), parent)
{
    setObjectName(QStringLiteral("GVRWinFiltInspector"));
    setWindowTitle(tr("Filter Inspector"));
}
