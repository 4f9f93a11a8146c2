// The signal inspector window.
#include "signal/signal_inspector_window.h"

#include "signal/inspector_sig_model.h"

GVRWinSigInspector::GVRWinSigInspector(DesignLibrary& library, QWidget* parent)
    : InspectorWindow(library, DesignLibrary::Folder::Signal, &GVRInspectorSigModel::rowForFile,
                      QStringLiteral("sigInspectorTable"), parent)
{
    setObjectName(QStringLiteral("GVRWinSigInspector"));
    setWindowTitle(tr("Signal Inspector"));
}
