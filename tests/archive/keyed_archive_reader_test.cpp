// Hostile keyed archives: well-formed property lists whose archive structure
// lies. Each is refused with a reason, as a secure unarchiver would.
#include "archive/keyed_archive_reader.h"

#include <functional>
#include <random>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "archive/project_archive.h"
#include "archive/signal_archive.h"
#include "archive_test_support.h"

using namespace archive_test;

namespace {

using Fields = std::vector<std::pair<std::string, std::uint64_t>>;
using K = KeyedArchiveBuilder;

// A root array of the given entry UIDs.
QByteArray rootArray(K& k, const std::vector<std::uint64_t>& entries)
{
    const auto arrayClass = k.classEntry("NSMutableArray");
    return k.build(k.entry(k.arrayObject(entries, arrayClass)));
}

// A root array holding one record of `className` with the given key UIDs.
QByteArray oneRecord(K& k, const std::string& className, const Fields& fields)
{
    const auto recordClass = k.classEntry(className);
    return rootArray(k, {k.entry(k.object(fields, recordClass))});
}

// A filter whose coefficient array holds `count` copies of one element.
QByteArray coefficients(K& k, std::optional<double> lengthN, std::size_t count, int element,
                        const std::string& arrayClassName = "NSMutableArray")
{
    const auto uid = k.entry(element);
    const auto arrayClass = k.classEntry(arrayClassName);
    Fields fields{
        {"filterCoefficients", k.entry(k.arrayObject(std::vector<std::uint64_t>(count, uid), arrayClass))}};
    if (lengthN)
        fields.push_back({"dfFilterLengthN", k.entry(k.plist.real(*lengthN))});
    return oneRecord(k, "GVRFilter", fields);
}

// The reason a decoder gives, without its sentence around it; "" when it reads.
std::string refusal(const QByteArray& bytes, bool asFilter)
{
    QString error;
    const bool read = asFilter ? decodeFilterArchive(bytes, &error).has_value()
                               : decodeProjectArchive(bytes, &error).has_value();
    if (read)
        return {};
    const QString prefix =
        asFilter ? "This is not an Orvana filter design: " : "This is not an Orvana project: ";
    EXPECT_TRUE(error.startsWith(prefix) && error.endsWith('.')) << error.toStdString();
    return error.mid(prefix.size()).chopped(1).toStdString();
}

} // namespace

TEST(KeyedArchiveHostile, HandBuiltArchiveReads)
{
    // Shared UIDs are legal: the archiver writes equal objects once.
    K k;
    const auto one = k.entry(k.plist.integer(1));
    const QByteArray bytes = oneRecord(k, "GVRProject",
                                       {{"blockDiagramNumber", k.entry(k.plist.integer(2))},
                                        {"signalOneSign", one},
                                        {"signalTwoSign", one},
                                        {"signalOneName", k.entry(k.plist.hex("6203a9006d"))},
                                        {"filterName", 0},
                                        {"someLaterKey", one}});
    QString error;
    const auto project = decodeProjectArchive(bytes, &error);
    ASSERT_TRUE(project) << error.toStdString();
    GVRProject expected{2, 1, 1, {}, {}, {}, {}, "\xce\xa9m", {}}; // null reference and missing keys: absent
    EXPECT_EQ(*project, expected);
    K f; // NSArray is as good as NSMutableArray; 512 coefficients are allowed
    EXPECT_EQ(refusal(coefficients(f, 512.0, 512, f.plist.real(0.5), "NSArray"), true), "");
}

TEST(KeyedArchiveHostile, RefusalsNameTheFault)
{
    const std::tuple<std::function<QByteArray(K&)>, bool, std::string> rows[] = {
        // The archive around the records.
        {[](K& k) {
             return k.build(k.entry(k.arrayObject({}, k.classEntry("NSMutableArray"))), 100000, "NSArchiver");
         },
         false, "it was not written by a keyed archiver"},
        {[](K& k) { return k.build(k.entry(k.arrayObject({}, k.classEntry("NSMutableArray"))), 99999); },
         false, "its archive version is 99999, not 100000"},
        {[](K& k) { return rootArray(k, {}); }, false, "it holds no design"},
        {[](K& k) {
             k.setEntry(0, k.plist.ascii("null"));
             return rootArray(k, {});
         },
         false, "its object list does not begin with “$null”"},
        {[](K& k) { return k.build(0, 100000, "NSKeyedArchiver", false); }, false,
         "its root object is missing"},
        {[](K& k) {
             k.classEntry("NSMutableArray");
             return k.build(0);
         },
         false, "its root object is missing"},
        {[](K& k) {
             return k.plist.build(std::uint64_t(
                 k.plist.dict({{"$version", std::uint64_t(k.plist.integer(100000))},
                               {"$archiver", std::uint64_t(k.plist.ascii("NSKeyedArchiver"))}})));
         },
         false, "its object list is missing"},
        {[](K& k) { return k.plist.build(std::uint64_t(k.plist.array({}))); }, false,
         "it is not a keyed archive"},
        // References out of bounds.
        {[](K& k) {
             return oneRecord(k, "GVRProject", {{"multirateL", 99}});
         },
         false, "it refers to object 99 of an archive of 5 objects"},
        {[](K& k) { return k.build(1u << 31); }, false,
         "it refers to object 2147483648 of an archive of 1 objects"},
        {[](K& k) { return rootArray(k, {k.entry(k.object({}, 1000))}); }, false,
         "it refers to object 1000 of an archive of 4 objects"},
        {[](K& k) { return rootArray(k, {7}); }, false, "it refers to object 7 of an archive of 3 objects"},
        // Cycles: a field naming its record, record -> root -> record, an array holding itself, a class that
        // is the object.
        {[](K& k) {
             const auto recordClass = k.classEntry("GVRFilter");
             const auto self = k.uidCount();
             k.entry(k.object({{"filterCoefficients", self}}, recordClass));
             return rootArray(k, {self});
         },
         true, "it contains a reference cycle"},
        {[](K& k) {
             const auto arrayClass = k.classEntry("NSMutableArray");
             const auto recordClass = k.classEntry("GVRFilter");
             const auto record = k.uidCount();
             k.entry(k.object({{"filterCoefficients", record + 1}}, recordClass));
             k.entry(k.arrayObject({record}, arrayClass));
             return k.build(record + 1);
         },
         true, "it contains a reference cycle"},
        {[](K& k) {
             const auto arrayClass = k.classEntry("NSMutableArray");
             const auto array = k.uidCount();
             k.entry(k.arrayObject({array}, arrayClass));
             return oneRecord(k, "GVRFilter", {{"filterCoefficients", array}});
         },
         true, "it contains a reference cycle"},
        {[](K& k) {
             const auto record = k.uidCount();
             k.entry(k.object({}, record));
             return rootArray(k, {record});
         },
         true, "it contains a reference cycle"},
        // Classes.
        {[](K& k) { return oneRecord(k, "GVRSignal", {}); }, false,
         "it holds a “GVRSignal” record where a “GVRProject” belongs"},
        {[](K& k) { return k.build(k.entry(k.object({}, k.classEntry("GVRProject")))); }, false,
         "its root object is a “GVRProject”, not an array"},
        {[](K& k) {
             return rootArray(k, {k.entry(k.plist.dict({{"multirateL", std::uint64_t(k.plist.uid(0))}}))});
         },
         false, "one of its objects has no class"},
        // Values of the wrong kind; one object under keys of different types.
        {[](K& k) {
             const auto recordClass = k.classEntry("GVRProject");
             return rootArray(k,
                              {k.entry(k.plist.dict({{"multirateL", std::uint64_t(k.plist.integer(3))},
                                                     {"$class", std::uint64_t(k.plist.uid(recordClass))}}))});
         },
         false, "it holds a value where a reference belongs"},
        {[](K& k) {
             const auto shared = k.entry(k.plist.integer(1));
             return oneRecord(k, "GVRProject", {{"blockDiagramNumber", shared}, {"filterName", shared}});
         },
         false, "the value under “filterName” is not a text"},
        {[](K& k) {
             const auto number = k.entry(k.plist.real(7.0));
             return oneRecord(k, "GVRFilter", {{"dfFilterLengthN", number}, {"windowType", number}});
         },
         true, "the value under “windowType” is not a whole number"},
        {[](K& k) {
             return oneRecord(k, "GVRFilter", {{"dfFilterLengthN", k.entry(k.plist.integer(7))}});
         },
         true, "the value under “dfFilterLengthN” is not a real number"},
        {[](K& k) {
             return oneRecord(k, "GVRFilter", {{"filterType", k.entry(k.plist.real(1.0))}});
         },
         true, "the value under “filterType” is not a whole number"},
        {[](K& k) {
             return oneRecord(k, "GVRFilter", {{"filterName", k.entry(k.plist.hex("09"))}});
         },
         true, "the value under “filterName” is not a text"},
        {[](K& k) {
             return oneRecord(k, "GVRFilter", {{"filterCoefficients", k.entry(k.plist.real(1.0))}});
         },
         true, "the value under “filterCoefficients” is not an array"},
        {[](K& k) { return coefficients(k, 1.0, 1, k.plist.ascii("x")); }, true,
         "the value under “filterCoefficients” holds an element that is not a real number"},
        {[](K& k) {
             const auto array = k.entry(k.arrayObject({0}, k.classEntry("NSMutableArray")));
             return oneRecord(k, "GVRFilter", {{"filterCoefficients", array}});
         },
         true, "the value under “filterCoefficients” holds an empty element"},
        // Lengths and the root array's contents.
        {[](K& k) { return coefficients(k, std::nullopt, 513, k.plist.real(0.5)); }, true,
         "the value under “filterCoefficients” holds 513 elements; at most 512 are allowed"},
        {[](K& k) { return coefficients(k, 7.0, 6, k.plist.real(0.5)); }, true,
         "its “filterCoefficients” holds 6 coefficients but its filter length is 7"},
        {[](K& k) { return coefficients(k, std::nan(""), 6, k.plist.real(0.5)); }, true,
         "its “filterCoefficients” holds 6 coefficients but its filter length is nan"},
        {[](K& k) { return rootArray(k, {k.entry(k.plist.ascii("GVRProject"))}); }, false,
         "its root array holds something other than a design"},
        {[](K& k) {
             const auto recordClass = k.classEntry("GVRProject");
             return rootArray(k, std::vector<std::uint64_t>(65, k.entry(k.object({}, recordClass))));
         },
         false, "its root object holds 65 elements; at most 64 are allowed"},
        {[](K& k) {
             const auto v = k.entry(k.plist.integer(2));
             const auto w = k.entry(k.plist.integer(3));
             return oneRecord(k, "GVRProject", {{"multirateL", v}, {"multirateM", v}, {"multirateL", w}});
         },
         false, "one of its objects has the key “multirateL” twice"},
    };
    for (const auto& [make, asFilter, reason] : rows) {
        SCOPED_TRACE(reason);
        K k;
        EXPECT_EQ(refusal(make(k), asFilter), reason);
    }
    for (const std::string name : {"NSDictionary", "NSData", "GVRFilter2"}) {
        K k;
        EXPECT_EQ(refusal(oneRecord(k, name, {}), false),
                  "it contains an object of class “" + name + "”, which design files never hold");
    }
    // Class entries that are a string, the null object, without a name, with a string for a chain.
    for (int damage = 0; damage < 4; ++damage) {
        K k;
        const std::uint64_t bad =
            damage == 0   ? k.entry(k.plist.ascii("GVRProject"))
            : damage == 1 ? 0
            : damage == 2 ? k.entry(k.plist.dict({{"$classes", std::uint64_t(k.plist.array({}))}}))
                          : k.entry(k.plist.dict({{"$classname", std::uint64_t(k.plist.ascii("GVRProject"))},
                                                  {"$classes", std::uint64_t(k.plist.ascii("GVRProject"))}}));
        EXPECT_EQ(refusal(rootArray(k, {k.entry(k.object({}, bad))}), false),
                  "one of its objects has a damaged class entry")
            << damage;
    }
}

TEST(KeyedArchiveHostile, SignalsHoldExactly16384Samples)
{
    for (std::size_t count : {std::size_t(100), std::size_t(16385)}) {
        K k;
        const auto sample = k.entry(k.plist.real(0.25));
        const auto arrayClass = k.classEntry("NSMutableArray");
        const auto samples = k.entry(k.arrayObject(std::vector<std::uint64_t>(count, sample), arrayClass));
        QString error;
        EXPECT_FALSE(
            decodeSignalArchive(oneRecord(k, "GVRSignal", {{"sampledSignalArray", samples}}), &error));
        EXPECT_EQ(error, count == 100
                             ? "This is not an Orvana signal design: its “sampledSignalArray” holds 100 "
                               "samples instead of 16384."
                             : "This is not an Orvana signal design: the value under "
                               "“sampledSignalArray” holds 16385 elements; at most 16384 are allowed.");
    }
}

// Every prefix of a valid file and thousands of single-byte changes: each one
// either decodes or is refused with a reason (run under ASan/UBSan in CI).
TEST(KeyedArchiveHostile, TruncationsAndMutations)
{
    const QByteArray project = encodeProjectArchive(awkwardProject());
    const QByteArray filter = encodeFilterArchive(awkwardFilter());
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
