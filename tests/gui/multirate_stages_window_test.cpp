// The project window's Graph list in the Multirate model: the two stage items
// after input and output, their charts at L·fs, and the block marked on the
// diagram.
#include <QComboBox>
#include <QSpinBox>
#include <QTest>

#include <gtest/gtest.h>

#include "charts/chart_colors.h"
#include "charts/view_block_diagram.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"
#include "designer_test_support.h"
#include "project/project_window.h"

TEST(MultirateStagesWindow, GraphItemsShowTheStagesAndMarkTheirBlock)
{
    designer_test::SeededLibrary seeded;
    GVRWinProject window(seeded.library);
    window.showGVRWinProjectOne();
    QComboBox* graph = window.graphPopUp();
    EXPECT_EQ(graph->count(), 2); // Sum & Filter keeps its two items
    window.showGVRWinProjectTwo();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QStringList items = {"Input: x[n]", "Output: y[k]", "Upsampled: w[m]", "Filtered: p[m]"};
    ASSERT_EQ(graph->count(), items.size());
    for (int i = 0; i < items.size(); ++i)
        EXPECT_EQ(graph->itemText(i), items[i]);

    window.signalOnePopUp()->setCurrentIndex(window.signalOnePopUp()->findText("Cos35Fs300"));
    window.signalTwoPopUp()->setCurrentIndex(window.signalTwoPopUp()->findText("Cos10M3Fs300"));
    window.multirateLStepper()->setValue(3);
    window.multirateMStepper()->setValue(2);
    window.pressDesignBut();
    ASSERT_EQ(window.theTimeArray().size(), 32784u);

    const struct {
        int item;
        DiagramStage marked;
    } cases[] = {{2, DiagramStage::Upsampler}, {3, DiagramStage::Filter}, {1, DiagramStage::None}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.item);
        graph->setCurrentIndex(c.item);
        emit graph->activated(c.item);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.viewBlockDiagram()->highlightedStage(), c.marked);
        const std::vector<double> time = window.theTimeArray();
        const std::vector<double> freq = window.theFreqArray();
        if (c.marked == DiagramStage::None) {
            EXPECT_EQ(time.size(), 32784u);
            continue;
        }
        ASSERT_EQ(time.size(), GVRProjectModel::kStageTimeLength);
        ASSERT_EQ(freq.size(), GVRProjectModel::kStageFreqLength);
        EXPECT_DOUBLE_EQ(time[0], 900.0); // 300 KHz · 3
        EXPECT_GT(
            designer_test::countPixels(window.viewProjTime()->grab().toImage(), chartcolors::timeGraph()),
            50);
        EXPECT_GT(designer_test::countPixels(window.viewBlockDiagram()->grab().toImage(),
                                             chartcolors::stageHighlight()),
                  100);
    }
}
