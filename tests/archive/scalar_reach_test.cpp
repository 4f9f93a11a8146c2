// Reading only the scalar fields (ArchiveReach::ScalarsOnly), as long lists
// do: whatever the whole decode reads gives the same scalars bit for bit, and
// damage is refused with a reason, never a crash (the sweep runs under ASan).
#include <random>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "archive_test_support.h"

namespace {

// Equal bytes with the arrays left out: equal scalars.
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

// Whether the scalars read; checked against the whole decode.
template <class Decode> bool scalarsAgree(const QByteArray& bytes, Decode decode)
{
    QString wholeError, scalarError;
    const auto whole = decode(bytes, &wholeError, ArchiveReach::Whole);
    const auto scalars = decode(bytes, &scalarError, ArchiveReach::ScalarsOnly);
    EXPECT_TRUE(scalars || !scalarError.isEmpty());
    EXPECT_TRUE(!whole || (scalars && scalarBytes(*scalars) == scalarBytes(*whole)))
        << scalarError.toStdString();
    return scalars.has_value();
}

} // namespace

TEST(ScalarReach, SameScalarsAsTheWholeDecodeThroughDamage)
{
    const auto filter = [](const QByteArray& b, QString* e, ArchiveReach r) {
        return decodeFilterArchive(b, e, r);
    };
    const auto signal = [](const QByteArray& b, QString* e, ArchiveReach r) {
        return decodeSignalArchive(b, e, r);
    };
    const QByteArray filterBytes = encodeFilterArchive(archive_test::awkwardFilter());
    const QByteArray signalBytes = encodeSignalArchive(archive_test::awkwardSignal());
    EXPECT_FALSE(decodeSignalArchive(signalBytes, nullptr, ArchiveReach::ScalarsOnly)->sampledSignalArray);
    for (qsizetype n = 0; n < filterBytes.size(); ++n)
        EXPECT_FALSE(scalarsAgree(filterBytes.left(n), filter)) << n;

    // Bytes changed anywhere; fewer signal rounds, as each whole one decodes 16384 samples.
    std::mt19937 random(20250611);
    int read = 0, refused = 0;
    for (const QByteArray* original : {&filterBytes, &signalBytes}) {
        std::uniform_int_distribution<qsizetype> position(0, original->size() - 1);
        for (int round = 0; round < (original == &filterBytes ? 1500 : 120); ++round) {
            QByteArray bytes = *original;
            for (int changes = round % 3; changes >= 0; --changes)
                bytes[position(random)] = char(random() & 0xFF);
            const bool ok =
                original == &filterBytes ? scalarsAgree(bytes, filter) : scalarsAgree(bytes, signal);
            ++(ok ? read : refused);
        }
    }
    EXPECT_GT(read, 0);
    EXPECT_GT(refused, 0);
}
