// The project block diagram keeps its line labels clear of the blocks at any
// view width, and leaves the labels alone where they already fit.
#include "charts/block_diagram_layout.h"

#include <gtest/gtest.h>

TEST(BlockDiagramFit, LineLabelsStayBetweenBlocksAtEveryWidth)
{
    const auto width = [](const DiagramText& t) { return 9.0 * t.text.size() * t.scale; };
    for (const int index : {1, 2})
        for (const float w : {320.0f, 420.0f, 600.0f, 1200.0f}) {
            SCOPED_TRACE(testing::Message() << "diagram " << index << ", width " << w);
            const BlockDiagramLayout wide = blockDiagramLayout(index, 4000.0f, 200.0f);
            BlockDiagramLayout d = blockDiagramLayout(index, w, 200.0f);
            fitLabelsBetweenBlocks(d, w, width);
            QVector<QRectF> blocks{d.summingCircle};
            for (const DiagramBox& box : d.boxes)
                blocks.push_back(box.rect);
            for (const DiagramText& t : d.labels) {
                if (t.large)
                    continue;
                const QRectF label(t.at.x(), d.summingCircle.center().y() - 1.0, width(t), 2.0);
                EXPECT_GE(label.left(), 0.0) << t.text.toStdString();
                EXPECT_LE(label.right(), w) << t.text.toStdString();
                for (const QRectF& block : blocks)
                    EXPECT_FALSE(label.intersects(block)) << t.text.toStdString();
            }
            // A wide view needs no fitting: the labels keep their places.
            BlockDiagramLayout roomy = wide;
            fitLabelsBetweenBlocks(roomy, 4000.0f, width);
            for (int i = 0; i < roomy.labels.size(); ++i)
                EXPECT_EQ(roomy.labels[i].at, wide.labels[i].at);
        }
}
