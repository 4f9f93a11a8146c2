// Notes: a number follows two blanks with three decimals, after narrowing to
// single precision; without the flag the text stands alone.
#include <gtest/gtest.h>

#include "library/note_format.h"

TEST(NoteFormat, NumberFollowsTwoBlanksWithThreeDecimals)
{
    const struct {
        const char* text;
        double number;
        bool withNumber;
        const char* note;
    } cases[] = {
        // Messages that take a number end in a blank; the format adds another.
        {"VALID RANGE: fcutoff ≥ ", 0.01, true, "VALID RANGE: fcutoff ≥  0.010"},
        {"VALID RANGE: fₐ < ", 150.0, true, "VALID RANGE: fₐ <  150.000"},
        {"VALID RANGE: fsampling > 0", 3.0, false, "VALID RANGE: fsampling > 0"},
        {"", 0.0, false, ""},
        // As a float 0.0004999999999999999 is 0.000500000024, which rounds up.
        {"x ", 0.0004999999999999999, true, "x  0.001"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(formatNote(QString::fromUtf8(c.text), c.number, c.withNumber), QString::fromUtf8(c.note))
            << c.note;
}
