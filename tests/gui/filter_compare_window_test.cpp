// Compare… in the filter designer: the window-modal list of saved filters,
// naturally sorted, three choices at most, the overlay with its legend names
// (normalised when the units differ), clearing, and an unreadable design.
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include "charts/compare_overlay.h"
#include "charts/view_filt_design.h"
#include "designer_test_support.h"
#include "filter/filter_design_window.h"

using designer_test::topModal;

TEST(FilterCompareWindow, ChooseUpToThreeOverlayThenClear)
{
    designer_test::SeededLibrary seeded;
    GVRWinFilterDesign window(seeded.library);
    window.showGVRWinFilterDesign();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.openMenuItem();
    designer_test::answerOpenSheet("lpNormfcp333.filt"); // a Norm design, designed on opening
    ASSERT_FALSE(window.theMagPhaseArray().empty());

    QTest::mouseClick(window.compareButton(), Qt::LeftButton);
    auto* dialog = topModal<QDialog>();
    ASSERT_NE(dialog, nullptr);
    auto* list = dialog->findChild<QListWidget*>("compareList");
    ASSERT_NE(list, nullptr);
    QStringList shown;
    for (int i = 0; i < list->count(); ++i)
        shown << list->item(i)->text();
    EXPECT_EQ(shown.size(), seeded.library.designNames(DesignLibrary::Folder::Filter).size());
    EXPECT_LT(shown.indexOf("lp20fc2cheby4"), shown.indexOf("lp300fc25")); // 20 before 300
    for (const char* name : {"lp300fc25", "lpNormfcp333", "bpNormFcp5Fcutp025", "hp20fc5cheby3p5"})
        list->setCurrentItem(list->findItems(name, Qt::MatchExactly).value(0), QItemSelectionModel::Select);
    EXPECT_EQ(list->selectedItems().size(), 3); // the fourth was taken back
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    QCoreApplication::processEvents();

    const std::vector<ComparedCurve>& curves = window.viewFiltDesign()->comparison();
    ASSERT_EQ(curves.size(), 3u);
    EXPECT_EQ(curves[0].name, "bpNormFcp5Fcutp025"); // list order; Norm as the design
    EXPECT_EQ(curves[2].name, "lpNormfcp333");
    EXPECT_EQ(curves[1].name, "lp300fc25 (normalised)"); // KHz over a Norm axis
    EXPECT_DOUBLE_EQ(curves[1].xs.back(), 2047.0 / 2048.0);
    const std::vector<double> own = window.theMagPhaseArray();
    EXPECT_EQ(curves[2].dB, std::vector<double>(own.begin() + 8, own.begin() + 8 + 2048));
    const ChartScene scene = window.viewFiltDesign()->currentScene(QSizeF(800, 300));
    EXPECT_EQ(scene.traces.size(), 3);

    QTest::mouseClick(window.clearComparisonButton(), Qt::LeftButton);
    EXPECT_TRUE(window.viewFiltDesign()->comparison().empty());
    EXPECT_FALSE(window.clearComparisonButton()->isEnabled());

    QFile broken(seeded.library.filterPath("broken"));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a keyed archive");
    broken.close();
    EXPECT_TRUE(window.setComparedDesigns({"lp300fc25"}));
    EXPECT_FALSE(window.setComparedDesigns({"broken"}));
    auto* alert = topModal<QMessageBox>();
    ASSERT_NE(alert, nullptr);
    EXPECT_TRUE(alert->text().contains("broken"));
    alert->close();
    EXPECT_EQ(window.viewFiltDesign()->comparison().size(), 1u); // the overlay stays
}
