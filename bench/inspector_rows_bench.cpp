// Cost of the inspector rows of a large library, in one thread: listing the
// folders, and decoding every filter and signal file into its row.
// Usage: inspector_rows_bench LIBRARY  (a library with filter/ and signal/)
#include <cstdio>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "filter/inspector_filt_model.h"
#include "library/design_library.h"
#include "signal/inspector_sig_model.h"

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: inspector_rows_bench LIBRARY\n");
        return 2;
    }
    DesignLibrary library(QString::fromLocal8Bit(argv[1]));
    if (argc > 2) {
        int n = 0;
        for (int i = 0; i < 20000; ++i)
            n += readFilterFileScalars(library.filterFolder() + QStringLiteral("/lp300fc25.filt")) ? 1 : 0;
        return n == 0;
    }
    QElapsedTimer timer;
    timer.start();
    const auto filters = library.files(DesignLibrary::Folder::Filter);
    const auto signalFiles = library.files(DesignLibrary::Folder::Signal);
    std::printf("list %lld + %lld files:          %8.1f ms\n", (long long)filters.size(), (long long)signalFiles.size(), timer.nsecsElapsed() / 1e6);
    timer.restart();
    const QStringList names = library.fileNames(DesignLibrary::Folder::Filter);
    std::printf("file names of %lld filters:       %8.1f ms\n", (long long)names.size(), timer.nsecsElapsed() / 1e6);
    timer.restart();
    QDir(library.filterFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Unsorted);
    std::printf("unsorted entry list:              %8.1f ms\n", timer.nsecsElapsed() / 1e6);
    timer.restart();
    int n = 0;
    for (const auto& e : filters)
        n += GVRInspectorFiltModel::rowForFile(library.filterFolder() + u'/' + e.fileName, e.fileName).length.isEmpty() ? 0 : 1;
    std::printf("filter rows:                      %8.1f ms (%d)\n", timer.nsecsElapsed() / 1e6, n);
    timer.restart();
    n = 0;
    for (const auto& e : signalFiles)
        n += GVRInspectorSigModel::rowForFile(library.signalFolder() + u'/' + e.fileName, e.fileName).fs.isValid() ? 1 : 0;
    std::printf("signal rows:                      %8.1f ms (%d)\n", timer.nsecsElapsed() / 1e6, n);
    timer.restart();
    n = 0;
    for (int i = 0; i < 1000; ++i)
        n += readSignalFile(library.signalFolder() + u'/' + signalFiles.at(i).fileName) ? 1 : 0;
    std::printf("1000 full signal reads:           %8.1f ms\n", timer.nsecsElapsed() / 1e6);
    timer.restart();
    for (int i = 0; i < 1000; ++i)
        n += readFilterFile(library.filterFolder() + u'/' + filters.at(i).fileName) ? 1 : 0;
    std::printf("1000 full filter reads:           %8.1f ms\n", timer.nsecsElapsed() / 1e6);
    timer.restart();
    for (int i = 0; i < 1000; ++i)
        n += readSignalFileScalars(library.signalFolder() + u'/' + signalFiles.at(i).fileName) ? 1 : 0;
    std::printf("1000 signal scalar reads:         %8.1f ms\n", timer.nsecsElapsed() / 1e6);
    timer.restart();
    for (int i = 0; i < 1000; ++i)
        n += readFilterFileScalars(library.filterFolder() + u'/' + filters.at(i).fileName) ? 1 : 0;
    std::printf("1000 filter scalar reads:         %8.1f ms\n", timer.nsecsElapsed() / 1e6);
    return 0;
}
