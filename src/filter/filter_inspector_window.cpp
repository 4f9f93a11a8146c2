// The filter inspector window.
#include "filter/filter_inspector_window.h"

#include <QHeaderView>
#include <QTableView>

#include "filter/inspector_filt_table_model.h"
#include "library/design_library.h"
#include "widgets/inspector_table.h"

GVRWinFiltInspector::GVRWinFiltInspector(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), library_(library), inspectorFiltModel_(library), tableModel_(new GVRInspectorFiltTableModel(this)),
      table_(new QTableView(this))
{
    setObjectName(QStringLiteral("GVRWinFiltInspector"));
    setWindowTitle(tr("Filter Inspector"));

    table_->setObjectName(QStringLiteral("filtInspectorTable"));
    setUpInspectorTable(*table_, *tableModel_);
    setCentralWidget(table_);

    connect(&library, &DesignLibrary::newFilterFile, this, &GVRWinFiltInspector::updateTableDisplay);
    updateTableDisplay();
    fitInspectorToColumns(*this, *table_);
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
    const DesignLibrary::Folder folder = DesignLibrary::Folder::Filter;
    const QString path = library_.folderPath(folder) + u'/';
    const qsizetype cut = DesignLibrary::extension(folder).size();
    QStringList files;
    QList<GVRInspectFilt> rows;
    for (const DesignFileEntry& entry : library_.files(folder)) {
        files << entry.fileName;
        rows.append(GVRInspectFilt{});
        rows.last().filename = entry.fileName.chopped(cut);
    }
    filler_.fill(*table_, *tableModel_, std::move(rows), [files, path, cut](qsizetype i) {
        return GVRInspectorFiltModel::rowForFile(path + files.at(i), files.at(i).chopped(cut));
    });
    table_->clearSelection();
}
