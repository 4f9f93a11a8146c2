// Start-up with a large design library: orvana-first-paint over an empty
// library and over a generated one of 10 000 filters and 10 000 signals, in
// the same run, with the time until both inspectors hold every row and the
// time the open sheet takes to list 10 000 designs.
// Usage: large_library_bench [path/to/orvana-first-paint]
// The designs are hard links to two sample designs: every name is its own
// file to list, stat and decode, without 1.5 GB of disk.
#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>
#include <QProcess>
#include <QTableView>
#include <QTemporaryDir>

#include "bench_support.h"
#include "widgets/design_file_listing.h"
#include "widgets/open_sheet.h"

namespace {

constexpr int kDesignsPerKind = 10000;

struct Run {
    double firstPaint = -1;
    double inspectors = -1;
};

// One start of the program over `library`; nothing when it reported nothing.
std::optional<Run> start(const QString& program, const QString& library, const QTemporaryDir& home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    env.insert(QStringLiteral("ORVANA_BENCH_INSPECTORS"), QStringLiteral("1"));
    QProcess process;
    process.setProcessEnvironment(env);
    process.start(program, {QStringLiteral("--library"), library});
    if (!process.waitForFinished(120000))
        return std::nullopt;
    const QByteArray out = process.readAllStandardOutput();
    Run run;
    const qsizetype at = out.indexOf("inspectors complete:");
    if (std::sscanf(out.constData(), "first paint: %lf ms", &run.firstPaint) != 1 || at < 0 ||
        std::sscanf(out.constData() + at, "inspectors complete: %lf ms", &run.inspectors) != 1)
        return std::nullopt;
    return run;
}

double median(std::vector<double> v)
{
    std::nth_element(v.begin(), v.begin() + long(v.size() / 2), v.end());
    return v[v.size() / 2];
}

// Median first paint and inspector times of `runs` starts (after one warm-up).
std::optional<Run> medianStart(const QString& program, const QString& library, const QTemporaryDir& home,
                               int runs)
{
    std::vector<double> paint, inspectors;
    for (int i = 0; i <= runs; ++i) {
        const auto run = start(program, library, home);
        if (!run)
            return std::nullopt;
        if (i == 0)
            continue; // copies the samples, fills the page cache
        paint.push_back(run->firstPaint);
        inspectors.push_back(run->inspectors);
    }
    return Run{median(paint), median(inspectors)};
}

bool linkMany(const QString& source, const QString& folder, const QString& prefix, const QString& extension)
{
    const QByteArray from = QFile::encodeName(source);
    for (int i = 0; i < kDesignsPerKind; ++i) {
        const QByteArray to = QFile::encodeName(
            folder + QStringLiteral("/%1%2%3").arg(prefix).arg(i, 5, 10, QLatin1Char('0')).arg(extension));
        if (::link(from.constData(), to.constData()) != 0)
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QString program =
        argc > 1 ? QString::fromLocal8Bit(argv[1])
                 : QCoreApplication::applicationDirPath() + QStringLiteral("/orvana-first-paint");
    if (!QFileInfo(program).isExecutable()) {
        std::fprintf(stderr, "large_library_bench: %s is not a program\n", qPrintable(program));
        return 2;
    }
    QTemporaryDir home;
    const QString empty = home.filePath(QStringLiteral("empty"));
    const QString large = home.filePath(QStringLiteral("large"));
    const int runs = 5;
    const auto emptyRun = medianStart(program, empty, home, runs);
    // The large library starts as a copy of the seeded one, then grows.
    if (!emptyRun || !QDir().mkpath(large + QStringLiteral("/filter")) ||
        !QDir().mkpath(large + QStringLiteral("/signal"))) {
        std::fprintf(stderr, "large_library_bench: the empty library did not start\n");
        return 1;
    }
    if (!linkMany(empty + QStringLiteral("/filter/lp300fc25.filt"), large + QStringLiteral("/filter"),
                  QStringLiteral("f"), QStringLiteral(".filt")) ||
        !linkMany(empty + QStringLiteral("/signal/Cos35Fs300.signal"), large + QStringLiteral("/signal"),
                  QStringLiteral("s"), QStringLiteral(".signal"))) {
        std::fprintf(stderr, "large_library_bench: could not make the large library\n");
        return 1;
    }
    const auto largeRun = medianStart(program, large, home, runs);
    if (!largeRun) {
        std::fprintf(stderr, "large_library_bench: the large library did not start\n");
        return 1;
    }
    std::printf("first paint, empty library (reference):            %8.1f ms median of %d\n",
                emptyRun->firstPaint, runs);
    std::printf("first paint, 10 000 filters + 10 000 signals:      %8.1f ms median of %d (%.2fx, bar 3x)\n",
                largeRun->firstPaint, runs, largeRun->firstPaint / emptyRun->firstPaint);
    std::printf("inspectors complete, empty library (reference):    %8.1f ms\n", emptyRun->inspectors);
    std::printf("inspectors complete, 20 000 designs (bar 2000 ms): %8.1f ms\n", largeRun->inspectors);

    // The open sheet: list the folder and show the rows, as Open does.
    QMainWindow window;
    window.show();
    std::vector<double> listing;
    for (int i = 0; i < 5; ++i) {
        GVROpenSheet sheet(&window);
        QElapsedTimer timer;
        timer.start();
        sheet.setFiles(designFilesInFolder(large + QStringLiteral("/filter"), QStringLiteral(".filt")));
        sheet.show();
        sheet.table()->viewport()->repaint();
        listing.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("open sheet lists 10 000 designs (bar 200 ms):      %8.1f ms median of 5\n", median(listing));
    return 0;
}
