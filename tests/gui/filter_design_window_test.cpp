// The filter designer window driven through its controls: hidden fields,
// unit conversions, the length stepper, designing, and New/Open/Save/Save As
// through the sheets with a temporary library.
#include <memory>

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include "charts/view_filt_design.h"
#include "charts/view_results.h"
#include "filter/filter_design_window.h"
#include "filter/filter_keys.h"
#include "widgets/number_field.h"
#include "gui/designer_test_support.h"
#include "library/design_library.h"
#include "support/temp_library.h"

static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

using namespace designer_test;

namespace {

enum Units { Norm = 0, KHz = 1, MHz = 2 };

class FilterDesignWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        library = std::make_unique<DesignLibrary>(temp.root());
        ASSERT_TRUE(library->ensureFolders().isEmpty());
        window = std::make_unique<GVRWinFilterDesign>(*library);
        window->showGVRWinFilterDesign();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void TearDown() override
    {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // A 48 kHz low pass with a 6 kHz cutoff, typed in and designed.
    void designLowPassKHz()
    {
        choose(window->unitsPopUp(), KHz);
        type(window->thetaSamplingField(), "48000");
        type(window->thetaCutoffField(), "6000");
        QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    }

    void pressShortcut(const QKeySequence& sequence)
    {
        ASSERT_FALSE(sequence.isEmpty());
        // Window shortcuts need the window to be the active one.
        activate(window.get());
        QTest::keySequence(window.get(), sequence);
        QApplication::processEvents();
    }

    QString note() const { return window->noteField()->text(); }
    QString text(GVRNumberField* field) const { return field->text(); }
    QByteArray fileContents(const QString& name) const
    {
        QFile file(library->filterPath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    TempLibrary temp;
    std::unique_ptr<DesignLibrary> library;
    std::unique_ptr<GVRWinFilterDesign> window;
};

TEST_F(FilterDesignWindow, KiloToMegaConvertsFieldsAndDesignsAgain)
{
    designLowPassKHz();
    choose(window->unitsPopUp(), MHz);
    EXPECT_EQ(text(window->thetaSamplingField()), "48");
    EXPECT_EQ(text(window->thetaCutoffField()), "6");
    EXPECT_EQ(window->previousUnitsSelected(), MHz);
    // Designed again in the new units.
    EXPECT_EQ(window->filterParameterDictionary().value(KEYFP_UNITS).toInt(), MHz);
    EXPECT_TRUE(window->viewResult()->hasResults());

    choose(window->unitsPopUp(), KHz);
    EXPECT_EQ(text(window->thetaSamplingField()), "48000");
    EXPECT_EQ(text(window->thetaCutoffField()), "6000");
}

TEST_F(FilterDesignWindow, SaveThenNewThenOpenGivesTheSameDesignBack)
{
    choose(window->windowTypePopUp(), "Chebyshev");
    choose(window->bitWidthPopUp(), "12-bit");
    designLowPassKHz();
    type(window->betaUpsilonField(), "3.5");
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    ASSERT_TRUE(window->viewResult()->hasResults()) << note().toStdString();
    const auto savedCoefficients = window->filterDesignModel().integerCoefficients();
    const auto savedRows = window->viewResult()->rows();
    const auto savedArray = window->theMagPhaseArray();

    pressShortcut(QKeySequence::Save); // untitled: like Save As
    answerSaveSheet("lp48k");
    EXPECT_TRUE(QFileInfo::exists(library->filterPath("lp48k")));
    EXPECT_EQ(window->windowTitle(), "lp48k");
    EXPECT_EQ(window->filterFilename(), "lp48k");

    pressShortcut(QKeySequence::New);
    EXPECT_EQ(window->windowTitle(), "(Untitled)");
    EXPECT_FALSE(window->filterFilename());
    EXPECT_EQ(text(window->thetaSamplingField()), "");
    EXPECT_EQ(text(window->thetaCutoffField()), "");
    EXPECT_EQ(window->unitsPopUp()->currentIndex(), MHz);
    EXPECT_EQ(window->windowTypePopUp()->currentIndex(), 0);
    EXPECT_TRUE(window->theMagPhaseArray().empty());
    EXPECT_FALSE(window->viewResult()->hasResults());
    EXPECT_EQ(note(), "");

    pressShortcut(QKeySequence::Open);
    answerOpenSheet("lp48k.filt");
    EXPECT_EQ(window->windowTitle(), "lp48k");
    EXPECT_EQ(window->unitsPopUp()->currentIndex(), KHz);
    EXPECT_EQ(window->previousUnitsSelected(), KHz);
    EXPECT_EQ(window->windowTypePopUp()->currentText(), "Chebyshev");
    EXPECT_EQ(window->bitWidthPopUp()->currentText(), "12-bit");
    EXPECT_EQ(window->nameBetaUpsilon()->text(), "ϒ:");
    EXPECT_TRUE(window->betaUpsilonField()->isVisible());
    EXPECT_EQ(text(window->thetaSamplingField()), "48000");
    EXPECT_EQ(text(window->thetaCutoffField()), "6000");
    EXPECT_EQ(text(window->betaUpsilonField()), "3.5");
    EXPECT_EQ(window->filterLengthStepper()->value(), 25);
    // Designed afresh from the restored form: the same filter.
    EXPECT_EQ(window->filterDesignModel().integerCoefficients(), savedCoefficients);
    EXPECT_EQ(window->theMagPhaseArray(), savedArray);
    ASSERT_EQ(window->viewResult()->rows().size(), savedRows.size());
    for (int i = 0; i < savedRows.size(); ++i)
        EXPECT_EQ(window->viewResult()->rows().at(i).value, savedRows.at(i).value);
}

} // namespace
