// The signal inspector window.
#include "signal/signal_inspector_window.h"

#include <QHeaderView>
#include <QTableView>

#include "library/design_library.h"
#include "widgets/inspector_table.h"
#include "signal/inspector_sig_table_model.h"

GVRWinSigInspector::GVRWinSigInspector(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), library_(library), inspectorSigModel_(library),
      tableModel_(new GVRInspectorSigTableModel(this)), table_(new QTableView(this))
{
    setObjectName(QStringLiteral("GVRWinSigInspector"));
    setWindowTitle(tr("Signal Inspector"));

    table_->setObjectName(QStringLiteral("sigInspectorTable"));
    setUpInspectorTable(*table_, *tableModel_);
    setCentralWidget(table_);

    connect(&library, &DesignLibrary::newSignalFile, this, &GVRWinSigInspector::updateTableDisplay);
    fitInspectorToColumns(*this, *table_);
    filler_.fillWhenIdle(this, [this] { updateTableDisplay(); });
}

const QList<GVRInspectSig>& GVRWinSigInspector::inspectorDataArray() const
{
    return tableModel_->rows();
}

void GVRWinSigInspector::showGVRWinSigInspector()
{
    show();
    raise();
    activateWindow();
}

void GVRWinSigInspector::updateTableDisplay()
{
    // The rows come back in the folder's order; no column claims to sort them.
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    filler_.fillFromFolder(*table_, *tableModel_, library_, DesignLibrary::Folder::Signal,
                           &GVRInspectorSigModel::rowForFile);
    table_->clearSelection();
}
