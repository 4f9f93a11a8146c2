// Cost of the inspector rows of a large library, in one thread: listing the
// folders, and reading the designs whole (as opening does; the reference)
// beside reading only the scalar fields (as the inspector rows do).
// Usage: inspector_rows_bench LIBRARY  (a design library with designs in
// filter/ and signal/, e.g. one left by large_library_bench)
#include <algorithm>
#include <cstdio>

#include <QCoreApplication>
#include <QElapsedTimer>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "library/design_library.h"

namespace {

// Milliseconds to read up to 1000 files of `names` in `folder` with `read`.
template <class Read> double readEach(const QString& folder, const QStringList& names, Read read)
{
    QElapsedTimer timer;
    timer.start();
    int read1000 = 0;
    for (qsizetype i = 0; i < names.size() && i < 1000; ++i)
        read1000 += read(folder + u'/' + names.at(i)) ? 1 : 0;
    return double(timer.nsecsElapsed()) / 1e6 * 1000.0 / std::max(read1000, 1);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: inspector_rows_bench LIBRARY\n");
        return 2;
    }
    const DesignLibrary library(QString::fromLocal8Bit(argv[1]));
    QElapsedTimer timer;
    timer.start();
    const QStringList filters = library.fileNames(DesignLibrary::Folder::Filter);
    const QStringList signalNames = library.fileNames(DesignLibrary::Folder::Signal);
    std::printf("names of %lld filters and %lld signals:  %8.1f ms\n", static_cast<long long>(filters.size()),
                static_cast<long long>(signalNames.size()), double(timer.nsecsElapsed()) / 1e6);
    const QString f = library.filterFolder();
    const QString s = library.signalFolder();
    std::printf("1000 filters read whole (reference):     %8.1f ms\n",
                readEach(f, filters, [](const QString& p) { return readFilterFile(p); }));
    std::printf("1000 filters, scalar fields only:        %8.1f ms\n",
                readEach(f, filters, [](const QString& p) { return readFilterFileScalars(p); }));
    std::printf("1000 signals read whole (reference):     %8.1f ms\n",
                readEach(s, signalNames, [](const QString& p) { return readSignalFile(p); }));
    std::printf("1000 signals, scalar fields only:        %8.1f ms\n",
                readEach(s, signalNames, [](const QString& p) { return readSignalFileScalars(p); }));
    return 0;
}
