// The project block diagram keeps its line labels clear of the blocks at any
// view width, and leaves them where they are when they already fit.
#include "charts/block_diagram_layout.h"

#include <gtest/gtest.h>

TEST(BlockDiagramFit, LineLabelsStayBetweenBlocksAtEveryWidth)
{
    const auto width = [](const DiagramText& t) { return 9.0 * t.text.size() * t.scale; };
    for (const int index : {1, 2})
        for (const float w : {320.0f, 420.0f, 600.0f, 4000.0f}) {
            SCOPED_TRACE(testing::Message() << "diagram " << index << ", width " << w);
            const BlockDiagramLayout laid = blockDiagramLayout(index, w, 200.0f);
            BlockDiagramLayout d = laid;
            fitLabelsBetweenBlocks(d, w, width);
            for (int i = 0; i < d.labels.size(); ++i) {
                const DiagramText& t = d.labels[i];
                const QRectF label(t.at.x(), d.summingCircle.center().y() - 1.0, width(t), 2.0);
                EXPECT_TRUE(t.large || (label.left() >= 0.0 && label.right() <= w)) << t.text.toStdString();
                for (const DiagramBox& box : d.boxes)
                    EXPECT_TRUE(t.large || !label.intersects(box.rect)) << t.text.toStdString();
                EXPECT_TRUE(t.large || !label.intersects(d.summingCircle)) << t.text.toStdString();
                EXPECT_TRUE(w < 4000.0f || t.at == laid.labels[i].at); // roomy: nothing moves
            }
        }
}
