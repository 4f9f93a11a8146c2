// Block diagram geometry for both models.
#include "charts/block_diagram_layout.h"

#include <gtest/gtest.h>

#include "charts/chart_colors.h"

namespace {

QStringList texts(const QVector<DiagramText>& items)
{
    QStringList out;
    for (const DiagramText& t : items)
        out << t.text;
    return out;
}

} // namespace

TEST(BlockDiagramLayout, SumAndFilterAt600By200)
{
    const BlockDiagramLayout d = blockDiagramLayout(1, 600.0f, 200.0f);
    EXPECT_EQ(d.title.text, "Sum & Filter Model");
    EXPECT_EQ(d.title.at, QPointF(225.0, 170.0));
    EXPECT_TRUE(d.title.large);
    EXPECT_EQ(d.summingCircle.center(), QPointF(200.0, 100.0));
    EXPECT_EQ(d.summingCircle.width(), 40.0);
    ASSERT_EQ(d.boxes.size(), 1);
    EXPECT_EQ(d.boxes[0].rect, QRectF(360.0, 50.0, 80.0, 100.0));
    EXPECT_EQ(d.boxes[0].fill, chartcolors::filter());
    ASSERT_EQ(d.lines.size(), 4);
    EXPECT_EQ(d.lines[0], QPolygonF({QPointF(0, 150), QPointF(200, 150), QPointF(200, 120)}));
    EXPECT_EQ(d.lines[3], QPolygonF({QPointF(440, 100), QPointF(600, 100)}));
    EXPECT_EQ(texts(d.labels), QStringList({"x[n]", "fs", QStringLiteral("\u2211"), "H[n]", "y[n]", "fs"}));
    EXPECT_EQ(d.labels[3].at, QPointF(378.0, 87.5));
    EXPECT_EQ(d.labels[4].at, QPointF(555.0, 100.0));
}

TEST(BlockDiagramLayout, MultirateForAnyOtherIndex)
{
    for (int index : {0, 2, 7, -1}) {
        const BlockDiagramLayout d = blockDiagramLayout(index, 1000.0f, 200.0f);
        EXPECT_EQ(d.title.text, "Multirate Model");
        EXPECT_EQ(d.title.at, QPointF(400.0, 170.0));
        EXPECT_EQ(d.summingCircle.center(), QPointF(200.0, 100.0));
        ASSERT_EQ(d.boxes.size(), 3);
        // Fill order: filter, upsampler, downsampler.
        EXPECT_EQ(d.boxes[0].rect, QRectF(560.0, 50.0, 80.0, 100.0));
        EXPECT_EQ(d.boxes[0].fill, chartcolors::filter());
        EXPECT_EQ(d.boxes[1].rect, QRectF(375.0, 50.0, 50.0, 100.0));
        EXPECT_EQ(d.boxes[1].fill, chartcolors::multi());
        EXPECT_EQ(d.boxes[2].rect, QRectF(775.0, 50.0, 50.0, 100.0));
        EXPECT_EQ(d.lines.size(), 6);
        EXPECT_EQ(texts(d.labels),
                  QStringList({"x[n]", "fs", QStringLiteral("\u2211"), QStringLiteral("\u2191L"), "w[m]",
                               "Lfs", "H[m]", "p[m]", "Lfs", QStringLiteral("\u2193M"), "y[k]", "Lfs/M"}));
        EXPECT_NEAR(d.labels[9].at.x(), 800.0 - 50.0 / 3.0, 1e-4);
        EXPECT_EQ(d.labels[11].at, QPointF(945.0, 80.0));
    }
}

TEST(BlockDiagramLayout, BothModelsShowTheTwoInputs)
{
    for (int index : {1, 2}) {
        const BlockDiagramLayout d = blockDiagramLayout(index, 600.0f, 200.0f);
        EXPECT_EQ(texts(d.inputs),
                  QStringList({QStringLiteral("x\u2081[n]"), "fs", QStringLiteral("x\u2082[n]"), "fs"}));
        EXPECT_EQ(d.inputs[0].at, QPointF(15.0, 150.0));
        EXPECT_EQ(d.inputs[3].at, QPointF(25.0, 30.0));
    }
}
