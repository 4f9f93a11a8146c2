// Cold start of the desktop program: from launching `orvana` to the first
// window painted (the program prints the moment and quits), offscreen, over
// a library prepared by the first run. Usage: startup_bench [path/to/orvana-first-paint].
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "bench_support.h"

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QString program =
        argc > 1 ? QString::fromLocal8Bit(argv[1])
                 : QCoreApplication::applicationDirPath() + QStringLiteral("/orvana-first-paint");
    if (!QFileInfo(program).isExecutable()) {
        std::fprintf(
            stderr,
            "startup_bench: %s is not a program; build the orvana-first-paint target or pass its path\n",
            qPrintable(program));
        return 2;
    }
    QTemporaryDir home;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    env.insert(QStringLiteral("XDG_CACHE_HOME"), home.filePath(QStringLiteral("cache")));
    const QStringList arguments{QStringLiteral("--library"), home.filePath(QStringLiteral("library"))};

    // Wall time to the line the program prints at its first paint, and the
    // time the program itself measured from main() to that paint.
    std::vector<double> wallMs;
    std::vector<double> insideMs;
    const int runs = 11;
    for (int i = 0; i <= runs; ++i) {
        QProcess process;
        process.setProcessEnvironment(env);
        const auto t0 = std::chrono::steady_clock::now();
        process.start(program, arguments);
        double inside = -1;
        QByteArray out;
        while (process.waitForReadyRead(20000)) {
            out += process.readAllStandardOutput();
            if (out.contains('\n'))
                break;
        }
        const auto t1 = std::chrono::steady_clock::now();
        process.waitForFinished(20000);
        if (std::sscanf(out.constData(), "first paint: %lf ms", &inside) != 1) {
            std::fprintf(stderr, "startup_bench: no first paint reported (%s)\n", out.constData());
            return 1;
        }
        if (i == 0)
            continue; // the first run also copies the samples into the new library
        wallMs.push_back(std::chrono::duration<double, std::milli>(t1 - t0).count());
        insideMs.push_back(inside);
    }
    auto median = [](std::vector<double> v) {
        std::nth_element(v.begin(), v.begin() + long(v.size() / 2), v.end());
        return v[v.size() / 2];
    };
    std::printf("cold start to first paint, launch to paint (target 400 ms): %8.1f ms median of %d\n",
                median(wallMs), runs);
    std::printf("cold start to first paint, main() to paint:                 %8.1f ms median of %d\n",
                median(insideMs), runs);
    return 0;
}
