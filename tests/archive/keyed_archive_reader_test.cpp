// Hostile keyed archives: well-formed property lists whose archive structure
// lies. Each is refused with a reason, as a secure unarchiver would.
#include "archive/keyed_archive_reader.h"

#include <random>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"
#include "archive_test_support.h"
#include "bplist_builder.h"

namespace {

using Fields = std::vector<std::pair<std::string, std::uint64_t>>;

// A root array holding one record of `className` with the given key UIDs.
QByteArray oneRecord(KeyedArchiveBuilder& k, const std::string& className, const Fields& fields)
{
    const auto arrayClass = k.classEntry("NSMutableArray");
    const auto recordClass = k.classEntry(className);
    const auto record = k.entry(k.object(fields, recordClass));
    return k.build(k.entry(k.arrayObject({record}, arrayClass)));
}

std::string projectRefusal(const QByteArray& bytes)
{
    QString error;
    const auto project = decodeProjectArchive(bytes, &error);
    if (project)
        return {};
    EXPECT_TRUE(error.startsWith("This is not an Orvana project: ")) << error.toStdString();
    return error.mid(31).chopped(1).toStdString();
}

std::string filterRefusal(const QByteArray& bytes)
{
    QString error;
    if (decodeFilterArchive(bytes, &error))
        return {};
    EXPECT_TRUE(error.startsWith("This is not an Orvana filter design: ")) << error.toStdString();
    return error.mid(37).chopped(1).toStdString();
}

// A filter whose coefficient arrays are built from the given number objects.
QByteArray filterWithCoefficients(KeyedArchiveBuilder& k, std::optional<double> lengthN,
                                  const std::vector<int>& numbers, const std::string& arrayClassName = "NSMutableArray")
{
    std::vector<std::uint64_t> uids;
    for (int number : numbers)
        uids.push_back(k.entry(number));
    const auto arrayClass = k.classEntry(arrayClassName);
    const auto coefficients = k.entry(k.arrayObject(uids, arrayClass));
    Fields fields{{"filterCoefficients", coefficients}};
    if (lengthN)
        fields.push_back({"dfFilterLengthN", k.entry(k.plist.real(*lengthN))});
    return oneRecord(k, "GVRFilter", fields);
}

}  // namespace

TEST(KeyedArchiveHostile, HandBuiltArchiveReads)
{
    // Shared UIDs are legal: the archiver writes equal objects once.
    KeyedArchiveBuilder k;
    const auto one = k.entry(k.plist.integer(1));
    const auto name = k.entry(k.plist.utf16({0x03A9, 0x006D}));
    const QByteArray bytes = oneRecord(k, "GVRProject",
                                       {{"blockDiagramNumber", k.entry(k.plist.integer(2))},
                                        {"signalOneSign", one},
                                        {"signalTwoSign", one},
                                        {"signalOneName", name},
                                        {"filterName", 0},
                                        {"someLaterKey", one}});
    QString error;
    const auto project = decodeProjectArchive(bytes, &error);
    ASSERT_TRUE(project) << error.toStdString();
    EXPECT_EQ(project->blockDiagramNumber, 2);
    EXPECT_EQ(project->signalOneSign, 1);
    EXPECT_EQ(project->signalTwoSign, 1);
    EXPECT_EQ(project->signalOneName, "\xce\xa9m");
    EXPECT_FALSE(project->filterName);  // null reference
    EXPECT_FALSE(project->multirateL);  // key missing altogether
}

TEST(KeyedArchiveHostile, ArchiveHeader)
{
    {
        KeyedArchiveBuilder k;
        const auto c = k.classEntry("NSMutableArray");
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({}, c)), 100000, "NSArchiver")),
                  "it was not written by a keyed archiver");
    }
    {
        KeyedArchiveBuilder k;
        const auto c = k.classEntry("NSMutableArray");
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({}, c)), 99999)),
                  "its archive version is 99999, not 100000");
    }
    {
        KeyedArchiveBuilder k;
        const auto c = k.classEntry("NSMutableArray");
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({}, c)))), "it holds no design");
    }
    {
        KeyedArchiveBuilder k;
        k.setEntry(0, k.plist.ascii("null"));
        const auto c = k.classEntry("NSMutableArray");
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({}, c)))),
                  "its object list does not begin with “$null”");
    }
    {
        KeyedArchiveBuilder k;
        const int objects = k.objectsArray();
        const int root = k.plist.dict({{"$version", std::uint64_t(k.plist.integer(100000))},
                                       {"$archiver", std::uint64_t(k.plist.ascii("NSKeyedArchiver"))},
                                       {"$objects", std::uint64_t(objects)}});
        EXPECT_EQ(projectRefusal(k.plist.build(std::uint64_t(root))), "its root object is missing");
    }
    {
        KeyedArchiveBuilder k;
        const int root = k.plist.dict({{"$version", std::uint64_t(k.plist.integer(100000))},
                                       {"$archiver", std::uint64_t(k.plist.ascii("NSKeyedArchiver"))}});
        EXPECT_EQ(projectRefusal(k.plist.build(std::uint64_t(root))), "its object list is missing");
    }
    {
        KeyedArchiveBuilder k;
        k.classEntry("NSMutableArray");
        EXPECT_EQ(projectRefusal(k.build(0)), "its root object is missing");
    }
    BplistBuilder list;
    list.array({});
    EXPECT_EQ(projectRefusal(list.build(0)), "it is not a keyed archive");
}

TEST(KeyedArchiveHostile, ReferencesOutOfBounds)
{
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(projectRefusal(oneRecord(k, "GVRProject", {{"multirateL", 99}})),
                  "it refers to object 99 of an archive of 5 objects");
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(projectRefusal(k.build(1u << 31)), "it refers to object 2147483648 of an archive of 1 objects");
    }
    {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto record = k.entry(k.object({}, 1000));
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({record}, arrayClass)))),
                  "it refers to object 1000 of an archive of 4 objects");
    }
    {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({7}, arrayClass)))),
                  "it refers to object 7 of an archive of 3 objects");
    }
}

TEST(KeyedArchiveHostile, OneObjectUnderKeysOfDifferentTypes)
{
    KeyedArchiveBuilder k;
    const auto shared = k.entry(k.plist.integer(1));
    EXPECT_EQ(projectRefusal(oneRecord(k, "GVRProject", {{"blockDiagramNumber", shared}, {"filterName", shared}})),
              "the value under “filterName” is not a text");
    KeyedArchiveBuilder f;
    const auto number = f.entry(f.plist.real(7.0));
    EXPECT_EQ(filterRefusal(oneRecord(f, "GVRFilter", {{"dfFilterLengthN", number}, {"windowType", number}})),
              "the value under “windowType” is not a whole number");
}

TEST(KeyedArchiveHostile, Cycles)
{
    {
        // A record whose field refers to the record itself.
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto recordClass = k.classEntry("GVRFilter");
        const auto self = k.uidCount();
        k.entry(k.object({{"filterCoefficients", self}}, recordClass));
        EXPECT_EQ(filterRefusal(k.build(k.entry(k.arrayObject({self}, arrayClass)))), "it contains a reference cycle");
    }
    {
        // Record -> root array -> record.
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto recordClass = k.classEntry("GVRFilter");
        const auto record = k.uidCount();
        const auto root = record + 1;
        k.entry(k.object({{"filterCoefficients", root}}, recordClass));
        k.entry(k.arrayObject({record}, arrayClass));
        EXPECT_EQ(filterRefusal(k.build(root)), "it contains a reference cycle");
    }
    {
        // An array holding itself.
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto array = k.uidCount();
        k.entry(k.arrayObject({array}, arrayClass));
        EXPECT_EQ(filterRefusal(oneRecord(k, "GVRFilter", {{"filterCoefficients", array}})),
                  "it contains a reference cycle");
    }
    {
        // A class entry that is the object itself.
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto record = k.uidCount();
        k.entry(k.object({}, record));
        EXPECT_EQ(filterRefusal(k.build(k.entry(k.arrayObject({record}, arrayClass)))),
                  "it contains a reference cycle");
    }
}

TEST(KeyedArchiveHostile, ClassesOffTheAllowList)
{
    for (const char* name : {"NSDictionary", "NSData", "NSString", "NSURL", "GVRFilter2"}) {
        KeyedArchiveBuilder k;
        EXPECT_EQ(projectRefusal(oneRecord(k, name, {})),
                  QStringLiteral("it contains an object of class “%1”, which design files never hold")
                      .arg(QLatin1String(name))
                      .toStdString());
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(projectRefusal(oneRecord(k, "GVRSignal", {})),
                  "it holds a “GVRSignal” record where a “GVRProject” belongs");
    }
    {
        // The root is a record, not an array of records.
        KeyedArchiveBuilder k;
        const auto recordClass = k.classEntry("GVRProject");
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.object({}, recordClass)))),
                  "its root object is a “GVRProject”, not an array");
    }
    {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto record = k.entry(k.plist.dict({{"multirateL", std::uint64_t(k.plist.uid(0))}}));
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({record}, arrayClass)))),
                  "one of its objects has no class");
    }
    for (const std::string damage : {"string", "null", "noname", "chain"}) {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        std::uint64_t bad = 0;
        if (damage == "string")
            bad = k.entry(k.plist.ascii("GVRProject"));
        else if (damage == "noname")
            bad = k.entry(k.plist.dict({{"$classes", std::uint64_t(k.plist.array({}))}}));
        else if (damage == "chain")
            bad = k.entry(k.plist.dict({{"$classname", std::uint64_t(k.plist.ascii("GVRProject"))},
                                        {"$classes", std::uint64_t(k.plist.ascii("GVRProject"))}}));
        const auto record = k.entry(k.object({}, bad));
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({record}, arrayClass)))),
                  "one of its objects has a damaged class entry")
            << damage;
    }
}

TEST(KeyedArchiveHostile, ValuesOfTheWrongKind)
{
    {
        // An inline number where the archiver always writes a UID.
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto recordClass = k.classEntry("GVRProject");
        const auto record = k.entry(k.plist.dict({{"multirateL", std::uint64_t(k.plist.integer(3))},
                                                  {"$class", std::uint64_t(k.plist.uid(recordClass))}}));
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({record}, arrayClass)))),
                  "it holds a value where a reference belongs");
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(filterRefusal(oneRecord(k, "GVRFilter", {{"dfFilterLengthN", k.entry(k.plist.integer(7))}})),
                  "the value under “dfFilterLengthN” is not a real number");
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(filterRefusal(oneRecord(k, "GVRFilter", {{"filterType", k.entry(k.plist.real(1.0))}})),
                  "the value under “filterType” is not a whole number");
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(filterRefusal(oneRecord(k, "GVRFilter", {{"filterName", k.entry(k.plist.boolean(true))}})),
                  "the value under “filterName” is not a text");
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(filterRefusal(oneRecord(k, "GVRFilter", {{"filterCoefficients", k.entry(k.plist.real(1.0))}})),
                  "the value under “filterCoefficients” is not an array");
    }
    {
        KeyedArchiveBuilder k;
        EXPECT_EQ(filterRefusal(filterWithCoefficients(k, 2.0, {k.plist.real(1.0), k.plist.ascii("x")})),
                  "the value under “filterCoefficients” holds an element that is not a real number");
    }
    {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto array = k.entry(k.arrayObject({0}, arrayClass));
        EXPECT_EQ(filterRefusal(oneRecord(k, "GVRFilter", {{"filterCoefficients", array}})),
                  "the value under “filterCoefficients” holds an empty element");
    }
    {
        // NSArray is as good as NSMutableArray.
        KeyedArchiveBuilder k;
        EXPECT_EQ(filterRefusal(filterWithCoefficients(k, 2.0, {k.plist.real(1.0), k.plist.real(-0.5)}, "NSArray")),
                  "");
    }
}

TEST(KeyedArchiveHostile, ArrayLengths)
{
    {
        KeyedArchiveBuilder k;
        const int one = k.plist.real(0.5);
        EXPECT_EQ(filterRefusal(filterWithCoefficients(k, std::nullopt, std::vector<int>(513, one))),
                  "the value under “filterCoefficients” holds 513 elements; at most 512 are allowed");
    }
    {
        KeyedArchiveBuilder k;
        const int one = k.plist.real(0.5);
        EXPECT_EQ(filterRefusal(filterWithCoefficients(k, 7.0, std::vector<int>(6, one))),
                  "its “filterCoefficients” holds 6 coefficients but its filter length is 7");
    }
    {
        KeyedArchiveBuilder k;
        const int one = k.plist.real(0.5);
        EXPECT_EQ(filterRefusal(filterWithCoefficients(k, std::nan(""), std::vector<int>(6, one))),
                  "its “filterCoefficients” holds 6 coefficients but its filter length is nan");
    }
    {
        KeyedArchiveBuilder k;
        const int one = k.plist.real(0.5);
        EXPECT_EQ(filterRefusal(filterWithCoefficients(k, 512.0, std::vector<int>(512, one))), "");
    }
    for (std::size_t count : {std::size_t(100), std::size_t(16385)}) {
        KeyedArchiveBuilder k;
        const auto sample = k.entry(k.plist.real(0.25));
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto samples = k.entry(k.arrayObject(std::vector<std::uint64_t>(count, sample), arrayClass));
        QString error;
        EXPECT_FALSE(decodeSignalArchive(oneRecord(k, "GVRSignal", {{"sampledSignalArray", samples}}), &error));
        EXPECT_EQ(error, count == 100 ? "This is not an Orvana signal design: its “sampledSignalArray” holds 100 "
                                        "samples instead of 16384."
                                      : "This is not an Orvana signal design: the value under "
                                        "“sampledSignalArray” holds 16385 elements; at most 16384 are allowed.");
    }
}

TEST(KeyedArchiveHostile, RootArrayContents)
{
    {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto text = k.entry(k.plist.ascii("GVRProject"));
        EXPECT_EQ(projectRefusal(k.build(k.entry(k.arrayObject({text}, arrayClass)))),
                  "its root array holds something other than a design");
    }
    {
        KeyedArchiveBuilder k;
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto recordClass = k.classEntry("GVRProject");
        const auto record = k.entry(k.object({}, recordClass));
        const auto root = k.entry(k.arrayObject(std::vector<std::uint64_t>(65, record), arrayClass));
        EXPECT_EQ(projectRefusal(k.build(root)), "its root object holds 65 elements; at most 64 are allowed");
    }
    {
        KeyedArchiveBuilder k;
        const auto v = k.entry(k.plist.integer(2));
        const auto w = k.entry(k.plist.integer(3));
        EXPECT_EQ(projectRefusal(oneRecord(k, "GVRProject", {{"multirateL", v}, {"multirateM", v}, {"multirateL", w}})),
                  "one of its objects has the key “multirateL” twice");
    }
}

// Every prefix of a valid file and thousands of single-byte changes: each one
// either decodes or is refused with a reason (run under ASan/UBSan in CI).
TEST(KeyedArchiveHostile, TruncationsAndMutations)
{
    const QByteArray project = encodeProjectArchive(archive_test::awkwardProject());
    const QByteArray filter = encodeFilterArchive(archive_test::awkwardFilter());
    ASSERT_FALSE(project.isEmpty());
    ASSERT_FALSE(filter.isEmpty());
    for (qsizetype n = 0; n < project.size(); ++n) {
        QString error;
        EXPECT_FALSE(decodeProjectArchive(project.left(n), &error)) << n;
        EXPECT_FALSE(error.isEmpty());
    }
    std::mt19937 random(20240611);
    int decoded = 0;
    for (const QByteArray& original : {project, filter}) {
        std::uniform_int_distribution<qsizetype> position(0, original.size() - 1);
        for (int round = 0; round < 3000; ++round) {
            QByteArray bytes = original;
            for (int changes = 1 + round % 3; changes > 0; --changes)
                bytes[position(random)] = char(random() & 0xFF);
            QString error;
            const bool filterOk = decodeFilterArchive(bytes, &error).has_value();
            EXPECT_TRUE(filterOk || !error.isEmpty());
            const bool projectOk = decodeProjectArchive(bytes, &error).has_value();
            EXPECT_TRUE(projectOk || !error.isEmpty());
            decoded += int(filterOk) + int(projectOk);
        }
    }
    // Some changes only alter values; the sweep must reach the decoders' far end too.
    EXPECT_GT(decoded, 0);
}
