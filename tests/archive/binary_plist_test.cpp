// Hostile property lists: every malformed file gets a clean refusal with a
// reason, never a crash, a hang or a huge allocation.
#include "archive/binary_plist.h"

#include <cmath>
#include <limits>
#include <set>

#include <gtest/gtest.h>

#include "archive/project_archive.h"
#include "bplist_builder.h"

namespace {

// The reason for refusing, or "" when the bytes parse.
std::string refusal(const QByteArray& bytes)
{
    QString reason;
    const auto plist = BinaryPlist::parse(bytes, &reason);
    if (plist)
        return {};
    // The public decoder must refuse the same bytes with a full sentence.
    QString error;
    EXPECT_FALSE(decodeProjectArchive(bytes, &error));
    EXPECT_TRUE(error.startsWith("This is not an Orvana project: ")) << error.toStdString();
    EXPECT_FALSE(reason.isEmpty());
    return reason.toStdString();
}

// A small valid list: [ "a", 1 ].
BplistBuilder smallList()
{
    BplistBuilder b;
    b.array({1, 2});
    b.ascii("a");
    b.integer(1);
    return b;
}

std::uint64_t readBig(const QByteArray& bytes, qsizetype at)
{
    std::uint64_t v = 0;
    for (int i = 0; i < 8; ++i)
        v = (v << 8) | std::uint8_t(bytes[at + i]);
    return v;
}

}  // namespace

TEST(BinaryPlistHostile, ValidListParses)
{
    const QByteArray bytes = smallList().build(0);
    QString reason;
    const auto plist = BinaryPlist::parse(bytes, &reason);
    ASSERT_TRUE(plist) << reason.toStdString();
    EXPECT_EQ(plist->objectCount(), 3u);
    EXPECT_EQ(plist->type(0), BinaryPlist::Type::Array);
    EXPECT_EQ(plist->string(plist->element(0, 0)), "a");
    EXPECT_EQ(plist->integer(plist->element(0, 1)), 1);
}

TEST(BinaryPlistHostile, TooShortOrNotBinary)
{
    EXPECT_EQ(refusal(QByteArray()), "the file is empty");
    EXPECT_EQ(refusal("bplist00" + QByteArray(10, '\0')), "it is too short to be a binary property list");
    EXPECT_EQ(refusal("bplist00"), "it is too short to be a binary property list");
    EXPECT_EQ(refusal("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><array/></plist>"),
              "it is an XML property list, and design files are binary ones");
    EXPECT_EQ(refusal("  <plist version=\"1.0\"><dict/></plist>"),
              "it is an XML property list, and design files are binary ones");
    EXPECT_EQ(refusal(QByteArray(100, 'x')), "it is not a binary property list");
    QByteArray later = smallList().build(0);
    later.replace(6, 2, "15");
    EXPECT_EQ(refusal(later), "it is a binary property list of an unknown version");
}

TEST(BinaryPlistHostile, DamagedTrailer)
{
    const BplistBuilder b = smallList();
    const QByteArray good = b.build(0);
    const auto tableOffset = std::uint64_t(good.size()) - 32 - 3;

    EXPECT_EQ(refusal(b.build(0, {.tableOffset = std::uint64_t(good.size())})),
              "its offset table lies outside the file");
    EXPECT_EQ(refusal(b.build(0, {.tableOffset = ~std::uint64_t(0)})), "its offset table lies outside the file");
    EXPECT_EQ(refusal(b.build(0, {.tableOffset = 0})), "its offset table lies outside the file");
    EXPECT_EQ(refusal(b.build(0, {.tableOffset = 4})), "its offset table lies outside the file");
    EXPECT_EQ(refusal(b.build(0, {.top = 3})), "its top object is not one of its 3 objects");
    EXPECT_EQ(refusal(b.build(0, {.top = ~std::uint64_t(0)})), "its top object is not one of its 3 objects");
    EXPECT_EQ(refusal(b.build(0, {.offsetSize = 0})), "its trailer gives an offset size of 0 bytes");
    EXPECT_EQ(refusal(b.build(0, {.offsetSize = 9})), "its trailer gives an offset size of 9 bytes");
    EXPECT_EQ(refusal(b.build(0, {.refSize = 0})), "its trailer gives a reference size of 0 bytes");
    EXPECT_EQ(refusal(b.build(0, {.objectCount = 0})), "it declares no objects");
    for (std::uint64_t count : {std::uint64_t(4), std::uint64_t(255), std::uint64_t(0x7FFFFFFF),
                                std::uint64_t(1) << 40, ~std::uint64_t(0)}) {
        EXPECT_EQ(refusal(b.build(0, {.objectCount = count})),
                  QStringLiteral("it declares %1 objects, more than its offset table holds").arg(count).toStdString());
    }
    // A wider offset size than written: the table would run into the trailer.
    EXPECT_FALSE(refusal(b.build(0, {.tableOffset = tableOffset + 1})).empty());
}

TEST(BinaryPlistHostile, ObjectOffsetsOutsideTheObjectArea)
{
    const QByteArray good = smallList().build(0);
    const qsizetype table = qsizetype(readBig(good, good.size() - 8));
    QByteArray inHeader = good;
    inHeader[table + 1] = 3;  // object 1 inside "bplist00"
    EXPECT_EQ(refusal(inHeader), "object 1 lies outside the object area");
    QByteArray pastTable = good;
    pastTable[table + 2] = char(table + 1);
    EXPECT_EQ(refusal(pastTable), "object 2 lies outside the object area");
    // Every offset at the same array: it would be read three times over.
    QByteArray shared = good;
    shared[table + 1] = 8;
    shared[table + 2] = 8;
    EXPECT_EQ(refusal(shared), "its objects overlap one another");
}

TEST(BinaryPlistHostile, CountsBeyondTheFile)
{
    // One entry too many for each kind of counted object.
    for (const char* hex : {"a30000", "56616263", "44010203", "d2000000", "6300410042"}) {
        BplistBuilder b;
        b.integer(1);
        b.raw(QByteArray::fromHex(hex));
        const std::string reason = refusal(b.build(1));
        EXPECT_TRUE(reason.starts_with("object 1 claims ")) << hex << ": " << reason;
    }
    // Extended lengths: 2^31-1, 2^40, over 4 GiB, and 2^64-1 (negative as a signed count).
    for (std::uint64_t count :
         {std::uint64_t(0x7FFFFFFF), std::uint64_t(1) << 40, (std::uint64_t(1) << 32) + 1}) {
        for (unsigned kind : {0x4u, 0x5u, 0x6u, 0xAu, 0xDu}) {
            BplistBuilder b;
            b.raw(BplistBuilder::head(kind, count) + QByteArray(8, 'a'));
            EXPECT_EQ(refusal(b.build(0)),
                      QStringLiteral("object 0 claims %1 entries, more than the file holds").arg(count).toStdString())
                << kind;
        }
    }
    BplistBuilder b;
    b.raw(QByteArray::fromHex("5f13ffffffffffffffff") + "abc");
    EXPECT_EQ(refusal(b.build(0)), "object 0 has a negative length");
    BplistBuilder damaged;
    damaged.raw(QByteArray::fromHex("5f2300") + "abc");
    EXPECT_EQ(refusal(damaged.build(0)), "object 0 has a damaged length");
    BplistBuilder cut;
    cut.raw(QByteArray::fromHex("5f13ff"));
    EXPECT_EQ(refusal(cut.build(0)), "object 0 runs past the end of the object area");
}

TEST(BinaryPlistHostile, ReferencesToMissingObjects)
{
    BplistBuilder b;
    b.array({1, 7});
    b.integer(1);
    EXPECT_EQ(refusal(b.build(0)), "object 0 refers to object 7, which does not exist");
    BplistBuilder wide;
    wide.array({1, 0xFFFFFFFFu});
    wide.integer(1);
    EXPECT_EQ(refusal(wide.build(0, {.refSize = 4})), "object 0 refers to object 4294967295, which does not exist");
}

TEST(BinaryPlistHostile, BadStrings)
{
    const auto single = [](const QByteArray& object) {
        BplistBuilder b;
        b.array({1});
        b.raw(object);
        return refusal(b.build(0));
    };
    EXPECT_EQ(single(QByteArray::fromHex("53") + "a\xff" "b"), "object 1 is an ASCII string holding the byte 0xff");
    EXPECT_EQ(single(QByteArray::fromHex("5361") + QByteArray(1, '\0') + "b"),
              "object 1 is an ASCII string holding the byte 0x00");
    EXPECT_EQ(single(QByteArray::fromHex("61d800")), "object 1 is a string with an invalid character");
    EXPECT_EQ(single(QByteArray::fromHex("62d8000041")), "object 1 is a string with an invalid character");
    EXPECT_EQ(single(QByteArray::fromHex("61dc00")), "object 1 is a string with an invalid character");
    EXPECT_EQ(single(QByteArray::fromHex("620041" "0000")), "object 1 is a string with an invalid character");

    // A proper pair decodes to one four-byte UTF-8 character.
    BplistBuilder b;
    b.utf16({0x03A9, 0xD83D, 0xDE00});
    const auto plist = BinaryPlist::parse(b.build(0), nullptr);
    ASSERT_TRUE(plist);
    EXPECT_EQ(plist->string(0), "\xce\xa9\xf0\x9f\x98\x80");
}

TEST(BinaryPlistHostile, ArrayAsDictionaryKey)
{
    BplistBuilder b;
    b.dict({1}, {2});
    b.array({});
    b.integer(1);
    EXPECT_EQ(refusal(b.build(0)), "object 0 is a dictionary with a key that is not a string");
}

TEST(BinaryPlistHostile, DatesThatAreNotNumbers)
{
    for (double seconds : {std::nan(""), std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity()}) {
        BplistBuilder b;
        b.array({1});
        b.date(seconds);
        EXPECT_EQ(refusal(b.build(0)), "object 1 is a date that is not a number");
    }
    BplistBuilder b;
    b.date(0.0);
    EXPECT_TRUE(BinaryPlist::parse(b.build(0), nullptr));
}

TEST(BinaryPlistHostile, EveryUnassignedMarker)
{
    const std::set<unsigned> assigned = [] {
        std::set<unsigned> s{0x08, 0x09, 0x10, 0x11, 0x12, 0x13, 0x22, 0x23, 0x33};
        for (unsigned high : {0x4u, 0x5u, 0x6u, 0x8u, 0xAu, 0xDu}) {
            for (unsigned low = 0; low < 16; ++low)
                s.insert((high << 4) | low);
        }
        for (unsigned low = 8; low < 16; ++low)
            s.erase(0x80 | low);  // UIDs are at most eight bytes
        return s;
    }();
    int refused = 0;
    for (unsigned marker = 0; marker < 256; ++marker) {
        if (assigned.contains(marker))
            continue;
        BplistBuilder b;
        b.array({1});
        b.raw(QByteArray(1, char(marker)) + QByteArray(16, '\0'));
        const std::string reason = refusal(b.build(0));
        EXPECT_FALSE(reason.empty()) << marker;
        if (marker != 0x14) {  // a 128-bit integer has a reason of its own
            EXPECT_EQ(reason, QStringLiteral("object 1 has the unknown type marker 0x%1")
                                  .arg(marker, 2, 16, QLatin1Char('0'))
                                  .toStdString());
        }
        ++refused;
    }
    EXPECT_EQ(refused, 256 - 9 - 6 * 16 + 8);
    BplistBuilder wide;
    wide.raw(QByteArray::fromHex("14") + QByteArray(16, '\1'));
    EXPECT_EQ(refusal(wide.build(0)), "object 0 is an integer wider than 64 bits");
}

TEST(BinaryPlistHostile, DeepNesting)
{
    for (int depth : {17, 50, 300, 100000}) {
        BplistBuilder b;
        for (int i = 0; i + 1 < depth; ++i)
            b.array({std::uint64_t(i + 1)});
        b.array({});
        EXPECT_EQ(refusal(b.build(0)), "it nests deeper than 16 levels") << depth;
    }
    BplistBuilder b;
    for (int i = 0; i + 1 < 16; ++i)
        b.array({std::uint64_t(i + 1)});
    b.array({});
    EXPECT_TRUE(BinaryPlist::parse(b.build(0), nullptr));
}

TEST(BinaryPlistHostile, DepthCountsTheLongestPathNotTheFirst)
{
    // Object 1 is reached first from the top directly, then again at the end
    // of a chain of 14; the longer path makes the list 17 levels deep.
    BplistBuilder real;
    std::vector<std::uint64_t> topRefs{1, 2};
    real.array(topRefs);              // 0: top, level 1
    real.array({std::uint64_t(17)});  // 1: shallow route to the tail
    for (int i = 2; i < 16; ++i)      // 2..15: the long route
        real.array({std::uint64_t(i + 1)});
    real.array({std::uint64_t(1)});   // 16: rejoins object 1
    real.array({std::uint64_t(18)});  // 17
    real.array({});                   // 18
    EXPECT_EQ(refusal(real.build(0)), "it nests deeper than 16 levels");
}

TEST(BinaryPlistHostile, Cycles)
{
    BplistBuilder self;
    self.array({0});
    EXPECT_EQ(refusal(self.build(0)), "it contains a reference cycle");
    BplistBuilder pair;
    pair.array({1});
    pair.dict({2}, {0});
    pair.ascii("k");
    EXPECT_EQ(refusal(pair.build(0)), "it contains a reference cycle");
}

TEST(BinaryPlistHostile, SharedObjectsAreNotExpanded)
{
    // Thirty levels, each array referring to the next twice: 2^30 paths.
    BplistBuilder deep;
    for (int i = 0; i < 30; ++i)
        deep.array({std::uint64_t(i + 1), std::uint64_t(i + 1)});
    deep.array({});
    EXPECT_EQ(refusal(deep.build(0)), "it nests deeper than 16 levels");

    // Within the depth limit the same trick is parsed in linear time:
    // 14 levels of 250 references each would be 250^14 nodes if expanded.
    BplistBuilder wide;
    for (int i = 0; i < 14; ++i)
        wide.array(std::vector<std::uint64_t>(250, std::uint64_t(i + 1)));
    wide.array({});
    QString reason;
    EXPECT_TRUE(BinaryPlist::parse(wide.build(0), &reason)) << reason.toStdString();
    QString error;
    EXPECT_FALSE(decodeProjectArchive(wide.build(0), &error));
    EXPECT_EQ(error, "This is not an Orvana project: it is not a keyed archive.");
}

TEST(BinaryPlistHostile, TooManyObjectsOrBytes)
{
    QString reason;
    EXPECT_FALSE(BinaryPlist::parse(QByteArray(BinaryPlist::kMaxBytes + 1, '\0'), &reason));
    EXPECT_EQ(reason, "it is larger than 16 MiB, far more than any design");

    BplistBuilder many;
    std::vector<std::uint64_t> refs;
    for (std::uint64_t i = 1; i <= BinaryPlist::kMaxObjects; ++i)
        refs.push_back(i);
    many.array(refs);
    for (std::uint64_t i = 0; i < BinaryPlist::kMaxObjects; ++i)
        many.boolean(true);
    EXPECT_EQ(refusal(many.build(0)), "it holds 1000001 objects, far more than any design");
}
