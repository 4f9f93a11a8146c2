// The signal inspector window: rows from the library's ".signal" files in
// volts and MHz, refreshed by a save in the signal designer with no action
// in the inspector, sorted by header clicks, never selected.
#include <memory>

#include <QLabel>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTableView>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "widgets/number_field.h"
#include "gui/designer_test_support.h"
#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "signal/inspector_sig_table_model.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "support/temp_library.h"

static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

using namespace designer_test;

namespace {

class SignalInspectorWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        library = std::make_unique<DesignLibrary>(temp.root());
        ASSERT_TRUE(library->ensureFolders().isEmpty());
        designer = std::make_unique<GVRWinSignalDesign>(*library);
        inspector = std::make_unique<GVRWinSigInspector>(*library);
        inspector->showGVRWinSigInspector();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(inspector.get()));
        designer->showGVRWinSignalDesign();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(designer.get()));
    }

    void TearDown() override
    {
        designer.reset();
        inspector.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void stepTo(int function)
    {
        QSpinBox* stepper = designer->yFuncStepper();
        stepper->setFocus();
        for (int guard = 0; stepper->value() != function && guard < 11; ++guard)
            QTest::keyClick(stepper, Qt::Key_Up);
        ASSERT_EQ(stepper->value(), function);
    }

    void designAndSave(const QString& name, const QString& fs, const QStringList& parms)
    {
        type(designer->freqSampField(), fs);
        for (int n = 0; n < parms.size(); ++n)
            type(designer->parmField(n), parms.at(n));
        QTest::mouseClick(designer->designSignalBut(), Qt::LeftButton);
        ASSERT_EQ(designer->theTimeArray().size(), 16392u) << designer->noteField()->text().toStdString();
        designer->saveAsMenuItem();
        answerSaveSheet(name);
    }

    QStringList column(const QString& key) const
    {
        QStringList cells;
        QAbstractItemModel* model = inspector->table()->model();
        const int c = int(GVRInspectSig::keys().indexOf(key));
        for (int r = 0; r < model->rowCount(); ++r)
            cells << model->index(r, c).data().toString();
        return cells;
    }
    QString cell(int row, const QString& key) const { return column(key).value(row); }

    void clickHeader(const QString& key)
    {
        QHeaderView* header = inspector->table()->horizontalHeader();
        const int c = int(GVRInspectSig::keys().indexOf(key));
        const int x = header->sectionViewportPosition(c) + header->sectionSize(c) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    }

    TempLibrary temp;
    std::unique_ptr<DesignLibrary> library;
    std::unique_ptr<GVRWinSignalDesign> designer;
    std::unique_ptr<GVRWinSigInspector> inspector;
};

TEST_F(SignalInspectorWindow, ColumnsAreTitledBySymbol)
{
    EXPECT_EQ(inspector->objectName(), "GVRWinSigInspector");
    EXPECT_EQ(inspector->table()->model()->rowCount(), 0);
    QStringList titles;
    for (int c = 0; c < inspector->table()->model()->columnCount(); ++c)
        titles << inspector->table()->model()->headerData(c, Qt::Horizontal).toString();
    EXPECT_EQ(titles, QStringList({"Name", "Function", "fs", "A₁", "fₐ₁", "ϕ", "A₂", "fₐ₂", "M", "τ", "β",
                                   "σ", "μ"}));
}

TEST_F(SignalInspectorWindow, SavedKilohertzMillivoltDesignAppearsInVoltsAndMegahertz)
{
    choose(designer->freqUnitsPopUp(), 1);
    choose(designer->voltUnitsPopUp(), 1);
    designAndSave("cos35", "300000", {"500", "35000", "0", "0", "0"});
    ASSERT_EQ(inspector->table()->model()->rowCount(), 1);
    EXPECT_EQ(cell(0, "filename"), "cos35");
    EXPECT_EQ(cell(0, "function"), "Acos(fₐ,Φ)+AGN(σ,μ)");
    EXPECT_EQ(cell(0, "a1"), "0.5");
    EXPECT_EQ(cell(0, "fa1"), "35");
    EXPECT_EQ(cell(0, "fs"), "300");
    EXPECT_EQ(cell(0, "a2"), "");
    EXPECT_EQ(cell(0, "tau"), "");
}

TEST_F(SignalInspectorWindow, RectangleFillsOnlyItsCells)
{
    stepTo(8);
    designAndSave("rect", "300", {"2", "10", "0.5", "0.25"});
    ASSERT_EQ(inspector->table()->model()->rowCount(), 1);
    QStringList filled;
    for (const QString& key : GVRInspectSig::keys())
        if (key != "filename" && key != "function" && key != "fs" && !cell(0, key).isEmpty())
            filled << key;
    EXPECT_EQ(filled, QStringList({"a1", "tau", "sigma", "mu"}));
    EXPECT_EQ(cell(0, "tau"), "10");
}

TEST_F(SignalInspectorWindow, NumbersSortByValueAndClicksSelectNothing)
{
    designAndSave("one", "300", {"1", "9", "0", "0", "0"});
    designAndSave("two", "300", {"1", "10", "0", "0", "0"});
    designAndSave("three", "300", {"1", "100", "0", "0", "0"});
    stepTo(6); // noise: no fₐ
    designAndSave("noise", "300", {"0.1", "0"});
    ASSERT_EQ(inspector->table()->model()->rowCount(), 4);

    clickHeader("fa1");
    EXPECT_EQ(column("filename"), QStringList({"noise", "one", "two", "three"}));
    clickHeader("fa1");
    EXPECT_EQ(column("filename"), QStringList({"three", "two", "one", "noise"}));
    clickHeader("filename");
    EXPECT_EQ(column("filename"), QStringList({"noise", "one", "three", "two"}));

    QTableView* table = inspector->table();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(2, 3)).center());
    EXPECT_FALSE(table->selectionModel()->hasSelection());
}

TEST_F(SignalInspectorWindow, CellTextOfNumbersAndEmptyCells)
{
    EXPECT_EQ(GVRInspectorSigTableModel::cellText(QVariant()), "");
    EXPECT_EQ(GVRInspectorSigTableModel::cellText(0.1 + 0.2), "0.3");
    EXPECT_EQ(GVRInspectorSigTableModel::cellText(300000.0), "300000");
    EXPECT_EQ(GVRInspectorSigTableModel::cellText(QStringLiteral("x")), "x");
}

TEST_F(SignalInspectorWindow, SampleLibraryScreenshot)
{
    QTemporaryDir samples;
    ASSERT_TRUE(makeSampleDesigns(samples.path()).isEmpty());
    ASSERT_TRUE(prepareLibrary(*library, samples.path()).isEmpty());
    // As at launch: the library is ready before the window is made.
    inspector = std::make_unique<GVRWinSigInspector>(*library);
    inspector->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(inspector.get()));
    EXPECT_EQ(inspector->table()->model()->rowCount(), 5);
    EXPECT_GE(inspector->width(), inspector->table()->horizontalHeader()->length());
    saveScreenshot(inspector.get(), "signal_inspector_window.png");
}

} // namespace
