// Signal files: bit-exact round trips of the 16384 samples, and the file as
// plistlib sees it.
#include "archive/signal_archive.h"

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "archive_test_support.h"

using namespace archive_test;

namespace {

void expectSameSignal(const GVRSignal& a, const GVRSignal& b)
{
    EXPECT_TRUE(sameBits(a.samplingFreq, b.samplingFreq));
    EXPECT_TRUE(sameBits(a.yStepIndex, b.yStepIndex));
    EXPECT_EQ(a.freqUnits, b.freqUnits);
    EXPECT_EQ(a.voltUnits, b.voltUnits);
    EXPECT_TRUE(sameBits(a.parm1, b.parm1));
    EXPECT_TRUE(sameBits(a.parm2, b.parm2));
    EXPECT_TRUE(sameBits(a.parm3, b.parm3));
    EXPECT_TRUE(sameBits(a.parm4, b.parm4));
    EXPECT_TRUE(sameBits(a.parm5, b.parm5));
    EXPECT_TRUE(sameBits(a.parm6, b.parm6));
    EXPECT_TRUE(sameBits(a.maxAmplitude, b.maxAmplitude));
    EXPECT_TRUE(sameBits(a.minAmplitude, b.minAmplitude));
    EXPECT_TRUE(sameBits(a.maxFreq, b.maxFreq));
    EXPECT_TRUE(sameBits(a.sampledSignalArray, b.sampledSignalArray));
}

}  // namespace

TEST(SignalArchive, RoundTripKeepsEveryBit)
{
    const GVRSignal signal = awkwardSignal();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("Cos35Fs300.signal"));
    QString error;
    ASSERT_TRUE(writeSignalFile(path, signal, &error)) << error.toStdString();
    const auto back = readSignalFile(path, &error);
    ASSERT_TRUE(back) << error.toStdString();
    expectSameSignal(*back, signal);

    const auto empty = decodeSignalArchive(encodeSignalArchive(GVRSignal{}));
    ASSERT_TRUE(empty);
    EXPECT_EQ(*empty, GVRSignal{});
}

TEST(SignalArchive, OnlyWholeSignalsAreWritten)
{
    QString error;
    GVRSignal shortSignal = awkwardSignal();
    shortSignal.sampledSignalArray->pop_back();
    EXPECT_TRUE(encodeSignalArchive(shortSignal, &error).isEmpty());
    EXPECT_EQ(error, "its “sampledSignalArray” holds 16383 samples instead of 16384");
    QTemporaryDir dir;
    EXPECT_FALSE(writeSignalFile(dir.filePath(QStringLiteral("short.signal")), shortSignal, &error));
    EXPECT_EQ(error, "“short.signal” was not saved: its “sampledSignalArray” holds 16383 samples instead of 16384.");
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("short.signal"))));
}

TEST(SignalArchive, PlistlibSeesNumbersOfTheRightKind)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("awkward.signal"));
    const GVRSignal signal = awkwardSignal();
    ASSERT_TRUE(writeSignalFile(path, signal));
    QString error;
    const QJsonObject view = pythonView(path, &error);
    ASSERT_FALSE(view.isEmpty()) << error.toStdString();
    EXPECT_EQ(view["rootClass"].toString(), "NSMutableArray");
    const QJsonObject record = view["records"][0].toObject();
    EXPECT_EQ(record["classname"].toString(), "GVRSignal");
    EXPECT_EQ(record["classes"].toArray(), (QJsonArray{"GVRSignal", "NSObject"}));
    EXPECT_EQ(record["keys"].toArray(),
              (QJsonArray{"samplingFreq", "yStepIndex", "freqUnits", "voltUnits", "parm1", "parm2", "parm3",
                          "parm4", "parm5", "parm6", "maxAmplitude", "minAmplitude", "maxFreq",
                          "sampledSignalArray"}));
    const QJsonObject fields = record["fields"].toObject();
    // The function index is a double holding a whole value, the units integers.
    EXPECT_EQ(fields["yStepIndex"]["type"].toString(), "float");
    EXPECT_EQ(fromPythonHex(fields["yStepIndex"]["value"].toString()), 3.0);
    EXPECT_EQ(fields["freqUnits"]["type"].toString(), "int");
    EXPECT_EQ(fields["voltUnits"]["value"].toString(), "1");
    EXPECT_TRUE(sameBits(fromPythonHex(fields["parm2"]["value"].toString()), -0.0));
    EXPECT_TRUE(std::isnan(fromPythonHex(fields["parm3"]["value"].toString())));

    const QJsonObject samples = fields["sampledSignalArray"].toObject();
    EXPECT_EQ(samples["class"].toString(), "NSMutableArray");
    EXPECT_EQ(samples["elementTypes"].toArray(), QJsonArray{"float"});
    const QJsonArray values = samples["values"].toArray();
    ASSERT_EQ(values.size(), 16384);
    int mismatches = 0;
    for (int k = 0; k < values.size(); ++k) {
        const double ours = (*signal.sampledSignalArray)[std::size_t(k)];
        const double python = fromPythonHex(values[k].toString());
        if (std::isnan(ours) ? !std::isnan(python) : !sameBits(ours, python))
            ++mismatches;
    }
    EXPECT_EQ(mismatches, 0);
}
