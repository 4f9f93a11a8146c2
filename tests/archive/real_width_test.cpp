// Doubles that a float holds exactly (300, 7, 0, -1, 0.5) are written as
// 8-byte reals (marker 0x23), as the platform's archiver writes them, and
// read back unchanged.
#include "archive/bplist_reals.h"
#include "archive/filter_archive.h"

#include <bit>

#include <gtest/gtest.h>

#include "archive_test_support.h"

namespace {

QByteArray realBytes(unsigned char marker, double value)
{
    QByteArray bytes(1, char(marker));
    const auto bits = std::bit_cast<std::uint64_t>(value);
    for (int i = 7; i >= 0; --i)
        bytes.append(char((bits >> (8 * i)) & 0xff));
    return bytes;
}

TEST(RealWidth, WholeNumberDoublesAreEightByteReals)
{
    GVRFilter filter = archive_test::awkwardFilter();
    filter.dfThetaSamplingFreq = 300.0;
    filter.dfFilterLengthN = 7.0;
    filter.dfBetaUpsilon = 0.0;
    filter.dfGimeldbHigh = -1.0;
    filter.dfPassbandRipple = 0.5;
    QString error;
    const QByteArray bytes = encodeFilterArchive(filter, &error);
    ASSERT_FALSE(bytes.isEmpty()) << error.toStdString();

    // 300 as libplist would shrink it: 22 43 96 00 00.
    EXPECT_FALSE(bytes.contains(QByteArray::fromHex("2243960000")));
    for (double v : {300.0, 7.0, 0.0, -1.0, 0.5})
        EXPECT_TRUE(bytes.contains(realBytes(0x23, v))) << v;

    const std::optional<GVRFilter> back = decodeFilterArchive(bytes, &error);
    ASSERT_TRUE(back) << error.toStdString();
    EXPECT_EQ(back->dfThetaSamplingFreq, 300.0);
    EXPECT_EQ(back->dfFilterLengthN, 7.0);
    EXPECT_EQ(back->dfGimeldbHigh, -1.0);
    EXPECT_EQ(back->dfPassbandRipple, 0.5);
}

TEST(RealWidth, WideningRefusesWhatIsNotABinaryPlist)
{
    for (const QByteArray& bad : {QByteArray(), QByteArray("bplist00"), QByteArray(64, 'x'),
                                  QByteArray("bplist00") + QByteArray(32, '\xff')})
        EXPECT_FALSE(widenBinaryPlistReals(bad)) << bad.toHex().toStdString();
}

} // namespace
