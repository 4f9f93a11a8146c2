// Signal designs saved and opened through GVRSignalDesignerModel: the stored
// record, the ten restored values, refusals, the save announcement, and the
// inspector rows of saved files (volts and MHz, which cells each function
// fills, files that cannot be read).
#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include "archive/atomic_write.h"
#include "archive/signal_archive.h"
#include "recording_signal_view.h"
#include "signal/inspector_sig_model.h"

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

class SignalDesignFile : public SignalFixture {
protected:
    GVRSignal stored(const QString& name)
    {
        QString error;
        const auto record = readSignalFile(library.signalPath(name), &error);
        EXPECT_TRUE(record.has_value()) << error.toStdString();
        return record.value_or(GVRSignal{});
    }
    // Noisy two-cosine design in KHz and mV: A₁ 500 mV at 35 KHz, A₂ 250 mV at 10 KHz, σ 0.1.
    void designNoisy()
    {
        design(1, 300.0, {500.0, 35.0, 250.0, 10.0, 0.1, 0.0}, 1, 1);
        ASSERT_TRUE(model.validResultsFlag()) << view.note.toStdString();
    }
};

} // namespace

TEST_F(SignalDesignFile, TwoSavesOfOneDesignHoldTheSameRecord)
{
    designNoisy();
    QSignalSpy spy(&library, &DesignLibrary::newSignalFile);
    ASSERT_TRUE(model.saveSignalDesignWithFileName(QStringLiteral("A")));
    ASSERT_TRUE(model.saveSignalDesignWithFileName(QStringLiteral("B")));
    EXPECT_EQ(spy.count(), 2);

    const GVRSignal a = stored(QStringLiteral("A"));
    EXPECT_EQ(a, stored(QStringLiteral("B")));
    // The samples without the chart header, noise included.
    const auto& t = model.timeDomainArray();
    EXPECT_EQ(*a.sampledSignalArray, std::vector<double>(t.begin() + 8, t.end()));
    EXPECT_TRUE(a.samplingFreq == 300.0 && a.yStepIndex == 1.0 && a.freqUnits == 1 && a.voltUnits == 1);
    EXPECT_TRUE(a.parm1 == 500.0 && a.parm5 == 0.1);
    EXPECT_EQ(a.maxAmplitude, model.max_amplitude());
    EXPECT_EQ(a.minAmplitude, model.min_amplitude());
    EXPECT_EQ(a.maxFreq, model.max_freq());
}

TEST_F(SignalDesignFile, OpenRestoresTheTenValuesBitForBit)
{
    const std::array<double, 6> parms{0.1 + 0.2, 1.0 / 3.0, 0.7, 3.0, 0.0, 0.0};
    design(2, 20.0 / 3.0, parms);
    ASSERT_TRUE(model.validResultsFlag()) << view.note.toStdString();
    ASSERT_TRUE(model.saveSignalDesignWithFileName(QStringLiteral("sum")));

    GVRSignalDesignerModel other(library);
    RecordingSignalView otherView;
    other.setWinSignalDesign(&otherView);
    ASSERT_TRUE(other.openSignalDesignWithFileName(QStringLiteral("sum")))
        << other.lastFileError().toStdString();
    ASSERT_EQ(otherView.restores, 1);
    const QVariantMap& r = otherView.restored;
    EXPECT_EQ(r, GVRSignalDesignerModel::parameterDictionary(0, 0, 20.0 / 3.0, 2.0, parms));
    EXPECT_EQ(r.value(KEYSP_Y_STEP).typeId(), QMetaType::Double);
    EXPECT_EQ(other.signalRestorationDictionary(), r);

    // Designing from the restored dictionary gives the same signal (no noise).
    other.designSignalWithParameters(r);
    EXPECT_EQ(other.timeDomainArray(), model.timeDomainArray());
}

TEST_F(SignalDesignFile, RefusalsWriteAndAnnounceNothing)
{
    QSignalSpy spy(&library, &DesignLibrary::newSignalFile);
    EXPECT_FALSE(model.saveSignalDesignWithFileName(QStringLiteral("early")));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    designNoisy();
    EXPECT_FALSE(model.saveSignalDesignWithFileName(QString()));
    EXPECT_FALSE(model.saveSignalDesignWithFileName(QStringLiteral("a/b")));
    EXPECT_TRUE(library.files(DesignLibrary::Folder::Signal).isEmpty());

    // A plain file in place of the signal folder: the write fails with a reason.
    QDir(library.signalFolder()).removeRecursively();
    QFile plain(library.signalFolder());
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    plain.close();
    EXPECT_FALSE(model.saveSignalDesignWithFileName(QStringLiteral("nowhere")));
    EXPECT_FALSE(model.lastFileError().isEmpty());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(SignalDesignFile, OpenTakesTheLastRecordAndRefusesIncompleteOnes)
{
    GVRSignal first;
    first.samplingFreq = 20.0;
    first.yStepIndex = 0.0;
    first.freqUnits = first.voltUnits = 0;
    first.parm1 = first.parm2 = 1.0;
    first.parm3 = first.parm4 = first.parm5 = first.parm6 = 0.0;
    GVRSignal last = first;
    last.yStepIndex = 3.0;
    last.parm2 = 2.5;
    ASSERT_TRUE(
        writeFileAtomically(library.signalPath(QStringLiteral("two")), encodeSignalArchive({first, last})));
    ASSERT_TRUE(model.openSignalDesignWithFileName(QStringLiteral("two")));
    EXPECT_EQ(view.restored.value(KEYSP_Y_STEP).toDouble(), 3.0);
    EXPECT_EQ(view.restored.value(KEYSP_PARM2).toDouble(), 2.5);

    GVRSignal partial = last;
    partial.parm6.reset();
    ASSERT_TRUE(
        writeFileAtomically(library.signalPath(QStringLiteral("partial")), encodeSignalArchive(partial)));
    view.restores = 0;
    for (const char* name : {"partial", "missing", ""}) {
        EXPECT_FALSE(model.openSignalDesignWithFileName(QLatin1String(name))) << name;
        EXPECT_FALSE(model.lastFileError().isEmpty()) << name;
    }
    EXPECT_EQ(view.restores, 0);
    EXPECT_EQ(model.signalRestorationDictionary().value(KEYSP_Y_STEP).toDouble(), 3.0);
}

TEST_F(SignalDesignFile, InspectorRowShowsVoltsAndMegahertz)
{
    design(0, 300000.0, {500.0, 35000.0, 0.25, 0.0, 0.0, 20.0}, 1, 1);
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

TEST_F(SignalDesignFile, UnreadableFilesNeverShowAnotherFilesValues)
{
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
