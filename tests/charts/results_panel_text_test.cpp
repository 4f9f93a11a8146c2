// Filter results panel: row texts and heights, and the panel's reaction to
// result sets, clearing, and type and unit changes.
#include "charts/results_panel_text.h"

#include <gtest/gtest.h>

#include "charts/view_results.h"

namespace {

QVariantMap sixResults(double low, double high, double bandwidth, double ripple)
{
    return {{QStringLiteral("KEYFDR_3DB_LOW"), low},
            {QStringLiteral("KEYFDR_3DB_HIGH"), high},
            {QStringLiteral("KEYFDR_3DB_BANDWIDTH"), bandwidth},
            {QStringLiteral("KEYFDR_PASSBAND_RIPPLE"), ripple},
            {QStringLiteral("KEYFDR_DYNAMIC_RNG"), 90.0},
            {QStringLiteral("KEYFDR_DYNAMIC_RNG_ERR"), 0.5}};
}

} // namespace

TEST(ResultsPanelText, BandPassHasFourRows)
{
    const FilterResultValues v{0.24531f, 0.75469f, 0.50938f, 0.0123f};
    const auto rows = resultsPanelRows(1, QStringLiteral("Norm"), v, 125.0f);
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0].caption, "3dB Point Low");
    EXPECT_EQ(rows[0].value, "0.245 Norm");
    EXPECT_EQ(rows[1].caption, "3dB Point High");
    EXPECT_EQ(rows[1].value, "0.755 Norm");
    EXPECT_EQ(rows[2].caption, "3dB Bandwidth");
    EXPECT_EQ(rows[2].value, "0.509 Norm");
    EXPECT_EQ(rows[3].caption, "Passband Ripple");
    EXPECT_EQ(rows[3].value, "0.012 dB");
}

TEST(ResultsPanelText, LowAndHighPassHaveThreeRows)
{
    const FilterResultValues v{4.8f, 0.0f, 4.8f, 0.25f};
    for (int type : {0, 2}) {
        const auto rows = resultsPanelRows(type, QStringLiteral("KHz"), v, 120.0f);
        ASSERT_EQ(rows.size(), 3);
        EXPECT_EQ(rows[0].caption, "3dB Point");
        EXPECT_EQ(rows[0].value, "4.800 KHz");
        EXPECT_EQ(rows[1].caption, "3dB Bandwidth");
        EXPECT_EQ(rows[2].value, "0.250 dB");
    }
}

TEST(ViewResults, TakesOnlySixEntryDictionaries)
{
    GVRViewResults panel;
    panel.resize(360, 125);
    EXPECT_FALSE(panel.hasResults());
    EXPECT_TRUE(panel.rows().isEmpty());

    QVariantMap five = sixResults(0.2, 0.3, 0.1, 0.01);
    five.remove(QStringLiteral("KEYFDR_DYNAMIC_RNG"));
    panel.displayFilterDesignResults(five);
    EXPECT_FALSE(panel.hasResults());

    panel.displayFilterDesignResults(sixResults(0.2, -1.0, 0.2, 0.01));
    EXPECT_TRUE(panel.hasResults());
    EXPECT_EQ(panel.rows()[0].value, "0.200 Norm");

    // A later malformed set keeps what is shown.
    QVariantMap seven = sixResults(0.7, 0.8, 0.1, 0.5);
    seven.insert(QStringLiteral("EXTRA"), 1.0);
    panel.displayFilterDesignResults(seven);
    EXPECT_EQ(panel.rows()[0].value, "0.200 Norm");
}
