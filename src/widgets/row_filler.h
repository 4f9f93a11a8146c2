// Fills a table's rows in worker threads (QtConcurrent): the rows are shown at
// once with what is known without reading files (their names), and each row
// is replaced as its file is decoded. A library of thousands of designs so no
// longer holds back the first paint. Header sorting waits until every row is
// in, since a sort would move rows under the arriving results.
#pragma once

#include <algorithm>
#include <functional>
#include <utility>

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QHeaderView>
#include <QList>
#include <QPointer>
#include <QTableView>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentMap>

#include "library/design_library.h"
#include "widgets/deferred_work.h"
#include "widgets/row_table_model.h"

// Up to this many rows are decoded in line: faster than a thread hop, and the
// table is complete when it first paints.
inline constexpr qsizetype kRowsFilledInLine = 200;

template <class Row> class RowFiller {
public:
    RowFiller() = default;
    RowFiller(const RowFiller&) = delete;
    RowFiller& operator=(const RowFiller&) = delete;
    ~RowFiller() { stop(); }

    // Shows `placeholders`, then row i becomes make(i). `make` runs in worker
    // threads when there are more than kRowsFilledInLine rows, so it must only
    // read files and its own copies. `done` runs (in this thread) once every
    // row is in.
    void fill(QTableView& table, RowTableModel<Row>& model, QList<Row> placeholders,
              std::function<Row(qsizetype)> make, std::function<void()> done = {})
    {
        deferred_.cancel(); // a fill now makes a deferred one moot
        stop();
        if (placeholders.size() <= kRowsFilledInLine) {
            for (qsizetype i = 0; i < placeholders.size(); ++i)
                placeholders[i] = make(i);
            model.setRows(std::move(placeholders));
            if (done)
                done();
            return;
        }
        QList<qsizetype> indexes(placeholders.size());
        for (qsizetype i = 0; i < indexes.size(); ++i)
            indexes[i] = i;
        QHeaderView* header = table.horizontalHeader();
        header->setSectionsClickable(false);
        // Columns sized to their contents would be measured again, over a
        // thousand rows, at every batch of arriving rows: they keep their
        // widths until every row is in, then fit once.
        header_ = header;
        fitted_.clear();
        for (int column = 0; column < header->count(); ++column) {
            if (header->sectionResizeMode(column) == QHeaderView::ResizeToContents) {
                header->setSectionResizeMode(column, QHeaderView::Interactive);
                fitted_ << column;
            }
        }
        model.setRows(std::move(placeholders));
        watcher_ = new QFutureWatcher<Row>();
        QObject::connect(watcher_, &QFutureWatcherBase::resultsReadyAt, watcher_,
                         [watcher = watcher_, &model](int begin, int end) {
                             QList<Row> rows;
                             rows.reserve(end - begin);
                             for (int i = begin; i < end; ++i)
                                 rows << watcher->resultAt(i);
                             model.replaceRows(begin, rows);
                         });
        QObject::connect(watcher_, &QFutureWatcherBase::finished, watcher_,
                         [this, watcher = watcher_, done = std::move(done)] {
                             restoreHeader();
                             if (!watcher->isCanceled() && done)
                                 done();
                         });
        watcher_->setFuture(QtConcurrent::mapped(backgroundPool(), std::move(indexes),
                                                 [make = std::move(make)](qsizetype i) { return make(i); }));
    }

    // Decoding leaves one core to the window thread, at low priority, so a
    // large library does not hold up the first paint.
    static QThreadPool* backgroundPool()
    {
        static QThreadPool* pool = [] {
            auto* p = new QThreadPool;
            p->setMaxThreadCount(std::max(1, QThread::idealThreadCount() - 1));
            p->setThreadPriority(QThread::LowestPriority);
            return p;
        }();
        return pool;
    }

    // Every design file of `folder`, shown at once by its name without the
    // extension; row i then becomes rowForFile(full path, that name).
    void fillFromFolder(QTableView& table, RowTableModel<Row>& model, const DesignLibrary& library,
                        DesignLibrary::Folder folder, Row (*rowForFile)(const QString&, const QString&))
    {
        const QString path = library.folderPath(folder) + u'/';
        const qsizetype cut = DesignLibrary::extension(folder).size();
        const QStringList files = library.fileNames(folder);
        QList<Row> rows(files.size());
        for (qsizetype i = 0; i < files.size(); ++i)
            rows[i].filename = files.at(i).chopped(cut);
        fill(table, model, std::move(rows), [files, path, cut, rowForFile](qsizetype i) {
            return rowForFile(path + files.at(i), files.at(i).chopped(cut));
        });
    }

    // Runs `fillNow` once the program has painted (so a large folder never
    // holds up the first paint), or at the first waitForRows(), whichever
    // comes first; a fill started meanwhile makes it moot.
    void fillWhenIdle(QObject* context, std::function<void()> fillNow)
    {
        deferred_.defer(context, std::move(fillNow));
    }

    // True while rows are still to be listed or decoded.
    bool busy() const { return deferred_.pending() || (watcher_ && watcher_->isRunning()); }
    // Blocks until every row is in (tests, and a refresh that must be whole).
    void waitForRows()
    {
        deferred_.runNow();
        if (!watcher_)
            return;
        watcher_->waitForFinished();
        // Results already decoded are delivered through queued signals.
        QCoreApplication::sendPostedEvents(watcher_);
    }

private:
    // The header as it was before a background fill: sortable, columns fitted.
    void restoreHeader()
    {
        if (header_) {
            header_->setSectionsClickable(true);
            for (int column : std::as_const(fitted_))
                header_->setSectionResizeMode(column, QHeaderView::ResizeToContents);
        }
        header_ = nullptr;
        fitted_.clear();
    }

    void stop()
    {
        restoreHeader();
        if (!watcher_)
            return;
        watcher_->disconnect();
        watcher_->cancel();
        watcher_->waitForFinished();
        delete watcher_;
        watcher_ = nullptr;
    }

    QFutureWatcher<Row>* watcher_ = nullptr;
    QPointer<QHeaderView> header_;
    QList<int> fitted_;
    DeferredWork deferred_;
};
