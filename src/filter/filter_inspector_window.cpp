// The filter inspector window.
#include "filter/filter_inspector_window.h"

#include <QHeaderView>
#include <QTableView>

#include "filter/inspector_filt_table_model.h"
#include "library/design_library.h"
#include "widgets/inspector_table.h"

GVRWinFiltInspector::GVRWinFiltInspector(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), library_(library), inspectorFiltModel_(library),
      tableModel_(new GVRInspectorFiltTableModel(this)), table_(new QTableView(this))
{
    setObjectName(QStringLiteral("GVRWinFiltInspector"));
    setWindowTitle(tr("Filter Inspector"));

    table_->setObjectName(QStringLiteral("filtInspectorTable"));
    setUpInspectorTable(*table_, *tableModel_);
    setCentralWidget(table_);

    connect(&library, &DesignLibrary::newFilterFile, this, &GVRWinFiltInspector::updateTableDisplay);
    fitInspectorToColumns(*this, *table_);
    filler_.fillWhenIdle(this, [this] { updateTableDisplay(); });
}

const QList<GVRInspectFilt>& GVRWinFiltInspector::inspectorDataArray() const
{
    return tableModel_->rows();
}

void GVRWinFiltInspector::showGVRWinFiltInspector()
{
    show();
    raise();
    activateWindow();
}

void GVRWinFiltInspector::updateTableDisplay()
{
    // The rows come back in the folder's order; no column claims to sort them.
    table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    filler_.fillFromFolder(*table_, *tableModel_, library_, DesignLibrary::Folder::Filter,
                           &GVRInspectorFiltModel::rowForFile);
    table_->clearSelection();
}
