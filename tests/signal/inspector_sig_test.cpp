// Signal inspector rows from saved designs: volts and MHz conversions, which
// cells each function fills, and files that cannot be read.
#include <gtest/gtest.h>

#include <QDir>

#include "archive/atomic_write.h"
#include "archive/signal_archive.h"
#include "library/design_library.h"
#include "signal/inspector_sig_model.h"
#include "signal/signal_designer_model.h"
#include "support/temp_library.h"

namespace {

GVRSignal record(double step, int freqUnits, int voltUnits, double fs, std::array<double, 6> p)
{
    GVRSignal r;
    r.samplingFreq = fs;
    r.yStepIndex = step;
    r.freqUnits = freqUnits;
    r.voltUnits = voltUnits;
    std::optional<double> GVRSignal::*const parms[] = {&GVRSignal::parm1, &GVRSignal::parm2,
                                                       &GVRSignal::parm3, &GVRSignal::parm4,
                                                       &GVRSignal::parm5, &GVRSignal::parm6};
    for (std::size_t i = 0; i < 6; ++i)
        r.*parms[i] = p[i];
    return r;
}

// The keys holding a value, in column order.
QStringList filled(const GVRInspectSig& row)
{
    QStringList keys;
    for (const QString& key : GVRInspectSig::keys())
        if (row.value(key).isValid())
            keys << key;
    return keys;
}

} // namespace

TEST(SigInspector, KilohertzMillivoltDesignShowsVoltsAndMegahertz)
{
    TempLibrary temp;
    DesignLibrary library(temp.root());
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    GVRSignalDesignerModel model(library);
    model.designSignalWithParameters(GVRSignalDesignerModel::parameterDictionary(
        1, 1, 300000.0, 0.0, {500.0, 35000.0, 0.25, 0.0, 0.0, 20.0}));
    ASSERT_TRUE(model.saveSignalDesignWithFileName(QStringLiteral("cos")));

    const QList<GVRInspectSig> rows = GVRInspectorSigModel(library).getSigInspectorArray();
    ASSERT_EQ(rows.size(), 1);
    const GVRInspectSig& row = rows[0];
    EXPECT_EQ(row.filename, QStringLiteral("cos"));
    EXPECT_EQ(row.function, QStringLiteral("Acos(fₐ,Φ)+AGN(σ,μ)"));
    EXPECT_EQ(filled(row), (QStringList{"filename", "function", "fs", "a1", "fa1", "phi", "sigma", "mu"}));
    const std::vector<double> cells{row.fs.toDouble(),  row.a1.toDouble(),    row.fa1.toDouble(),
                                    row.phi.toDouble(), row.sigma.toDouble(), row.mu.toDouble()};
    EXPECT_EQ(cells, (std::vector<double>{300.0, 0.5, 35.0, 0.25, 0.0, 0.0}));
}

TEST(SigInspector, EachFunctionFillsItsOwnCells)
{
    const std::array<double, 6> p{1000.0, 2000.0, 3000.0, 4000.0, 5000.0, 6000.0};
    struct Case {
        double step;
        QStringList cells;
    };
    const QStringList head{"filename", "function", "fs"};
    const Case cases[] = {
        {3, head + QStringList{"a1", "fa1", "phi", "sigma", "mu"}},
        {4, head + QStringList{"a1", "fa1", "a2", "fa2", "sigma", "mu"}},
        {5, head + QStringList{"a1", "fa1", "phi", "m", "sigma", "mu"}},
        {6, head + QStringList{"sigma", "mu"}},
        {7, head + QStringList{"a1", "fa1", "a2", "fa2", "sigma", "mu"}},
        {8, head + QStringList{"a1", "tau", "sigma", "mu"}},
        {10, head + QStringList{"beta", "sigma", "mu"}},
    };
    for (const Case& c : cases) {
        const GVRInspectSig row =
            GVRInspectorSigModel::rowForRecord(QStringLiteral("x"), record(c.step, 1, 1, 100.0, p));
        EXPECT_EQ(filled(row), c.cells) << c.step;
        EXPECT_EQ(row.function, GVRInspectorSigModel::abbrFuncStrings().at(static_cast<int>(c.step)));
    }
    // Rectangle: A and μ in volts, τ and σ as stored; a mixer in MHz and volts:
    // nothing divided; noise: μ in volts, σ as stored.
    const auto row = [&](double step, int units) {
        return GVRInspectorSigModel::rowForRecord(QStringLiteral("x"), record(step, units, units, 100.0, p));
    };
    const GVRInspectSig rect = row(8, 1), mixer = row(7, 0), noise = row(6, 1);
    EXPECT_EQ((std::vector<double>{rect.a1.toDouble(), rect.tau.toDouble(), rect.sigma.toDouble(),
                                   rect.mu.toDouble(), mixer.fa2.toDouble(), mixer.mu.toDouble(),
                                   noise.sigma.toDouble(), noise.mu.toDouble()}),
              (std::vector<double>{1.0, 2000.0, 3000.0, 4.0, 4000.0, 6000.0, 1000.0, 2.0}));
}

TEST(SigInspector, UnreadableFilesNeverShowAnotherFilesValues)
{
    TempLibrary temp;
    DesignLibrary library(temp.root());
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    ASSERT_TRUE(writeSignalFile(library.signalPath(QStringLiteral("good")),
                                record(0, 0, 0, 20.0, {1.0, 2.0, 0.0, 0.0, 0.0, 0.0})));
    ASSERT_TRUE(writeFileAtomically(library.signalPath(QStringLiteral("junk")), QByteArray("junk")));
    ASSERT_TRUE(writeSignalFile(library.signalPath(QStringLiteral("odd")),
                                record(11.0, 0, 0, 20.0, {1.0, 2.0, 0.0, 0.0, 0.0, 0.0})));
    const QList<GVRInspectSig> rows = GVRInspectorSigModel(library).getSigInspectorArray();
    ASSERT_EQ(rows.size(), 3);
    for (const GVRInspectSig& row : rows) {
        if (row.filename == QLatin1String("good")) {
            EXPECT_EQ(row.fa1.toDouble(), 2.0);
            continue;
        }
        EXPECT_EQ(row.function, GVRInspectorSigModel::unreadableFunctionText()) << row.filename.toStdString();
        EXPECT_EQ(filled(row), (QStringList{"filename", "function"}));
    }
    ASSERT_TRUE(QDir(library.signalFolder()).removeRecursively());
    EXPECT_TRUE(GVRInspectorSigModel(library).getSigInspectorArray().isEmpty());
}
