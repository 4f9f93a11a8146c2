// The filter inspector window: rows from the library's ".filt" files,
// refreshed by a save in the filter designer with no action in the
// inspector, sorted by header clicks on the cell texts, never selected.
#include <memory>

#include <QFile>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTableView>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "filter/inspector_filt_table_model.h"
#include "widgets/number_field.h"
#include "gui/designer_test_support.h"
#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

using namespace designer_test;

namespace {

class FilterInspectorWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        library = std::make_unique<DesignLibrary>(temp.root());
        ASSERT_TRUE(library->ensureFolders().isEmpty());
        designer = std::make_unique<GVRWinFilterDesign>(*library);
        inspector = std::make_unique<GVRWinFiltInspector>(*library);
        inspector->showGVRWinFiltInspector();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(inspector.get()));
    }

    void TearDown() override
    {
        designer.reset();
        inspector.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Designs with the form as given and saves under `name` through the save sheet.
    void designAndSave(const QString& name, int units, int type, const QString& fs, const QString& cutoff,
                       const QString& center = {}, int length = 25)
    {
        designer->showGVRWinFilterDesign();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(designer.get()));
        choose(designer->unitsPopUp(), units);
        choose(designer->filterTypePopUp(), type);
        type_(designer->thetaSamplingField(), fs);
        type_(designer->thetaCutoffField(), cutoff);
        type_(designer->thetaCenterField(), center);
        typeInto(designer->filterLengthStepper(), QString::number(length));
        QTest::mouseClick(designer->designFilterBut(), Qt::LeftButton);
        ASSERT_EQ(designer->theMagPhaseArray().size(), 4104u) << designer->noteField()->text().toStdString();
        designer->saveAsMenuItem();
        answerSaveSheet(name);
    }
    static void type_(QLineEdit* field, const QString& text) { type(field, text); }

    // Cell texts of one column, top to bottom.
    QStringList column(const QString& key) const
    {
        QStringList cells;
        QAbstractItemModel* model = inspector->table()->model();
        const int c = int(GVRInspectFilt::keys().indexOf(key));
        for (int r = 0; r < model->rowCount(); ++r)
            cells << model->index(r, c).data().toString();
        return cells;
    }

    void clickHeader(const QString& key)
    {
        QHeaderView* header = inspector->table()->horizontalHeader();
        const int c = int(GVRInspectFilt::keys().indexOf(key));
        const int x = header->sectionViewportPosition(c) + header->sectionSize(c) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    }

    QString cell(int row, const QString& key) const { return column(key).value(row); }

    TempLibrary temp;
    std::unique_ptr<DesignLibrary> library;
    std::unique_ptr<GVRWinFilterDesign> designer;
    std::unique_ptr<GVRWinFiltInspector> inspector;
};

TEST_F(FilterInspectorWindow, SavedHighPassInNormAppearsWithoutAnyAction)
{
    designAndSave("hp3", 0, 2, {}, "0.3");
    ASSERT_EQ(inspector->table()->model()->rowCount(), 1);
    EXPECT_EQ(cell(0, "filename"), "hp3");
    EXPECT_EQ(cell(0, "filter"), "High Pass");
    EXPECT_EQ(cell(0, "fcutoff"), "0.30000"); // the stored complement turned back
    EXPECT_EQ(cell(0, "fs"), "");
    EXPECT_EQ(cell(0, "fcenter"), "");
    EXPECT_EQ(cell(0, "db3high"), "");
    EXPECT_EQ(cell(0, "parm"), "");
    EXPECT_EQ(cell(0, "units"), "Norm");
    EXPECT_EQ(cell(0, "window"), "Rectangular");
    EXPECT_EQ(cell(0, "width"), "Double");
    EXPECT_EQ(cell(0, "length"), "25");
}

TEST_F(FilterInspectorWindow, BandPassInMegahertzShowsMegahertz)
{
    designAndSave("bp", 2, 1, "10", "1", "2.5", 51);
    ASSERT_EQ(inspector->table()->model()->rowCount(), 1);
    EXPECT_EQ(cell(0, "fs"), "10.00000");
    EXPECT_EQ(cell(0, "fcutoff"), "1.00000");
    EXPECT_EQ(cell(0, "fcenter"), "2.50000");
    EXPECT_EQ(cell(0, "length"), "51");
    // The 3 dB points straddle the centre, in MHz like the designer's results.
    const double low = cell(0, "db3low").toDouble();
    const double high = cell(0, "db3high").toDouble();
    EXPECT_GT(low, 1.0);
    EXPECT_LT(low, 2.5);
    EXPECT_GT(high, 2.5);
    EXPECT_LT(high, 4.0);
    EXPECT_NEAR(cell(0, "db3band").toDouble(), high - low, 2e-5);
}

TEST_F(FilterInspectorWindow, UnreadableFileShowsOnlyItsName)
{
    QFile junk(library->filterPath("junk"));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("bplist00 not really");
    junk.close();
    inspector->updateTableDisplay();
    ASSERT_EQ(inspector->table()->model()->rowCount(), 1);
    EXPECT_EQ(cell(0, "filename"), "junk");
    EXPECT_EQ(cell(0, "fcutoff"), "");
}

} // namespace
