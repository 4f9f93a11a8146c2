// Signal designs saved and opened through GVRSignalDesignerModel: the stored
// record, the ten restored values, refusals and the save announcement.
#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include "archive/atomic_write.h"
#include "archive/signal_archive.h"
#include "recording_signal_view.h"

namespace {

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
