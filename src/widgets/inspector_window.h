// The frame both inspector windows share: one read-only table of every saved
// design of one kind, read afresh from the library whenever one is saved, and
// first filled once the program has painted. The rows of thousands of
// designs are decoded in worker threads; see RowFiller.
#pragma once

#include <QHeaderView>
#include <QList>
#include <QMainWindow>
#include <QTableView>

#include "library/design_library.h"
#include "widgets/inspector_table.h"
#include "widgets/row_filler.h"

template <class Row, class TableModel> class InspectorWindow : public QMainWindow {
public:
    // The rows shown, in their current order.
    const QList<Row>& inspectorDataArray() const { return tableModel_->rows(); }
    QTableView* table() const { return table_; }
    TableModel* tableModel() const { return tableModel_; }

    void showInspector()
    {
        show();
        raise();
        activateWindow();
    }

    // Rows read afresh from the folder, in the folder's order, none selected.
    // A large folder lists its names at once and fills the rows in worker
    // threads; rowsLoading() is true until they are all in.
    void updateTableDisplay()
    {
        // The rows come back in the folder's order; no column claims to sort them.
        table_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
        filler_.fillFromFolder(*table_, *tableModel_, library_, folder_, rowForFile_);
        table_->clearSelection();
    }

    bool rowsLoading() const { return filler_.busy(); }
    // Blocks until every row is in, listing the folder first if the program
    // has not yet painted.
    void waitForRows() { filler_.waitForRows(); }

protected:
    using RowForFile = Row (*)(const QString& path, const QString& displayName);

    // `library` must outlive the window.
    InspectorWindow(const DesignLibrary& library, DesignLibrary::Folder folder, RowForFile rowForFile,
                    const QString& tableName, QWidget* parent)
        : QMainWindow(parent), library_(library), folder_(folder), rowForFile_(rowForFile),
          tableModel_(new TableModel(this)), table_(new QTableView(this))
    {
        table_->setObjectName(tableName);
        setUpInspectorTable(*table_, *tableModel_);
        setCentralWidget(table_);
        const auto saved = folder == DesignLibrary::Folder::Filter ? &DesignLibrary::newFilterFile
                                                                   : &DesignLibrary::newSignalFile;
        connect(&library, saved, this, [this] { updateTableDisplay(); });
        fitInspectorToColumns(*this, *table_);
        filler_.fillWhenIdle(this, [this] { updateTableDisplay(); });
    }

private:
    const DesignLibrary& library_;
    const DesignLibrary::Folder folder_;
    const RowForFile rowForFile_;
    RowFiller<Row> filler_;
    TableModel* tableModel_ = nullptr;
    QTableView* table_ = nullptr;
};
