// The signal inspector window: rows from the library's ".signal" files in
// volts and MHz, refreshed by a save in the signal designer with no action
// in the inspector, sorted by header clicks, never selected.
#include <memory>

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
    EXPECT_EQ(cell(0, "fs"), "300000");
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

} // namespace
