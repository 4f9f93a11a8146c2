// The filter designer window driven through its controls over a temporary
// library: one flow through design, refusals, save, a broken file, New and
// reopen, checking title, note line, fields, charts and the saved file at
// every step; then the unit conversions and the fields each choice shows.
#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "charts/view_filt_design.h"
#include "charts/view_results.h"
#include "filter/filter_design_window.h"
#include "gui/designer_test_support.h"
#include "widgets/design_file_commands.h"
#include "widgets/number_field.h"

using namespace designer_test;

namespace {

enum Units { Norm = 0, KHz = 1, MHz = 2 };
const QString kUntitled = QStringLiteral("(Untitled) — Filter Designer");
const char* const kSymmetric = "Filter Coefficients: Positive Symmetry";
const char* const kNothingToSave = "There is no filter design to save: design a filter first.";

class FilterDesignFlow : public DesignerTest<GVRWinFilterDesign> {
protected:
    void design() { QTest::mouseClick(window->designFilterBut(), Qt::LeftButton); }
    void press(const QKeySequence& keys)
    {
        activate(window.get()); // window shortcuts need the window active
        QTest::keySequence(window.get(), keys);
    }
    // Sampling, cutoff and centre as the fields show them.
    QStringList fields() const
    {
        return {window->thetaSamplingField()->text(), window->thetaCutoffField()->text(),
                window->thetaCenterField()->text()};
    }
    bool designed() const
    {
        return window->viewResult()->hasResults() && !window->theMagPhaseArray().empty();
    }
    QByteArray bytes(const QString& name) const { return readBytes(library.filterPath(name)); }
    GVRFilter saved(const QString& name) const
    {
        return designer_test::saved(&readFilterFile, library.filterPath(name));
    }
};

TEST_F(FilterDesignFlow, TitleFieldsChartsAndSavedFileAgree)
{
    std::vector<std::int64_t> coefficients; // of the 48 kHz design the files hold
    std::vector<double> response;
    QByteArray before;
    auto holdsTheDesign = [&](const QString& name) {
        const GVRFilter f = saved(name);
        EXPECT_EQ(std::tuple(f.unitsType, f.dfThetaSamplingFreq, f.dfThetaCutoffFreqNormalized, f.windowType,
                             f.dfBetaUpsilon),
                  std::tuple(KHz, 48000.0, 0.25, 10, 3.5));
        EXPECT_EQ(f.integerCoefficients, coefficients);
    };
    auto cutoff = [&](const char* text) { type(window->thetaCutoffField(), text); };
    auto titled = [](const char* name) { return QString::fromUtf8(name) + " — Filter Designer"; };
    // clang-format off
    const std::vector<Step> steps = {
        {"design: Return in a field designs", [&] {
             choose(window->unitsPopUp(), KHz);
             choose(window->windowTypePopUp(), "Chebyshev");
             choose(window->bitWidthPopUp(), "12-bit");
             type(window->thetaSamplingField(), "48000");
             cutoff("6000");
             type(window->betaUpsilonField(), "3.5");
             QTest::keyClick(window->betaUpsilonField(), Qt::Key_Return); },
         kUntitled, kSymmetric, true, [&] {
             coefficients = window->filterDesignModel().integerCoefficients();
             response = window->theMagPhaseArray();
             EXPECT_EQ(response.size(), 4104u);
             EXPECT_TRUE(window->viewResult()->rows().first().value.contains("KHz")); }},
        {"Ctrl+S on an untitled design asks for a name", [&] { press(QKeySequence::Save); answerSaveSheet("lp48k"); },
         titled("lp48k"), nullptr, true, [&] { holdsTheDesign("lp48k"); }},
        {"a refused cutoff leaves the shown design", [&] { cutoff("30000"); design(); },
         titled("lp48k"), "VALID RANGE: fcutoff ≤  23760.000", true,
         [&] { EXPECT_EQ(window->theMagPhaseArray(), response); }},
        {"Save As then writes the design shown, not the one typed", [&] { window->saveAsMenuItem(); answerSaveSheet("refused"); },
         titled("refused"), nullptr, true, [&] { holdsTheDesign("refused"); }},
        {"a broken file leaves title, fields and design", [&] {
             writeFile(library.filterPath("broken"), "bplist00 not an archive");
             press(QKeySequence::Open);
             answerOpenSheet("broken.filt"); },
         titled("refused"), nullptr, true, [&] {
             EXPECT_TRUE(window->noteField()->text().contains("broken"));
             EXPECT_EQ(fields(), QStringList({"48000", "30000", ""})); }},
        {"an even length is refused in words, not changed into another",
         [&] { cutoff("6000"); type(window->filterLengthStepper(), "100"); design(); },
         titled("refused"), "VALID RANGE: filter length N odd, 25 ≤ N ≤ 255", true,
         [&] { EXPECT_EQ(window->filterLengthStepper()->text(), "100"); }},
        {"an empty field the design needs is named", [&] { type(window->filterLengthStepper(), "25"); cutoff(""); design(); },
         titled("refused"), "VALID RANGE: fcutoff is empty", true,
         [&] { EXPECT_TRUE(window->thetaCutoffField()->isFlagged()); }},
        {"no 3dB point: the results go", [&] { choose(window->unitsPopUp(), Norm); cutoff("0.99"); design(); },
         titled("refused"), "WARNING: Increase Filter Length (3dB Point Not Found)", false},
        {"Save then says why and keeps title and file", [&] { QTest::mouseClick(window->saveFilterBut(), Qt::LeftButton); },
         titled("refused"), kNothingToSave, false, [&] { holdsTheDesign("refused"); }},
        {"New empties form, charts and note", [&] { press(QKeySequence::New); }, kUntitled, "", false, [&] {
             EXPECT_EQ(fields(), QStringList({"", "", ""}));
             EXPECT_EQ(window->unitsPopUp()->currentIndex(), MHz);
             EXPECT_EQ(window->windowTypePopUp()->currentIndex(), 0);
             EXPECT_EQ(window->filterLengthStepper()->value(), 25); }},
        {"Save with nothing designed opens no sheet", [&] { QTest::mouseClick(window->saveFilterBut(), Qt::LeftButton); },
         kUntitled, kNothingToSave, false, [&] { EXPECT_FALSE(window->fileCommands()->saveSheet()->isVisible()); }},
        {"reopen: the same form and the same filter", [&] { press(QKeySequence::Open); answerOpenSheet("lp48k.filt"); },
         titled("lp48k"), kSymmetric, true, [&] {
             EXPECT_EQ(fields().mid(0, 2), QStringList({"48000", "6000"}));
             EXPECT_EQ(window->previousUnitsSelected(), KHz);
             EXPECT_EQ(window->bitWidthPopUp()->currentText(), "12-bit");
             EXPECT_EQ(window->nameBetaUpsilon()->text(), "ϒ:");
             EXPECT_EQ(window->betaUpsilonField()->text(), "3.5");
             EXPECT_EQ(window->filterDesignModel().integerCoefficients(), coefficients);
             EXPECT_EQ(window->theMagPhaseArray(), response); }},
        {"Save on a named design asks before overwriting; Cancel keeps the file", [&] {
             before = bytes("lp48k");
             window->saveMenuItem();
             answer("Cancel", "\"lp48k\" already exists. Do you want to overwrite its original contents?"); },
         titled("lp48k"), nullptr, true, [&] { EXPECT_EQ(bytes("lp48k"), before); }},
        {"Save As over another design asks to replace it", [&] {
             type(window->filterLengthStepper(), "51");
             design();
             window->saveAsMenuItem();
             answerSaveSheet("refused");
             answer("Replace", "\"refused\" already exists. Do you want to replace it?"); },
         titled("refused"), nullptr, true, [&] { EXPECT_EQ(saved("refused").dfFilterLengthN, 51.0); }},
    };
    // clang-format on
    runFlow(
        *window, window->noteField(), [&] { return designed(); }, steps);
}

// Typed frequencies follow the units; a change of units designs again.
TEST_F(FilterDesignFlow, UnitsConvertTheTypedFrequencies)
{
    const struct {
        const char* what;
        int type; // 0 low pass, 1 band pass
        int from, to;
        QStringList typed, shown; // sampling, cutoff, centre
        const char* note;
        bool designed;
    } cases[] = {
        // clang-format off
        {"kilo to mega", 0, KHz, MHz, {"48000", "6000", ""}, {"48", "6", ""}, kSymmetric, true},
        {"normalised, sampling kept hidden", 0, KHz, Norm, {"48", "6", ""}, {"48", "0.25", ""}, kSymmetric, true},
        {"band pass centre too", 1, KHz, Norm, {"100", "5", "20"}, {"100", "0.1", "0.4"}, nullptr, true},
        {"no sampling frequency: cutoff kept", 0, KHz, Norm, {"", "6", ""}, {"", "6", ""}, "VALID RANGE: fcutoff ≤  0.990", false},
        {"normalised to kilo needs a rate", 0, Norm, KHz, {"", "0.25", ""}, {"0", "0.25", ""}, "VALID RANGE: fsampling > 0", false},
        {"the same units again change nothing", 0, KHz, KHz, {"48000", "6000", ""}, {"48000", "6000", ""}, nullptr, false},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        window->fileCommands()->setModified(false); // no question before New
        window->newMenuItem();
        choose(window->filterTypePopUp(), c.type);
        choose(window->unitsPopUp(), c.from);
        type(window->thetaSamplingField(), c.typed[0]);
        type(window->thetaCutoffField(), c.typed[1]);
        type(window->thetaCenterField(), c.typed[2]);
        choose(window->unitsPopUp(), c.to);
        EXPECT_EQ(fields(), c.shown);
        EXPECT_EQ(window->noteField()->text(), c.note ? c.note : window->noteField()->text());
        EXPECT_EQ(designed(), c.designed);
        EXPECT_EQ(window->previousUnitsSelected(), c.to);
        // A unit change re-sends the chart: its caption names the new unit.
        EXPECT_EQ(window->viewFiltDesign()->freqUnitsString(), window->unitsPopUp()->currentText());
    }
}

// Each choice shows only the fields it needs, with the captions of its units.
TEST_F(FilterDesignFlow, ChoicesShowTheirFieldsAndTheLengthStepsOdd)
{
    const struct {
        QComboBox* popUp;
        const char* item;
        bool sampling, centre, parameter;
        const char* parameterName;
        const char* cutoffUnits;
    } cases[] = {
        // clang-format off
        {window->unitsPopUp(), "Norm", false, false, false, "β:", "Norm"},
        {window->filterTypePopUp(), "Band Pass", false, true, false, "β:", "Norm"},
        {window->windowTypePopUp(), "Kaiser", false, true, true, "β:", "Norm"},
        {window->windowTypePopUp(), "Chebyshev", false, true, true, "ϒ:", "Norm"},
        {window->filterTypePopUp(), "High Pass", false, false, true, "ϒ:", "Norm"},
        {window->unitsPopUp(), "KHz", true, false, true, "ϒ:", "KHz"},
        {window->windowTypePopUp(), "Hamming", true, false, false, "ϒ:", "KHz"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.item);
        choose(c.popUp, c.item);
        EXPECT_EQ(window->thetaSamplingField()->isVisible(), c.sampling);
        EXPECT_EQ(window->thetaCenterField()->isVisible(), c.centre);
        EXPECT_EQ(window->betaUpsilonField()->isVisible(), c.parameter);
        EXPECT_EQ(window->nameBetaUpsilon()->text(), c.parameterName);
        EXPECT_EQ(window->unitsCutoffFreq()->text(), c.cutoffUnits);
    }
    // 25 to 255 in odd steps, wrapping both ways; letters are not taken.
    QSpinBox* length = window->filterLengthStepper();
    length->setFocus();
    for (const auto& [key, value] :
         {std::pair{Qt::Key_Up, 27}, {Qt::Key_Down, 25}, {Qt::Key_Down, 255}, {Qt::Key_Up, 25}}) {
        QTest::keyClick(length, key);
        EXPECT_EQ(length->value(), value);
    }
    type(window->thetaSamplingField(), "abc,1");
    EXPECT_EQ(window->thetaSamplingField()->text(), "1");
    type(window->thetaSamplingField(), "1e999");
    EXPECT_FALSE(window->thetaSamplingField()->numberValue());
}

} // namespace
