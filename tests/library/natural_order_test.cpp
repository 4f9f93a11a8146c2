// Natural order of names and cell texts, on pairs whose plain text order is wrong.
#include "library/natural_order.h"

#include <gtest/gtest.h>

namespace {

TEST(NaturalOrder, PairsSortAsAPersonExpects)
{
    struct Case {
        const char* before;
        const char* after;
        bool cells; // compared as table cells rather than names
    };
    const Case cases[] = {
        {"lp9", "lp10", false}, {"alpha", "Beta", false},   {"lp025", "lp26", false},
        {"a", "a1", false},     {"File", "file", false},    {"8-bit", "16-bit", true},
        {"9.0", "10.0", true},  {"-2.5", "-1", true},       {"1e3", "2000", true},
        {"", "0", true},        {"Double", "Kaiser", true}, {"20-bit", "Double", true},
    };
    for (const Case& c : cases) {
        const QString a = QString::fromUtf8(c.before);
        const QString b = QString::fromUtf8(c.after);
        const auto compare = c.cells ? compareCellTexts : compareNaturally;
        EXPECT_LT(compare(a, b), 0) << c.before << " < " << c.after;
        EXPECT_GT(compare(b, a), 0) << c.after << " > " << c.before;
        EXPECT_EQ(compare(a, a), 0) << c.before;
    }
}

} // namespace
