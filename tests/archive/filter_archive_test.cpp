// Filter files: bit-exact round trips, the file as plistlib sees it, and the
// checks that keep a bad record from being written.
#include "archive/filter_archive.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "archive/signal_archive.h"
#include "archive_test_support.h"

using namespace archive_test;

namespace {

void expectSameFilter(const GVRFilter& a, const GVRFilter& b)
{
    EXPECT_EQ(a.filterName, b.filterName);
    EXPECT_EQ(a.filterType, b.filterType);
    EXPECT_EQ(a.windowType, b.windowType);
    EXPECT_EQ(a.filterWidth, b.filterWidth);
    EXPECT_EQ(a.unitsType, b.unitsType);
    EXPECT_TRUE(sameBits(a.dfThetaSamplingFreq, b.dfThetaSamplingFreq));
    EXPECT_TRUE(sameBits(a.dfFilterLengthN, b.dfFilterLengthN));
    EXPECT_TRUE(sameBits(a.dfBetaUpsilon, b.dfBetaUpsilon));
    EXPECT_TRUE(sameBits(a.dfThetaCutoffFreqNormalized, b.dfThetaCutoffFreqNormalized));
    EXPECT_TRUE(sameBits(a.dfThetaCenterFreqNormalized, b.dfThetaCenterFreqNormalized));
    EXPECT_TRUE(sameBits(a.dfGimeldbLow, b.dfGimeldbLow));
    EXPECT_TRUE(sameBits(a.dfGimeldbHigh, b.dfGimeldbHigh));
    EXPECT_TRUE(sameBits(a.dfGimeldbBandwidth, b.dfGimeldbBandwidth));
    EXPECT_TRUE(sameBits(a.dfPassbandRipple, b.dfPassbandRipple));
    EXPECT_TRUE(sameBits(a.dfDynamicRange, b.dfDynamicRange));
    EXPECT_TRUE(sameBits(a.dfDynamicRangeError, b.dfDynamicRangeError));
    EXPECT_EQ(a.integerCoefficients, b.integerCoefficients);
    EXPECT_TRUE(sameBits(a.filterCoefficients, b.filterCoefficients));
    EXPECT_TRUE(sameBits(a.filterPrecisionCoefficients, b.filterPrecisionCoefficients));
}

const char* const kFilterKeys[] = {
    "filterName",          "filterType",         "windowType",
    "filterWidth",         "unitsType",          "dfThetaSamplingFreq",
    "dfFilterLengthN",     "dfBetaUpsilon",      "dfThetaCutoffFreqNormalized",
    "dfThetaCenterFreqNormalized", "dfGimeldbLow", "dfGimeldbHigh",
    "dfGimeldbBandwidth",  "dfPassbandRipple",   "dfDynamicRange",
    "dfDynamicRangeError", "integerCoefficients", "filterCoefficients",
    "filterPrecisionCoefficients"};

}  // namespace

TEST(FilterArchive, RoundTripKeepsEveryBit)
{
    const GVRFilter filter = awkwardFilter();
    QString error;
    const QByteArray bytes = encodeFilterArchive(filter, &error);
    ASSERT_FALSE(bytes.isEmpty()) << error.toStdString();
    const auto back = decodeFilterArchive(bytes, &error);
    ASSERT_TRUE(back) << error.toStdString();
    expectSameFilter(*back, filter);
}

TEST(FilterArchive, AbsentValuesStayAbsent)
{
    GVRFilter filter;  // as init leaves it
    const auto back = decodeFilterArchive(encodeFilterArchive(filter));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, filter);

    // The designer never sets the name: it must come back absent, not "".
    GVRFilter designed = awkwardFilter();
    designed.filterName.reset();
    const auto read = decodeFilterArchive(encodeFilterArchive(designed));
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->filterName.has_value());
}

TEST(FilterArchive, ReadersTakeTheLastRecord)
{
    GVRFilter first = awkwardFilter();
    GVRFilter second;
    second.filterType = 2;
    second.dfThetaCutoffFreqNormalized = 0.7;
    const auto back = decodeFilterArchive(encodeFilterArchive(std::vector<GVRFilter>{first, second}));
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, second);
}

TEST(FilterArchive, FileRoundTripAndReplace)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("hp20fc5.filt"));
    QString error;
    ASSERT_TRUE(writeFilterFile(path, awkwardFilter(), &error)) << error.toStdString();
    GVRFilter second;
    second.filterType = 0;
    ASSERT_TRUE(writeFilterFile(path, second, &error)) << error.toStdString();
    const auto back = readFilterFile(path, &error);
    ASSERT_TRUE(back) << error.toStdString();
    EXPECT_EQ(*back, second);
    // No temporary file left beside it.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("hp20fc5.filt")});
}

TEST(FilterArchive, PlistlibSeesAKeyedArchiveOfOneFilter)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("awkward.filt"));
    const GVRFilter filter = awkwardFilter();
    ASSERT_TRUE(writeFilterFile(path, filter));
    QString error;
    const QJsonObject view = pythonView(path, &error);
    ASSERT_FALSE(view.isEmpty()) << error.toStdString();

    EXPECT_EQ(view["archiver"].toString(), "NSKeyedArchiver");
    EXPECT_EQ(view["version"].toInt(), 100000);
    EXPECT_TRUE(view["versionIsInt"].toBool());
    EXPECT_EQ(view["topKeys"].toArray(), QJsonArray{"root"});
    EXPECT_EQ(view["firstObject"].toString(), "$null");
    EXPECT_TRUE(view["everyDictHasClass"].toBool());
    EXPECT_EQ(view["rootClass"].toString(), "NSMutableArray");
    EXPECT_EQ(view["rootClasses"].toArray(), (QJsonArray{"NSMutableArray", "NSArray", "NSObject"}));

    const QJsonArray records = view["records"].toArray();
    ASSERT_EQ(records.size(), 1);
    const QJsonObject record = records[0].toObject();
    EXPECT_EQ(record["classname"].toString(), "GVRFilter");
    EXPECT_EQ(record["classes"].toArray(), (QJsonArray{"GVRFilter", "NSObject"}));
    QJsonArray expectedKeys;
    for (const char* key : kFilterKeys)
        expectedKeys.append(QString::fromLatin1(key));
    EXPECT_EQ(record["keys"].toArray(), expectedKeys);

    const QJsonObject fields = record["fields"].toObject();
    EXPECT_EQ(fields["filterName"]["type"].toString(), "str");
    EXPECT_EQ(fields["filterName"]["value"].toString(), QString::fromStdString(*filter.filterName));
    EXPECT_EQ(fields["filterWidth"]["type"].toString(), "int");
    EXPECT_EQ(fields["filterWidth"]["value"].toString(), "9223372036854775807");
    EXPECT_EQ(fields["unitsType"]["value"].toString(), "-9223372036854775808");
    for (const char* key : {"filterType", "windowType", "filterWidth", "unitsType"})
        EXPECT_EQ(fields[key]["type"].toString(), "int") << key;
    for (int i = 5; i < 16; ++i)
        EXPECT_EQ(fields[kFilterKeys[i]]["type"].toString(), "float") << kFilterKeys[i];
    EXPECT_TRUE(sameBits(fromPythonHex(fields["dfBetaUpsilon"]["value"].toString()), -0.0));
    EXPECT_TRUE(sameBits(fromPythonHex(fields["dfThetaCenterFreqNormalized"]["value"].toString()), 0.1));
    EXPECT_TRUE(std::isnan(fromPythonHex(fields["dfGimeldbLow"]["value"].toString())));
    EXPECT_EQ(fromPythonHex(fields["dfPassbandRipple"]["value"].toString()), -kInf);
    EXPECT_TRUE(sameBits(fromPythonHex(fields["dfDynamicRange"]["value"].toString()), 5e-324));

    const QJsonObject ints = fields["integerCoefficients"].toObject();
    EXPECT_EQ(ints["type"].toString(), "array");
    EXPECT_EQ(ints["class"].toString(), "NSMutableArray");
    EXPECT_EQ(ints["elementTypes"].toArray(), QJsonArray{"int"});
    QJsonArray expectedInts;
    for (std::int64_t c : *filter.integerCoefficients)
        expectedInts.append(QString::number(c));
    EXPECT_EQ(ints["values"].toArray(), expectedInts);
    for (const char* key : {"filterCoefficients", "filterPrecisionCoefficients"}) {
        const QJsonObject reals = fields[key].toObject();
        EXPECT_EQ(reals["elementTypes"].toArray(), QJsonArray{"float"}) << key;
        EXPECT_EQ(reals["values"].toArray().size(), 7) << key;
    }
    const QJsonArray coefficients = fields["filterCoefficients"]["values"].toArray();
    for (int i = 0; i < 7; ++i) {
        const double python = fromPythonHex(coefficients[i].toString());
        const double ours = (*filter.filterCoefficients)[std::size_t(i)];
        EXPECT_TRUE(std::isnan(ours) ? std::isnan(python) : sameBits(python, ours)) << i;
    }
}

TEST(FilterArchive, AbsentValuesAreNullReferencesForPlistlib)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("empty.filt"));
    ASSERT_TRUE(writeFilterFile(path, GVRFilter{}));
    QString error;
    const QJsonObject view = pythonView(path, &error);
    ASSERT_FALSE(view.isEmpty()) << error.toStdString();
    const QJsonObject fields = view["records"][0]["fields"].toObject();
    EXPECT_EQ(fields.size(), 19);
    for (const char* key : kFilterKeys)
        EXPECT_EQ(fields[key]["type"].toString(), "null") << key;
}

TEST(FilterArchive, RecordsThatWouldNotReadBackAreNotWritten)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("keep.filt"));
    ASSERT_TRUE(writeFilterFile(path, awkwardFilter()));
    QFile original(path);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray before = original.readAll();
    original.close();

    GVRFilter tooShort = awkwardFilter();
    tooShort.filterCoefficients->pop_back();  // 6 coefficients, N = 7
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

    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_EQ(original.readAll(), before);
}

TEST(FilterArchive, ReadFailuresNameTheFile)
{
    QTemporaryDir dir;
    QString error;
    EXPECT_FALSE(readFilterFile(dir.filePath(QStringLiteral("missing.filt")), &error));
    EXPECT_TRUE(error.startsWith("“missing.filt” cannot be opened: ")) << error.toStdString();

    // A signal file given where a filter belongs.
    const QString signalPath = dir.filePath(QStringLiteral("Cos1MHz.filt"));
    ASSERT_TRUE(writeSignalFile(signalPath, GVRSignal{}));
    EXPECT_FALSE(readFilterFile(signalPath, &error));
    EXPECT_EQ(error, "“Cos1MHz.filt” is not an Orvana filter design: it holds a “GVRSignal” record where "
                     "a “GVRFilter” belongs.");

    // Over the size cap: refused before anything is parsed.
    const QString big = dir.filePath(QStringLiteral("big.filt"));
    QFile file(big);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(16 * 1024 * 1024 + 1));
    file.close();
    EXPECT_FALSE(readFilterFile(big, &error));
    EXPECT_EQ(error, "“big.filt” is not an Orvana filter design: it is larger than 16 MiB, far more than any design.");

    EXPECT_FALSE(decodeFilterArchive(QByteArray(), &error));
    EXPECT_EQ(error, "This is not an Orvana filter design: the file is empty.");
}
