// Formula table of the signal formula panel: the alignment of the three
// lines and the panel's index handling.
#include "charts/formula_table.h"

#include <gtest/gtest.h>

#include "charts/view_func_signal_design.h"

TEST(FormulaTable, EveryEntryHasThreeAlignedLines)
{
    for (int i = 0; i < kFormulaCount; ++i) {
        const QStringList lines = formulaLines(i);
        ASSERT_EQ(lines.size(), 3) << i;
        EXPECT_TRUE(lines[1].startsWith(QStringLiteral("x[n] = "))) << i;
        const bool sum = i == 2 || i == 5;
        const bool twoTerm = i == 1 || i == 4 || i == 7;
        EXPECT_EQ(lines[0].size(), sum ? 21 : 6) << i;
        EXPECT_EQ(lines[2].size(), sum ? 21 : 6) << i;
        EXPECT_EQ(lines[1].size(), twoTerm ? 50 : i == 6 ? 45 : 46) << i;
        if (twoTerm) {
            EXPECT_FALSE(lines[1].endsWith(QLatin1Char(' '))) << i;
        }
        if (!sum) {
            EXPECT_TRUE(lines[0].trimmed().isEmpty()) << i;
            EXPECT_TRUE(lines[2].trimmed().isEmpty()) << i;
        }
    }
}

TEST(FormulaTable, SumsPutTheLimitsAboveAndBelowTheSigma)
{
    for (int i : {2, 5}) {
        const QStringList lines = formulaLines(i);
        const qsizetype sigma = lines[1].indexOf(QChar(0x2211));
        ASSERT_GE(sigma, 0);
        EXPECT_EQ(lines[0], QString(15, QLatin1Char(' ')) + "M" + QString(5, QLatin1Char(' ')));
        EXPECT_EQ(lines[2], QString(15, QLatin1Char(' ')) + "m=1" + QString(3, QLatin1Char(' ')));
    }
    EXPECT_EQ(formulaLines(2)[1].trimmed(),
              QStringLiteral("x[n] = A \u2211 cos(2\u03c0 m f\u2090 nT + \u03a6) + AGN"));
    EXPECT_EQ(formulaLines(10)[1].trimmed(), QStringLiteral("x[n] = sinc\u00b2(\u03b2 \u03c0 nT) + AGN"));
    EXPECT_EQ(formulaLines(6)[1].trimmed(), QStringLiteral("x[n] = AGN = \u03bc + Rayleigh(\u03c3) cos()"));
    EXPECT_EQ(
        formulaLines(1)[1],
        QStringLiteral(
            "x[n] = A\u2081 cos(2\u03c0 f\u2090\u2081 nT) + A\u2082 cos(2\u03c0 f\u2090\u2082 nT) + AGN"));
}

TEST(ViewFuncSignalDesign, ShowsTheChosenFormula)
{
    GVRViewFuncSignalDesign panel;
    EXPECT_EQ(panel.functionIndex(), 0);
    EXPECT_EQ(panel.shownLines(), formulaLines(0));
    panel.newFunctionWithIndex(8);
    EXPECT_EQ(panel.shownLines(), formulaLines(8));
    // Out of range: nothing shown, nothing broken.
    panel.newFunctionWithIndex(11);
    EXPECT_TRUE(panel.shownLines().isEmpty());
    panel.newFunctionWithIndex(-1);
    EXPECT_TRUE(panel.shownLines().isEmpty());
}
