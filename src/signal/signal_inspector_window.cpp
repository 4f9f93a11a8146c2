// The signal inspector window.
#include "signal/signal_inspector_window.h"

#include <QHeaderView>
#include <QTableView>

#include "library/design_library.h"
#include "widgets/inspector_table.h"
#include "signal/inspector_sig_table_model.h"

GVRWinSigInspector::GVRWinSigInspector(DesignLibrary& library, QWidget* parent)
    : QMainWindow(parent), library_(library), inspectorSigModel_(library), tableModel_(new GVRInspectorSigTableModel(this)),
      table_(new QTableView(this))
{
    setObjectName(QStringLiteral("GVRWinSigInspector"));
    setWindowTitle(tr("Signal Inspector"));

    table_->setObjectName(QStringLiteral("sigInspectorTable"));
    setUpInspectorTable(*table_, *tableModel_);
    setCentralWidget(table_);

    connect(&library, &DesignLibrary::newSignalFile, this, &GVRWinSigInspector::updateTableDisplay);
    updateTableDisplay();
    fitInspectorToColumns(*this, *table_);
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
    const DesignLibrary::Folder folder = DesignLibrary::Folder::Signal;
    const QString path = library_.folderPath(folder) + u'/';
    const qsizetype cut = DesignLibrary::extension(folder).size();
    QStringList files;
    QList<GVRInspectSig> rows;
    for (const DesignFileEntry& entry : library_.files(folder)) {
        files << entry.fileName;
        rows.append(GVRInspectSig{});
        rows.last().filename = entry.fileName.chopped(cut);
    }
    filler_.fill(*table_, *tableModel_, std::move(rows), [files, path, cut](qsizetype i) {
        return GVRInspectorSigModel::rowForFile(path + files.at(i), files.at(i).chopped(cut));
    });
    table_->clearSelection();
}
