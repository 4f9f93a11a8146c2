// Library preparation at launch, shared by the windowed program and the
// command line, and the designing of the sample designs it copies in.
#include "shell/sample_designs.h"

#include <array>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>

#include "archive/atomic_write.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "project/project_keys.h"
#include "project/project_model.h"
#include "signal/signal_designer_model.h"

QList<LibraryProblem> prepareLibrary(DesignLibrary& library, const QString& sampleFolder,
                                     StaleCleanUp cleanUp)
{
    QList<LibraryProblem> problems = library.ensureFolders();
    if (cleanUp == StaleCleanUp::Now)
        library.removeStaleTemporaries();
    else
        QThreadPool::globalInstance()->start(
            [root = library.root()] { DesignLibrary(root).removeStaleTemporaries(); });
    if (sampleFolder.isEmpty()) {
        problems << LibraryProblem{QString(),
                                   QStringLiteral("The sample designs shipped with Orvana were not found, "
                                                  "so none were copied into the design library.")};
        return problems;
    }
    const SeedReport report = library.seedSamples(sampleFolder);
    problems << report.problems;
    return problems;
}

namespace {

struct SignalSample {
    const char* name;
    int freqUnits; // 0 MHz, 1 KHz
    double fs;
    int function;
    std::array<double, 6> parms;
};

// Function indexes: 0 cosine (A, fₐ, ϕ, σ, μ), 2 cosine sum (A, fₐ, ϕ, M, σ, μ),
// 7 mixer (A₁, fₐ₁, A₂, fₐ₂, σ, μ). Volts throughout.
constexpr SignalSample kSignals[] = {
    {"Cos10M3Fs300", 1, 300.0, 2, {1.0, 10.0, 0.0, 3.0, 0.0, 0.0}},
    {"Cos1MHz", 0, 20.0, 0, {1.0, 1.0, 0.0, 0.0, 0.0, 0.0}},
    {"NoisyCosine3MHz", 0, 20.0, 0, {1.0, 3.0, 0.0, 0.2, 0.0, 0.0}},
    {"Mixer25MHz5MHz", 0, 100.0, 7, {1.0, 25.0, 1.0, 5.0, 0.0, 0.0}},
    {"Cos35Fs300", 1, 300.0, 0, {1.0, 35.0, 0.0, 0.0, 0.0, 0.0}},
};

struct FilterSample {
    const char* name;
    int units; // 0 Norm, 1 KHz, 2 MHz
    int type;  // 0 low, 1 band, 2 high pass
    double fs;
    double cutoff;
    double center;
    int length;
    int window; // 2 Hamming, 9 Kaiser, 10 Chebyshev
    double betaUpsilon;
    int width; // 0 Double, else 21 − bits
};

constexpr FilterSample kFilters[] = {
    {"bpNormFcp5Fcutp025", 0, 1, 0.0, 0.025, 0.5, 101, 2, 0.0, 0},
    {"lp20fc2cheby4", 2, 0, 20.0, 2.0, 0.0, 51, 10, 4.0, 5},
    {"hp20fc5cheby3p5", 2, 2, 20.0, 5.0, 0.0, 51, 10, 3.5, 5},
    {"bp50fc3fcntr15", 1, 1, 50.0, 3.0, 15.0, 61, 2, 0.0, 9},
    {"lp300fc25", 1, 0, 300.0, 25.0, 0.0, 51, 2, 0.0, 5},
    {"lpNormfcp333", 0, 0, 0.0, 0.333, 0.0, 51, 9, 5.0, 5},
};

LibraryProblem sampleProblem(const QString& name, const QString& why)
{
    return {name, QStringLiteral("The sample design \"%1\" could not be made: %2").arg(name, why)};
}

} // namespace

QList<LibraryProblem> makeSampleDesigns(const QString& folder)
{
    QList<LibraryProblem> problems;
    QTemporaryDir work;
    if (!work.isValid() || !QDir().mkpath(folder)) {
        problems << LibraryProblem{folder, QStringLiteral("No folder could be made for the sample designs.")};
        return problems;
    }
    DesignLibrary library(work.path());
    problems << library.ensureFolders();

    GVRSignalDesignerModel signalModel(library);
    for (const SignalSample& s : kSignals) {
        signalModel.designSignalWithParameters(
            GVRSignalDesignerModel::parameterDictionary(s.freqUnits, 0, s.fs, s.function, s.parms));
        if (!signalModel.saveSignalDesignWithFileName(QString::fromLatin1(s.name)))
            problems << sampleProblem(QString::fromLatin1(s.name), signalModel.lastFileError());
    }

    GVRFilterDesignerModel filterModel(library);
    for (const FilterSample& f : kFilters) {
        const QVariantMap parameters{
            {KEYFP_UNITS, f.units},        {KEYFP_FILTER_TYPE, f.type},   {KEYFP_SAMPLING_FREQ, f.fs},
            {KEYFP_CUTOFF_FREQ, f.cutoff}, {KEYFP_CENTER_FREQ, f.center}, {KEYFP_FILTER_LENGTH, f.length},
            {KEYFP_FILTER_WIDTH, f.width}, {KEYFP_WINDOW_TYPE, f.window}, {KEYFP_BETA_UPSILON, f.betaUpsilon},
        };
        filterModel.designFilterWithParameters(parameters);
        if (!filterModel.saveFilterDesignWithFileName(QString::fromLatin1(f.name)))
            problems << sampleProblem(QString::fromLatin1(f.name), filterModel.lastFileError());
    }

    GVRProjectModel projectModel(library);
    const auto project = [&](const QString& name, const QVariantMap& parameters) {
        projectModel.designProjectWithParameters(parameters);
        const int diagram = parameters.value(KEYMOD_BLOCK_DIAGRAM).toInt();
        if (!projectModel.saveProjectWithFilePath(library.projectPath(diagram, name)))
            problems << sampleProblem(name, projectModel.lastFileError());
    };
    project(QStringLiteral("Cos10M3andCos35"),
            GVRProjectModel::parameterDictionary(1, QStringLiteral("lp300fc25"),
                                                 QStringLiteral("Cos10M3Fs300"), QStringLiteral("Cos35Fs300"),
                                                 0, 0, 1, 1, 0));
    project(QStringLiteral("multirateUser300to450"),
            GVRProjectModel::parameterDictionary(2, QStringLiteral("lpNormfcp333"),
                                                 QStringLiteral("Cos35Fs300"), QStringLiteral("Cos10M3Fs300"),
                                                 0, 0, 3, 2, 0));

    // Side by side, as the library's seeding expects them.
    for (const DesignLibrary::Sample& sample : DesignLibrary::kSamples) {
        const QString name = QString::fromLatin1(sample.fileName);
        QFile in(library.folderPath(sample.folder) + u'/' + name);
        if (!in.open(QIODevice::ReadOnly))
            continue; // its design already reported why
        QString error;
        if (!writeFileAtomically(folder + u'/' + name, in.readAll(), &error))
            problems << LibraryProblem{folder + u'/' + name, error};
    }
    return problems;
}
