// Reading only the scalar fields (ArchiveReach::ScalarsOnly), as long lists
// do: every archive the whole decode reads gives the same scalars, bit for
// bit, and damage on the scalars' path is refused with a reason, never a crash.
#include <random>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "archive_test_support.h"

namespace {

constexpr auto kScalars = ArchiveReach::ScalarsOnly;

// The record's bytes with its arrays left out: equal bytes, equal scalars.
QByteArray scalarBytes(GVRFilter f)
{
    f.integerCoefficients.reset();
    f.filterCoefficients.reset();
    f.filterPrecisionCoefficients.reset();
    return encodeFilterArchive(f);
}

QByteArray scalarBytes(GVRSignal s)
{
    s.sampledSignalArray.reset();
    return encodeSignalArchive(s);
}

// Whole decode read => scalar decode reads the same scalars; either way a
// refusal says why. Returns whether the scalar decode read the archive.
template <class Decode> bool checkAgainstWhole(const QByteArray& bytes, Decode decode)
{
    QString wholeError;
    QString scalarError;
    const auto whole = decode(bytes, &wholeError, ArchiveReach::Whole);
    const auto scalars = decode(bytes, &scalarError, kScalars);
    EXPECT_TRUE(whole || !wholeError.isEmpty());
    EXPECT_TRUE(scalars || !scalarError.isEmpty());
    if (whole) {
        EXPECT_TRUE(scalars) << scalarError.toStdString();
        if (scalars) {
            EXPECT_EQ(scalarBytes(*scalars), scalarBytes(*whole));
        }
    }
    return scalars.has_value();
}

} // namespace

TEST(ScalarReach, SameScalarsAsTheWholeDecodeThroughDamage)
{
    const QByteArray filter = encodeFilterArchive(archive_test::awkwardFilter());
    const QByteArray signal = encodeSignalArchive(archive_test::awkwardSignal());
    ASSERT_FALSE(filter.isEmpty());
    ASSERT_FALSE(signal.isEmpty());
    const auto decodeFilter = [](const QByteArray& b, QString* e, ArchiveReach r) { return decodeFilterArchive(b, e, r); };
    const auto decodeSignal = [](const QByteArray& b, QString* e, ArchiveReach r) { return decodeSignalArchive(b, e, r); };

    const auto scalars = decodeSignalArchive(signal, nullptr, kScalars);
    ASSERT_TRUE(scalars);
    EXPECT_FALSE(scalars->sampledSignalArray);
    EXPECT_TRUE(checkAgainstWhole(filter, decodeFilter));
    EXPECT_TRUE(checkAgainstWhole(signal, decodeSignal));

    // Every cut loses the trailer.
    for (qsizetype n = 0; n < filter.size(); ++n)
        EXPECT_FALSE(checkAgainstWhole(filter.left(n), decodeFilter)) << n;

    // Random bytes changed anywhere: in the samples the scalars still read.
    // (Fewer signal rounds: each whole signal decode reads 16384 samples.)
    std::mt19937 random(20250611);
    int read = 0;
    int refused = 0;
    for (const QByteArray* original : {&filter, &signal}) {
        std::uniform_int_distribution<qsizetype> position(0, original->size() - 1);
        const int rounds = original == &filter ? 1500 : 120;
        for (int round = 0; round < rounds; ++round) {
            QByteArray bytes = *original;
            for (int changes = 1 + round % 3; changes > 0; --changes)
                bytes[position(random)] = char(random() & 0xFF);
            const bool ok = original == &filter ? checkAgainstWhole(bytes, decodeFilter)
                                                : checkAgainstWhole(bytes, decodeSignal);
            (ok ? read : refused) += 1;
        }
    }
    EXPECT_GT(read, 0);
    EXPECT_GT(refused, 0);
}

TEST(ScalarReach, DamageOnTheScalarsPathIsRefused)
{
    const QByteArray signal = encodeSignalArchive(archive_test::awkwardSignal());
    const auto trailer = [&](int at) { return quint8(signal.at(signal.size() - 32 + at)); };
    qint64 table = 0;
    for (int i = 24; i < 32; ++i)
        table = (table << 8) | trailer(i);
    const qsizetype tableEnd = signal.size() - 32;

    const struct {
        const char* what;
        qsizetype from;
        char fill;
        const char* reason;
    } cases[] = {
        {"offsets past the object area", qsizetype(table), '\xFF', "lies outside the object area"},
        {"objects of an unknown type", 8, '\x70', "unknown type marker"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        QByteArray bytes = signal;
        for (qsizetype i = c.from; i < (c.from == 8 ? qsizetype(table) : tableEnd); ++i)
            bytes[i] = c.fill;
        QString error;
        EXPECT_FALSE(decodeSignalArchive(bytes, &error, kScalars));
        EXPECT_TRUE(error.contains(QLatin1String(c.reason))) << error.toStdString();
    }
}
