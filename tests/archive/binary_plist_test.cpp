// Hostile property lists: every malformed file gets a clean refusal with a
// reason, never a crash, a hang or a huge allocation.
#include "archive/binary_plist.h"

#include <numeric>
#include <set>

#include <gtest/gtest.h>

#include "archive/project_archive.h"
#include "archive_test_support.h"

using namespace archive_test;

namespace {

// The reason for refusing, or "" when the bytes parse.
std::string refusal(const QByteArray& bytes)
{
    QString reason;
    if (BinaryPlist::parse(bytes, &reason))
        return {};
    // The public decoder must refuse the same bytes with a full sentence.
    QString error;
    EXPECT_FALSE(decodeProjectArchive(bytes, &error));
    EXPECT_TRUE(error.startsWith("This is not an Orvana project: ")) << error.toStdString();
    EXPECT_FALSE(reason.isEmpty());
    return reason.toStdString();
}

// A list of objects given in hex (references one byte wide), top object 0.
QByteArray plist(std::initializer_list<const char*> objects, const BplistTrailer& trailer = {})
{
    BplistBuilder b;
    for (const char* object : objects)
        b.hex(object);
    return b.build(0, trailer);
}

// One object of `kind` whose extended length is `count`, followed by 8 bytes.
QByteArray extended(unsigned kind, std::uint64_t count)
{
    BplistBuilder b;
    b.add(BplistBuilder::head(kind, count) + QByteArray(8, 'a'));
    return b.build(0);
}

// [ "a", 1 ], well formed.
QByteArray smallList(const BplistTrailer& trailer = {})
{
    return plist({"a20102", "5161", "1001"}, trailer);
}

// A chain of `depth` arrays, each referring to the next `fanOut` times.
QByteArray nested(int depth, int fanOut = 1)
{
    BplistBuilder b;
    for (int i = 0; i + 1 < depth; ++i)
        b.array(std::vector<std::uint64_t>(std::size_t(fanOut), std::uint64_t(i + 1)));
    b.array({});
    return b.build(0);
}

} // namespace

TEST(BinaryPlistHostile, WellFormedListsParse)
{
    QString reason;
    const auto list = BinaryPlist::parse(smallList(), &reason);
    ASSERT_TRUE(list) << reason.toStdString();
    EXPECT_EQ(list->objectCount(), 3u);
    EXPECT_EQ(list->type(0), BinaryPlist::Type::Array);
    EXPECT_EQ(list->string(list->element(0, 0)), "a");
    EXPECT_EQ(list->integer(list->element(0, 1)), 1);
    // A surrogate pair decodes to one four-byte UTF-8 character.
    const auto text = BinaryPlist::parse(plist({"6303a9d83dde00"}), nullptr);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string(0), "\xce\xa9\xf0\x9f\x98\x80");
    EXPECT_TRUE(BinaryPlist::parse(plist({"330000000000000000"}), nullptr)); // a date
    EXPECT_TRUE(BinaryPlist::parse(nested(16), nullptr));
    // Shared objects are not expanded: 250^14 paths are parsed in linear time.
    const QByteArray wide = nested(15, 250);
    EXPECT_TRUE(BinaryPlist::parse(wide, &reason)) << reason.toStdString();
    QString error;
    EXPECT_FALSE(decodeProjectArchive(wide, &error));
    EXPECT_EQ(error, "This is not an Orvana project: it is not a keyed archive.");
}

TEST(BinaryPlistHostile, RefusalsNameTheFault)
{
    const QByteArray good = smallList();
    const qsizetype table = good.size() - 32 - 3;
    QByteArray version = good, inHeader = good, pastTable = good, shared = good;
    version.replace(6, 2, "15");
    inHeader[table + 1] = 3; // object 1 inside "bplist00"
    pastTable[table + 2] = char(table + 1);
    shared[table + 1] = shared[table + 2] = 8; // every offset at the array: read three times over
    const std::uint64_t all = ~std::uint64_t(0);
    const struct {
        QByteArray bytes;
        std::string reason;
    } rows[] = {
        {QByteArray(), "the file is empty"},
        {"bplist00" + QByteArray(10, '\0'), "it is too short to be a binary property list"},
        {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><array/></plist>",
         "it is an XML property list, and design files are binary ones"},
        {"  <plist version=\"1.0\"><dict/></plist>",
         "it is an XML property list, and design files are binary ones"},
        {QByteArray(100, 'x'), "it is not a binary property list"},
        {version, "it is a binary property list of an unknown version"},
        {smallList({.tableOffset = std::uint64_t(good.size())}), "its offset table lies outside the file"},
        {smallList({.tableOffset = all}), "its offset table lies outside the file"},
        {smallList({.top = 3}), "its top object is not one of its 3 objects"},
        {smallList({.top = all}), "its top object is not one of its 3 objects"},
        {smallList({.offsetSize = 0}), "its trailer gives an offset size of 0 bytes"},
        {smallList({.offsetSize = 9}), "its trailer gives an offset size of 9 bytes"},
        {smallList({.refSize = 0}), "its trailer gives a reference size of 0 bytes"},
        {smallList({.objectCount = 0}), "it declares no objects"},
        {smallList({.objectCount = 4}), "it declares 4 objects, more than its offset table holds"},
        {smallList({.objectCount = std::uint64_t(1) << 40}),
         "it declares 1099511627776 objects, more than its offset table holds"},
        {smallList({.objectCount = all}),
         "it declares 18446744073709551615 objects, more than its offset table holds"},
        {inHeader, "object 1 lies outside the object area"},
        {pastTable, "object 2 lies outside the object area"},
        {shared, "its objects overlap one another"},
        // One entry too many for each kind of counted object.
        {plist({"1001", "a30000"}), "object 1 claims 3 entries, more than the file holds"},
        {plist({"1001", "56616263"}), "object 1 claims 6 entries, more than the file holds"},
        {plist({"1001", "44010203"}), "object 1 claims 4 entries, more than the file holds"},
        {plist({"1001", "d2000000"}), "object 1 claims 2 entries, more than the file holds"},
        {plist({"1001", "6300410042"}), "object 1 claims 3 entries, more than the file holds"},
        // Extended lengths of 2^31-1, 2^40 and just over 4 GiB.
        {extended(0xA, 0x7FFFFFFF), "object 0 claims 2147483647 entries, more than the file holds"},
        {extended(0x6, std::uint64_t(1) << 40),
         "object 0 claims 1099511627776 entries, more than the file holds"},
        {extended(0xD, (std::uint64_t(1) << 32) + 1),
         "object 0 claims 4294967297 entries, more than the file holds"},
        {plist({"5f13ffffffffffffffff616263"}), "object 0 has a negative length"},
        {plist({"5f2300616263"}), "object 0 has a damaged length"},
        {plist({"5f13ff"}), "object 0 runs past the end of the object area"},
        {plist({"a20107", "1001"}), "object 0 refers to object 7, which does not exist"},
        {plist({"a200000001ffffffff", "1001"}, {.refSize = 4}),
         "object 0 refers to object 4294967295, which does not exist"},
        {plist({"a101", "5361ff62"}), "object 1 is an ASCII string holding the byte 0xff"},
        {plist({"a101", "53610062"}), "object 1 is an ASCII string holding the byte 0x00"},
        {plist({"a101", "61d800"}), "object 1 is a string with an invalid character"},     // lone high
        {plist({"a101", "62d8000041"}), "object 1 is a string with an invalid character"}, // high, no low
        {plist({"a101", "61dc00"}), "object 1 is a string with an invalid character"},     // lone low
        {plist({"a101", "6200410000"}), "object 1 is a string with an invalid character"}, // NUL
        {plist({"d10102", "a0", "1001"}), "object 0 is a dictionary with a key that is not a string"},
        {plist({"a101", "337ff8000000000000"}), "object 1 is a date that is not a number"},
        {plist({"a101", "337ff0000000000000"}), "object 1 is a date that is not a number"},
        {plist({"1401010101010101010101010101010101"}), "object 0 is an integer wider than 64 bits"},
        {plist({"a100"}), "it contains a reference cycle"},
        {plist({"a101", "d10200", "516b"}), "it contains a reference cycle"},
        {nested(17), "it nests deeper than 16 levels"},
        {nested(100000), "it nests deeper than 16 levels"},
        {nested(31, 2), "it nests deeper than 16 levels"}, // 2^30 paths, never expanded
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes.left(48).toHex().toStdString());
        EXPECT_EQ(refusal(row.bytes), row.reason);
    }
    // A wider offset size than written: the table would run into the trailer.
    EXPECT_FALSE(refusal(smallList({.tableOffset = std::uint64_t(table) + 1})).empty());
}

TEST(BinaryPlistHostile, DepthCountsTheLongestPathNotTheFirst)
{
    // Object 1 is reached first from the top directly, then again at the end
    // of a chain of 14; the longer path makes the list 17 levels deep.
    BplistBuilder b;
    b.array({1, 2}); // 0: top, level 1
    b.array({17});   // 1: shallow route to the tail
    for (std::uint64_t i = 2; i < 16; ++i)
        b.array({i + 1}); // 2..15: the long route
    b.array({1});         // 16: rejoins object 1
    b.array({18});
    b.array({});
    EXPECT_EQ(refusal(b.build(0)), "it nests deeper than 16 levels");
}

TEST(BinaryPlistHostile, EveryUnassignedMarker)
{
    std::set<unsigned> assigned{0x08, 0x09, 0x10, 0x11, 0x12, 0x13, 0x14, 0x22, 0x23, 0x33};
    for (unsigned high : {0x4u, 0x5u, 0x6u, 0xAu, 0xDu})
        for (unsigned low = 0; low < 16; ++low)
            assigned.insert((high << 4) | low);
    for (unsigned low = 0; low < 8; ++low)
        assigned.insert(0x80 | low); // UIDs are at most eight bytes
    int refused = 0;
    for (unsigned marker = 0; marker < 256; ++marker) {
        if (assigned.contains(marker))
            continue;
        BplistBuilder b;
        b.array({1});
        b.add(QByteArray(1, char(marker)) + QByteArray(16, '\0'));
        EXPECT_EQ(refusal(b.build(0)), QStringLiteral("object 1 has the unknown type marker 0x%1")
                                           .arg(marker, 2, 16, QLatin1Char('0'))
                                           .toStdString());
        ++refused;
    }
    EXPECT_EQ(refused, 256 - 10 - 5 * 16 - 8);
}

TEST(BinaryPlistHostile, TooManyObjectsOrBytes)
{
    QString reason;
    EXPECT_FALSE(BinaryPlist::parse(QByteArray(BinaryPlist::kMaxBytes + 1, '\0'), &reason));
    EXPECT_EQ(reason, "it is larger than 16 MiB, far more than any design");
    BplistBuilder many;
    std::vector<std::uint64_t> refs(BinaryPlist::kMaxObjects);
    std::iota(refs.begin(), refs.end(), 1);
    many.array(refs);
    for (std::uint64_t i = 0; i < BinaryPlist::kMaxObjects; ++i)
        many.hex("09");
    EXPECT_EQ(refusal(many.build(0)), "it holds 1000001 objects, far more than any design");
}
