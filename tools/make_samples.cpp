// orvana-make-samples: designs the thirteen sample designs with the models and
// writes them into the folder given, for the build to install with the program.
#include <QCoreApplication>

#include <cstdio>

#include "shell/sample_designs.h"

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 2) {
        std::fprintf(stderr, "Usage: orvana-make-samples <output folder>\n");
        return 2;
    }
    const QList<LibraryProblem> problems = makeSampleDesigns(args.at(1));
    for (const LibraryProblem& problem : problems)
        std::fprintf(stderr, "%s\n", qPrintable(problem.message));
    return problems.isEmpty() ? 0 : 1;
}
