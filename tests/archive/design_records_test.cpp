// Filter, signal and project files: bit-exact round trips, the files as
// Python's plistlib sees them, and the checks that keep a bad record from
// being written or read.
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "archive/bplist_reals.h"
#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"
#include "archive_test_support.h"

using namespace archive_test;

namespace {

const char* const kFilterKeys[] = {"filterName",
                                   "filterType",
                                   "windowType",
                                   "filterWidth",
                                   "unitsType",
                                   "dfThetaSamplingFreq",
                                   "dfFilterLengthN",
                                   "dfBetaUpsilon",
                                   "dfThetaCutoffFreqNormalized",
                                   "dfThetaCenterFreqNormalized",
                                   "dfGimeldbLow",
                                   "dfGimeldbHigh",
                                   "dfGimeldbBandwidth",
                                   "dfPassbandRipple",
                                   "dfDynamicRange",
                                   "dfDynamicRangeError",
                                   "integerCoefficients",
                                   "filterCoefficients",
                                   "filterPrecisionCoefficients"};

QJsonArray strings(std::initializer_list<const char*> list)
{
    QJsonArray out;
    for (const char* s : list)
        out.append(QString::fromUtf8(s));
    return out;
}

// Python's view of what `write` saved under `name`, or a test failure.
template <class Write> QJsonObject savedView(const QString& name, Write write)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(name);
    QString error;
    EXPECT_TRUE(write(path, &error)) << error.toStdString();
    const QJsonObject view = pythonView(path, &error);
    EXPECT_FALSE(view.isEmpty()) << error.toStdString();
    return view;
}

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

} // namespace

// Decoding then encoding again gives the same bytes, so every bit of every
// field (NaN payloads, -0.0, subnormals) came back.
TEST(DesignRecords, RoundTripsKeepEveryBit)
{
    QTemporaryDir dir;
    QString error;
    const QString filterPath = dir.filePath(QStringLiteral("hp20fc5.filt"));
    ASSERT_TRUE(writeFilterFile(filterPath, GVRFilter{}, &error)) << error.toStdString();
    ASSERT_TRUE(writeFilterFile(filterPath, awkwardFilter(), &error)) << error.toStdString(); // replaces
    const auto filter = readFilterFile(filterPath, &error);
    ASSERT_TRUE(filter) << error.toStdString();
    EXPECT_EQ(encodeFilterArchive(*filter), encodeFilterArchive(awkwardFilter()));
    EXPECT_EQ(contents(filterPath), encodeFilterArchive(awkwardFilter()));

    const QString signalPath = dir.filePath(QStringLiteral("Cos35Fs300.signal"));
    ASSERT_TRUE(writeSignalFile(signalPath, awkwardSignal(), &error)) << error.toStdString();
    const auto signal = readSignalFile(signalPath, &error);
    ASSERT_TRUE(signal) << error.toStdString();
    EXPECT_EQ(encodeSignalArchive(*signal), encodeSignalArchive(awkwardSignal()));

    const QString projectPath = dir.filePath(QStringLiteral("multirateUser300to450.orvana"));
    ASSERT_TRUE(writeProjectFile(projectPath, awkwardProject(), &error)) << error.toStdString();
    EXPECT_EQ(readProjectFile(projectPath, &error), awkwardProject());
    // No temporary file left beside them.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 3);

    // Absent values stay absent; an empty name is a name. Readers take the last record.
    GVRFilter unnamed = awkwardFilter();
    unnamed.filterName.reset();
    EXPECT_FALSE(decodeFilterArchive(encodeFilterArchive(unnamed))->filterName.has_value());
    EXPECT_EQ(decodeFilterArchive(encodeFilterArchive(GVRFilter{})), GVRFilter{});
    EXPECT_EQ(decodeSignalArchive(encodeSignalArchive(GVRSignal{})), GVRSignal{});
    const GVRProject partial{1, {}, {}, {}, {}, {}, "", {}, {}};
    EXPECT_EQ(decodeProjectArchive(encodeProjectArchive(partial)), partial);
    GVRFilter second;
    second.filterType = 2;
    second.dfThetaCutoffFreqNormalized = 0.7;
    EXPECT_EQ(decodeFilterArchive(encodeFilterArchive(std::vector<GVRFilter>{awkwardFilter(), second})),
              second);
}

TEST(DesignRecords, PlistlibSeesAKeyedArchiveOfOneFilter)
{
    const GVRFilter filter = awkwardFilter();
    const QJsonObject view = savedView(
        "awkward.filt", [&](auto path, auto error) { return writeFilterFile(path, filter, error); });
    EXPECT_EQ(view["archiver"].toString(), "NSKeyedArchiver");
    EXPECT_EQ(view["version"].toInt(), 100000);
    EXPECT_TRUE(view["versionIsInt"].toBool());
    EXPECT_EQ(view["topKeys"].toArray(), strings({"root"}));
    EXPECT_EQ(view["firstObject"].toString(), "$null");
    EXPECT_TRUE(view["everyDictHasClass"].toBool());
    EXPECT_EQ(view["rootClasses"].toArray(), strings({"NSMutableArray", "NSArray", "NSObject"}));
    ASSERT_EQ(view["records"].toArray().size(), 1);
    const QJsonObject record = view["records"][0].toObject();
    EXPECT_EQ(record["classname"].toString(), "GVRFilter");
    EXPECT_EQ(record["classes"].toArray(), strings({"GVRFilter", "NSObject"}));
    QJsonArray keys;
    for (const char* key : kFilterKeys)
        keys.append(QString::fromLatin1(key));
    EXPECT_EQ(record["keys"].toArray(), keys);

    const QJsonObject fields = record["fields"].toObject();
    EXPECT_EQ(fields["filterName"]["type"].toString(), "str");
    EXPECT_EQ(fields["filterName"]["value"].toString(), QString::fromStdString(*filter.filterName));
    for (int i = 1; i < 16; ++i)
        EXPECT_EQ(fields[kFilterKeys[i]]["type"].toString(), i < 5 ? "int" : "float") << kFilterKeys[i];
    EXPECT_EQ(fields["filterWidth"]["value"].toString(), "9223372036854775807");
    EXPECT_EQ(fields["unitsType"]["value"].toString(), "-9223372036854775808");
    EXPECT_TRUE(sameBits(fromPythonHex(fields["dfBetaUpsilon"]["value"]), -0.0));
    EXPECT_TRUE(sameBits(fromPythonHex(fields["dfThetaCenterFreqNormalized"]["value"]), 0.1));
    EXPECT_TRUE(std::isnan(fromPythonHex(fields["dfGimeldbLow"]["value"])));
    EXPECT_EQ(fromPythonHex(fields["dfPassbandRipple"]["value"]), -kInf);
    EXPECT_TRUE(sameBits(fromPythonHex(fields["dfDynamicRange"]["value"]), 5e-324));

    const QJsonObject ints = fields["integerCoefficients"].toObject();
    EXPECT_EQ(ints["class"].toString(), "NSMutableArray");
    EXPECT_EQ(ints["elementTypes"].toArray(), strings({"int"}));
    EXPECT_EQ(ints["values"].toArray(), strings({"0", "-1", "1", "131071", "-131072", "0", "255"}));
    EXPECT_EQ(fields["filterPrecisionCoefficients"]["elementTypes"].toArray(), strings({"float"}));
    const QJsonArray coefficients = fields["filterCoefficients"]["values"].toArray();
    ASSERT_EQ(coefficients.size(), 7);
    for (int i = 0; i < 7; ++i) {
        const double python = fromPythonHex(coefficients[i]);
        const double ours = (*filter.filterCoefficients)[std::size_t(i)];
        EXPECT_TRUE(std::isnan(ours) ? std::isnan(python) : sameBits(python, ours)) << i;
    }

    // A record as init leaves it: every value a null reference.
    const QJsonObject empty = savedView("empty.filt",
                                        [](auto path, auto error) {
                                            return writeFilterFile(path, GVRFilter{}, error);
                                        })["records"][0]["fields"]
                                  .toObject();
    EXPECT_EQ(empty.size(), 19);
    for (const char* key : kFilterKeys)
        EXPECT_EQ(empty[key]["type"].toString(), "null") << key;
}

TEST(DesignRecords, PlistlibSeesSignalsAndProjectsWithNumbersOfTheRightKind)
{
    const GVRSignal signal = awkwardSignal();
    const QJsonObject record =
        savedView("awkward.signal",
                  [&](auto path, auto error) { return writeSignalFile(path, signal, error); })["records"][0]
            .toObject();
    EXPECT_EQ(record["classes"].toArray(), strings({"GVRSignal", "NSObject"}));
    EXPECT_EQ(
        record["keys"].toArray(),
        strings({"samplingFreq", "yStepIndex", "freqUnits", "voltUnits", "parm1", "parm2", "parm3", "parm4",
                 "parm5", "parm6", "maxAmplitude", "minAmplitude", "maxFreq", "sampledSignalArray"}));
    const QJsonObject fields = record["fields"].toObject();
    // The function index is a double holding a whole value, the units integers.
    EXPECT_EQ(fields["yStepIndex"]["type"].toString(), "float");
    EXPECT_EQ(fromPythonHex(fields["yStepIndex"]["value"]), 3.0);
    EXPECT_EQ(fields["freqUnits"]["type"].toString(), "int");
    EXPECT_EQ(fields["voltUnits"]["value"].toString(), "1");
    EXPECT_TRUE(sameBits(fromPythonHex(fields["parm2"]["value"]), -0.0));
    const QJsonObject samples = fields["sampledSignalArray"].toObject();
    EXPECT_EQ(samples["class"].toString(), "NSMutableArray");
    EXPECT_EQ(samples["elementTypes"].toArray(), strings({"float"}));
    const QJsonArray values = samples["values"].toArray();
    ASSERT_EQ(values.size(), 16384);
    int mismatches = 0;
    for (int k = 0; k < values.size(); ++k) {
        const double ours = (*signal.sampledSignalArray)[std::size_t(k)];
        const double python = fromPythonHex(values[k]);
        mismatches += std::isnan(ours) ? !std::isnan(python) : !sameBits(ours, python);
    }
    EXPECT_EQ(mismatches, 0);

    const QJsonObject project = savedView("p.orvana",
                                          [](auto path, auto error) {
                                              return writeProjectFile(path, awkwardProject(), error);
                                          })["records"][0]
                                    .toObject();
    EXPECT_EQ(project["classname"].toString(), "GVRProject");
    const auto projectKeys = {"blockDiagramNumber", "signalOneSign", "signalTwoSign",
                              "multirateL",         "multirateM",    "multirateFilterType",
                              "filterName",         "signalOneName", "signalTwoName"};
    EXPECT_EQ(project["keys"].toArray(), strings(projectKeys));
    for (const char* key : projectKeys)
        EXPECT_EQ(project["fields"][key]["type"].toString(), QString(key).endsWith("Name") ? "str" : "int")
            << key;
    EXPECT_EQ(project["fields"]["multirateM"]["value"].toString(), "-2");
    EXPECT_EQ(project["fields"]["signalTwoName"]["value"].toString(), QString::fromUtf8("Ωmega 😀"));
}

// Doubles a float holds exactly are written as 8-byte reals (marker 0x23),
// as the platform's archiver writes them.
TEST(DesignRecords, WholeNumberDoublesAreEightByteReals)
{
    GVRFilter filter = awkwardFilter();
    filter.dfThetaSamplingFreq = 300.0;
    filter.dfBetaUpsilon = 0.0;
    filter.dfPassbandRipple = 0.5;
    const QByteArray bytes = encodeFilterArchive(filter);
    EXPECT_FALSE(bytes.contains(QByteArray::fromHex("2243960000"))); // 300 as libplist would shrink it
    for (double v : {300.0, 7.0, 0.0, -1.0, 0.5})
        EXPECT_TRUE(bytes.contains("\x23" + BplistBuilder::bigEndian(std::bit_cast<std::uint64_t>(v), 8)))
            << v;
    EXPECT_EQ(decodeFilterArchive(bytes)->dfThetaSamplingFreq, 300.0);
    for (const QByteArray& bad : {QByteArray(), QByteArray("bplist00"), QByteArray(64, 'x'),
                                  QByteArray("bplist00") + QByteArray(32, '\xff')})
        EXPECT_FALSE(widenBinaryPlistReals(bad)) << bad.toHex().toStdString();
}

TEST(DesignRecords, RecordsThatWouldNotReadBackAreNotWritten)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("keep.filt"));
    ASSERT_TRUE(writeFilterFile(path, awkwardFilter()));
    const QByteArray before = contents(path);

    GVRFilter tooShort = awkwardFilter();
    tooShort.filterCoefficients->pop_back(); // 6 coefficients, N = 7
    QString error;
    EXPECT_FALSE(writeFilterFile(path, tooShort, &error));
    EXPECT_EQ(error, "“keep.filt” was not saved: its “filterCoefficients” holds 6 coefficients but its "
                     "filter length is 7.");
    GVRFilter tooLong;
    tooLong.integerCoefficients = std::vector<std::int64_t>(513, 1);
    EXPECT_FALSE(writeFilterFile(path, tooLong, &error));
    EXPECT_TRUE(error.contains("at most 512")) << error.toStdString();
    GVRFilter badName;
    badName.filterName = std::string("lp\xff");
    EXPECT_FALSE(writeFilterFile(path, badName, &error));
    EXPECT_TRUE(error.contains("not valid UTF-8")) << error.toStdString();
    badName.filterName = std::string("lp\0x", 4);
    EXPECT_FALSE(writeFilterFile(path, badName, &error));
    EXPECT_TRUE(encodeFilterArchive(badName).isEmpty());
    EXPECT_EQ(contents(path), before);

    GVRSignal shortSignal = awkwardSignal();
    shortSignal.sampledSignalArray->pop_back();
    EXPECT_TRUE(encodeSignalArchive(shortSignal, &error).isEmpty());
    EXPECT_EQ(error, "its “sampledSignalArray” holds 16383 samples instead of 16384");
    EXPECT_FALSE(writeSignalFile(dir.filePath(QStringLiteral("short.signal")), shortSignal, &error));
    EXPECT_EQ(error,
              "“short.signal” was not saved: its “sampledSignalArray” holds 16383 samples instead of 16384.");
    EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("short.signal"))));
}

TEST(DesignRecords, ReadFailuresNameTheFile)
{
    QTemporaryDir dir;
    QString error;
    EXPECT_FALSE(readFilterFile(dir.filePath(QStringLiteral("missing.filt")), &error));
    EXPECT_TRUE(error.startsWith("“missing.filt” cannot be opened: ")) << error.toStdString();

    const QString signalPath = dir.filePath(QStringLiteral("Cos1MHz.filt"));
    ASSERT_TRUE(writeSignalFile(signalPath, GVRSignal{}));
    EXPECT_FALSE(readFilterFile(signalPath, &error));
    EXPECT_EQ(error, "“Cos1MHz.filt” is not an Orvana filter design: it holds a “GVRSignal” record where "
                     "a “GVRFilter” belongs.");
    EXPECT_FALSE(decodeProjectArchive(encodeFilterArchive(GVRFilter{}), &error));
    EXPECT_EQ(error,
              "This is not an Orvana project: it holds a “GVRFilter” record where a “GVRProject” belongs.");

    // Over the size cap: refused before anything is parsed.
    const QString big = dir.filePath(QStringLiteral("big.filt"));
    QFile file(big);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(16 * 1024 * 1024 + 1));
    file.close();
    EXPECT_FALSE(readFilterFile(big, &error));
    EXPECT_EQ(
        error,
        "“big.filt” is not an Orvana filter design: it is larger than 16 MiB, far more than any design.");
    EXPECT_FALSE(decodeFilterArchive(QByteArray(), &error));
    EXPECT_EQ(error, "This is not an Orvana filter design: the file is empty.");
}
