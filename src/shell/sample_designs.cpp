// Library preparation at launch, shared by the windowed program and the command line.
#include "shell/sample_designs.h"

QList<LibraryProblem> prepareLibrary(DesignLibrary& library, const QString& sampleFolder)
{
    QList<LibraryProblem> problems = library.ensureFolders();
    if (sampleFolder.isEmpty()) {
        problems << LibraryProblem{QString(), QStringLiteral("The sample designs shipped with Orvana were not found, "
                                                             "so none were copied into the design library.")};
        return problems;
    }
    const SeedReport report = library.seedSamples(sampleFolder);
    problems << report.problems;
    return problems;
}
