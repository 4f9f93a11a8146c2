#include <gtest/gtest.h>

#include "library/note_format.h"

TEST(NoteFormat, NumberFollowsTwoBlanksWithThreeDecimals)
{
    // Messages that take a number end in a blank; the format adds another.
    EXPECT_EQ(formatNote(QStringLiteral("VALID RANGE: fcutoff ≥ "), 0.01, true),
              QStringLiteral("VALID RANGE: fcutoff ≥  0.010"));
    EXPECT_EQ(formatNote(QStringLiteral("VALID RANGE: fₐ < "), 150.0, true),
              QStringLiteral("VALID RANGE: fₐ <  150.000"));
}

TEST(NoteFormat, WithoutFlagTheTextStandsAlone)
{
    EXPECT_EQ(formatNote(QStringLiteral("VALID RANGE: fsampling > 0"), 3.0, false),
              QStringLiteral("VALID RANGE: fsampling > 0"));
    EXPECT_EQ(formatNote(QString(), 0.0, false), QString());
}

TEST(NoteFormat, NumberIsNarrowedToSinglePrecisionFirst)
{
    // 0.0005 is not representable; as a float it is 0.000500000024, which
    // rounds up at three decimals where the double 0.00049999... would not.
    const double justBelowHalf = 0.0004999999999999999;
    EXPECT_EQ(formatNote(QStringLiteral("x "), justBelowHalf, true), QStringLiteral("x  0.001"));
}
