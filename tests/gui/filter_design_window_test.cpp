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
#include "widgets/design_file_commands.h"
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

TEST_F(FilterDesignWindow, StartsWithDefaultListsAndOnlyTheFieldsTheyNeed)
{
    EXPECT_EQ(window->objectName(), "GVRWinFilterDesign");
    EXPECT_EQ(shownName(*window), "(Untitled)");
    EXPECT_EQ(window->unitsPopUp()->currentText(), "MHz");
    EXPECT_EQ(window->filterTypePopUp()->currentText(), "Low Pass");
    EXPECT_EQ(window->bitWidthPopUp()->count(), 14);
    EXPECT_EQ(window->bitWidthPopUp()->itemText(13), "8-bit");
    EXPECT_EQ(window->windowTypePopUp()->count(), 11);
    EXPECT_EQ(window->windowTypePopUp()->itemText(6), "Nutall");
    EXPECT_EQ(window->chartTypePopUp()->currentText(), "Magnitude");
    EXPECT_EQ(window->filterLengthStepper()->value(), 25);
    EXPECT_EQ(window->menuWidget(), nullptr); // the shell adds the shared menus

    EXPECT_TRUE(window->thetaSamplingField()->isVisible());
    EXPECT_EQ(window->unitsSampFreq()->text(), "MHz");
    EXPECT_EQ(window->unitsCutoffFreq()->text(), "MHz");
    EXPECT_FALSE(window->thetaCenterField()->isVisible());
    EXPECT_FALSE(window->nameThetaCenter()->isVisible());
    EXPECT_FALSE(window->betaUpsilonField()->isVisible());

    EXPECT_EQ(window->unitsPopUp()->toolTip(),
              "Range of Normalized is 0:1 where unity represents one-half the Sampling Frequency");
    EXPECT_EQ(window->filterLengthStepper()->toolTip(),
              "Length of Filter (25 to 255 taps in odd increments)");
    EXPECT_EQ(window->thetaCenterField()->toolTip(), "Input the Center Frequency for the Bandpass Filter");
    EXPECT_TRUE(window->filterTypePopUp()->toolTip().isEmpty());
}

TEST_F(FilterDesignWindow, UnitsTypeAndWindowShowAndHideTheirFields)
{
    choose(window->unitsPopUp(), Norm);
    EXPECT_FALSE(window->thetaSamplingField()->isVisible());
    EXPECT_FALSE(window->nameThetaSampling()->isVisible());
    EXPECT_FALSE(window->unitsSampFreq()->isVisible());
    EXPECT_EQ(window->unitsCutoffFreq()->text(), "Norm");
    EXPECT_EQ(window->unitsSampFreq()->text(), "    ");

    choose(window->filterTypePopUp(), "Band Pass");
    EXPECT_TRUE(window->thetaCenterField()->isVisible());
    EXPECT_TRUE(window->nameThetaCenter()->isVisible());
    EXPECT_EQ(window->unitsCenterFreq()->text(), "Norm");
    choose(window->filterTypePopUp(), "High Pass");
    EXPECT_FALSE(window->thetaCenterField()->isVisible());

    choose(window->windowTypePopUp(), "Kaiser");
    EXPECT_TRUE(window->betaUpsilonField()->isVisible());
    EXPECT_EQ(window->nameBetaUpsilon()->text(), "β:");
    choose(window->windowTypePopUp(), "Chebyshev");
    EXPECT_TRUE(window->betaUpsilonField()->isVisible());
    EXPECT_EQ(window->nameBetaUpsilon()->text(), "ϒ:");
    for (int w = 0; w < 9; ++w) {
        choose(window->windowTypePopUp(), w);
        EXPECT_FALSE(window->betaUpsilonField()->isVisible()) << w;
        EXPECT_FALSE(window->nameBetaUpsilon()->isVisible()) << w;
    }

    choose(window->unitsPopUp(), KHz);
    EXPECT_TRUE(window->thetaSamplingField()->isVisible());
    EXPECT_EQ(window->unitsSampFreq()->text(), "KHz");
}

TEST_F(FilterDesignWindow, DesignFillsResultsPanelAndChart)
{
    const QImage emptyChart = snapshot(window->viewFiltDesign());
    EXPECT_FALSE(window->viewResult()->hasResults());

    designLowPassKHz();

    EXPECT_TRUE(window->viewResult()->hasResults());
    EXPECT_EQ(window->theMagPhaseArray().size(), 4104u);
    const QVariantMap& p = window->filterParameterDictionary();
    EXPECT_EQ(p.size(), 9);
    EXPECT_EQ(p.value(KEYFP_UNITS).toInt(), KHz);
    EXPECT_DOUBLE_EQ(p.value(KEYFP_SAMPLING_FREQ).toDouble(), 48000.0);
    EXPECT_DOUBLE_EQ(p.value(KEYFP_CUTOFF_FREQ).toDouble(), 6000.0);
    EXPECT_DOUBLE_EQ(p.value(KEYFP_FILTER_LENGTH).toDouble(), 25.0);
    EXPECT_DOUBLE_EQ(window->filterDesignModel().thetaCutoffFreqNormalized(), 0.25);
    // A low pass panel: rows with values in KHz.
    const auto rows = window->viewResult()->rows();
    ASSERT_FALSE(rows.isEmpty());
    bool kiloHertz = false;
    for (const auto& row : rows)
        kiloHertz = kiloHertz || row.caption.contains("KHz") || row.value.contains("KHz");
    EXPECT_TRUE(kiloHertz);
    EXPECT_NE(snapshot(window->viewFiltDesign()), emptyChart);

    // The phase response is another picture of the same design.
    const QImage magnitude = snapshot(window->viewFiltDesign());
    choose(window->chartTypePopUp(), "Phase");
    EXPECT_EQ(window->viewFiltDesign()->chartType(), 1);
    EXPECT_EQ(window->viewFiltDesign()->freqUnitsString(), "KHz");
    EXPECT_NE(snapshot(window->viewFiltDesign()), magnitude);
    choose(window->chartTypePopUp(), "Magnitude");

    window->resize(1080, 700);
    saveScreenshot(window.get(), "filter_design_window.png");
}

TEST_F(FilterDesignWindow, BandPassKaiserDesignShowsItsFourResultRows)
{
    choose(window->unitsPopUp(), MHz);
    choose(window->filterTypePopUp(), "Band Pass");
    choose(window->windowTypePopUp(), "Kaiser");
    type(window->thetaSamplingField(), "50");
    type(window->thetaCutoffField(), "3");
    type(window->thetaCenterField(), "15");
    type(window->betaUpsilonField(), "4");
    typeInto(window->filterLengthStepper(), "101");
    QTest::keyClick(window->betaUpsilonField(), Qt::Key_Return); // Return designs too
    EXPECT_TRUE(window->viewResult()->hasResults()) << note().toStdString();
    EXPECT_DOUBLE_EQ(window->filterParameterDictionary().value(KEYFP_FILTER_LENGTH).toDouble(), 101.0);
    EXPECT_EQ(window->viewResult()->rows().size(), 4);
    saveScreenshot(window.get(), "filter_design_window_bandpass.png");
}

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

TEST_F(FilterDesignWindow, NormalisingAndBackNeedsASamplingFrequency)
{
    choose(window->unitsPopUp(), KHz);
    type(window->thetaSamplingField(), "48");
    type(window->thetaCutoffField(), "6");
    choose(window->unitsPopUp(), Norm);
    EXPECT_EQ(text(window->thetaCutoffField()), "0.25");
    EXPECT_EQ(text(window->thetaSamplingField()), "48"); // kept, hidden
    EXPECT_TRUE(window->viewResult()->hasResults());

    choose(window->unitsPopUp(), KHz);
    EXPECT_EQ(text(window->thetaSamplingField()), "0");
    EXPECT_EQ(text(window->thetaCutoffField()), "0.25");
    EXPECT_EQ(note(), "VALID RANGE: fsampling > 0");
    EXPECT_FALSE(window->viewResult()->hasResults());
}

TEST_F(FilterDesignWindow, NormalisingWithoutASamplingFrequencyKeepsTheCutoff)
{
    choose(window->unitsPopUp(), KHz);
    type(window->thetaCutoffField(), "6");
    choose(window->unitsPopUp(), Norm);
    EXPECT_EQ(text(window->thetaCutoffField()), "6");
    EXPECT_EQ(note(), "VALID RANGE: fcutoff ≤  0.990") << note().toStdString();
}

TEST_F(FilterDesignWindow, BandPassCentreFollowsTheUnits)
{
    choose(window->unitsPopUp(), KHz);
    choose(window->filterTypePopUp(), "Band Pass");
    type(window->thetaSamplingField(), "100");
    type(window->thetaCutoffField(), "5");
    type(window->thetaCenterField(), "20");
    choose(window->unitsPopUp(), Norm);
    EXPECT_EQ(text(window->thetaCutoffField()), "0.1");
    EXPECT_EQ(text(window->thetaCenterField()), "0.4");
}

TEST_F(FilterDesignWindow, ChoosingTheSameUnitsChangesNothing)
{
    choose(window->unitsPopUp(), KHz);
    type(window->thetaSamplingField(), "48000");
    type(window->thetaCutoffField(), "6000");
    choose(window->unitsPopUp(), KHz);
    EXPECT_EQ(text(window->thetaSamplingField()), "48000");
    EXPECT_FALSE(window->viewResult()->hasResults()); // not designed either
}

TEST_F(FilterDesignWindow, LengthStepperStepsOddAndWraps)
{
    QSpinBox* stepper = window->filterLengthStepper();
    stepper->setFocus();
    QTest::keyClick(stepper, Qt::Key_Up);
    EXPECT_EQ(stepper->value(), 27);
    QTest::keyClick(stepper, Qt::Key_Down);
    QTest::keyClick(stepper, Qt::Key_Down);
    EXPECT_EQ(stepper->value(), 255); // 25 wraps to 255
    QTest::keyClick(stepper, Qt::Key_Up);
    EXPECT_EQ(stepper->value(), 25); // 255 wraps to 25

    // An even length typed is refused in words, not changed into another; letters are refused.
    typeInto(stepper, "100");
    QTest::keyClicks(stepper, "x");
    EXPECT_EQ(stepper->text(), "100");
    choose(window->unitsPopUp(), KHz);
    type(window->thetaSamplingField(), "48000");
    type(window->thetaCutoffField(), "6000");
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    EXPECT_DOUBLE_EQ(window->filterParameterDictionary().value(KEYFP_FILTER_LENGTH).toDouble(), 100.0);
    EXPECT_EQ(window->noteField()->text(), "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255");
    EXPECT_FALSE(window->viewResult()->hasResults());
}

TEST_F(FilterDesignWindow, FieldsTakeOnlyNumbersAndAnEmptyOneDesignsNothing)
{
    type(window->thetaSamplingField(), "abc,1");
    EXPECT_EQ(text(window->thetaSamplingField()), "1");
    type(window->thetaSamplingField(), "nan");
    EXPECT_EQ(text(window->thetaSamplingField()), "");
    type(window->thetaSamplingField(), "1e999"); // overflows: not a number
    EXPECT_FALSE(window->thetaSamplingField()->numberValue());
    type(window->thetaCutoffField(), "1");
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    EXPECT_LT(window->filterParameterDictionary().size(), 9);
    EXPECT_FALSE(window->viewResult()->hasResults());
    EXPECT_TRUE(window->thetaSamplingField()->isFlagged());

    // The cutoff is always needed; hidden unused fields count as 0.
    type(window->thetaSamplingField(), "10");
    type(window->thetaCutoffField(), "");
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    EXPECT_FALSE(window->viewResult()->hasResults());
    EXPECT_TRUE(window->thetaCutoffField()->isFlagged());
    type(window->thetaCutoffField(), "2.5e0");
    EXPECT_FALSE(window->thetaCutoffField()->isFlagged());
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    EXPECT_TRUE(window->viewResult()->hasResults()) << note().toStdString();
    EXPECT_DOUBLE_EQ(window->filterParameterDictionary().value(KEYFP_CENTER_FREQ).toDouble(), 0.0);
}

TEST_F(FilterDesignWindow, NoteShowsTheModelsMessagesWithThreeDecimals)
{
    choose(window->unitsPopUp(), Norm);
    type(window->thetaCutoffField(), "0.001");
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    EXPECT_EQ(note(), "VALID RANGE: fcutoff ≥  0.010");
    window->displayNoteField("plain", 2.5, false);
    EXPECT_EQ(note(), "plain");
    window->displayNoteField("value", 2.0 / 3.0, true);
    EXPECT_EQ(note(), "value 0.667");
    EXPECT_TRUE(window->noteField()->wordWrap());
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
    EXPECT_EQ(shownName(*window), "lp48k");
    EXPECT_EQ(window->filterFilename(), "lp48k");

    pressShortcut(QKeySequence::New);
    EXPECT_EQ(shownName(*window), "(Untitled)");
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
    EXPECT_EQ(shownName(*window), "lp48k");
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

TEST_F(FilterDesignWindow, ReplaceAndOverwriteAskFirst)
{
    designLowPassKHz();
    pressShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)); // Save As
    answerSaveSheet("twice");
    const QByteArray first = fileContents("twice");
    ASSERT_FALSE(first.isEmpty());

    // A different design under the same name: Cancel keeps the file.
    typeInto(window->filterLengthStepper(), "51");
    QTest::mouseClick(window->designFilterBut(), Qt::LeftButton);
    window->saveAsMenuItem();
    answerSaveSheet("twice");
    QMessageBox* replace = topModal<QMessageBox>();
    ASSERT_NE(replace, nullptr);
    EXPECT_EQ(replace->text(), "\"twice\" already exists. Do you want to replace it?");
    EXPECT_EQ(replace->informativeText(), "A Filter file with the same name already exists. Replacing it "
                                          "will delete the original Filter design.");
    clickButton(replace, "Cancel");
    EXPECT_EQ(fileContents("twice"), first);

    // Save on the named design asks to overwrite; Replace through Save As writes.
    window->saveMenuItem();
    QMessageBox* overwrite = topModal<QMessageBox>();
    ASSERT_NE(overwrite, nullptr);
    EXPECT_EQ(overwrite->text(), "\"twice\" already exists. Do you want to overwrite its original contents?");
    clickButton(overwrite, "Cancel");
    EXPECT_EQ(fileContents("twice"), first);
    EXPECT_EQ(window->filterFilename(), "twice");

    window->saveAsMenuItem();
    answerSaveSheet("twice");
    clickButton(topModal<QMessageBox>(), "Replace");
    EXPECT_NE(fileContents("twice"), first);
    EXPECT_EQ(shownName(*window), "twice");

    // The saved file holds the 51-tap design.
    pressShortcut(QKeySequence::New);
    window->openMenuItem();
    answerOpenSheet("twice.filt");
    EXPECT_EQ(window->filterLengthStepper()->value(), 51);
}

TEST_F(FilterDesignWindow, SaveButtonAndActionsReachTheSameCommands)
{
    EXPECT_EQ(window->fileActions().size(), 4);
    for (QAction* action : window->fileActions()) {
        EXPECT_EQ(action->shortcutContext(), Qt::WindowShortcut);
        EXPECT_TRUE(window->actions().contains(action));
    }
    // Nothing designed yet: the note line says so and no sheet opens.
    QTest::mouseClick(window->saveFilterBut(), Qt::LeftButton);
    EXPECT_FALSE(window->fileCommands()->saveSheet() && window->fileCommands()->saveSheet()->isVisible());
    EXPECT_EQ(window->noteField()->text(), "There is no filter design to save: design a filter first.");
    EXPECT_EQ(shownName(*window), "(Untitled)");
}

} // namespace
