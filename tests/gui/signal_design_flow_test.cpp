// The signal designer window driven through its controls over a temporary
// library: one flow through design, a refusal, save, a broken file, New and
// reopen, checking title, note line, fields, charts and the saved file at
// every step; then the captions by function, the unit rescaling and the
// steppers.
#include <gtest/gtest.h>

#include "archive/signal_archive.h"
#include "charts/view_func_signal_design.h"
#include "charts/view_time_signal_design.h"
#include "gui/designer_test_support.h"
#include "widgets/design_file_commands.h"
#include "signal/signal_design_window.h"
#include "widgets/number_field.h"

using namespace designer_test;

namespace {

enum Units { Mega = 0, Kilo = 1 };
const QString kUntitled = QStringLiteral("(Untitled) — Signal Designer");
const char* const kRateNotice = "OPTIMAL RATE: f samp ≥ 10 fₐ";

class SignalDesignFlow : public DesignerTest<GVRWinSignalDesign> {
protected:
    // Steps the function stepper up from where it is to `function`.
    void stepTo(int function)
    {
        QSpinBox* stepper = window->yFuncStepper();
        stepper->setFocus();
        for (int guard = 0; stepper->value() != function && guard < 11; ++guard)
            QTest::keyClick(stepper, Qt::Key_Up);
        ASSERT_EQ(stepper->value(), function);
    }
    // Types the sampling frequency, then the parameters from the first.
    void typeAll(const QStringList& values)
    {
        type(window->freqSampField(), values.first());
        for (int n = 1; n < values.size(); ++n)
            type(window->parmField(n - 1), values.at(n));
    }
    // The sampling frequency and the six parameters as shown.
    QStringList fields() const
    {
        QStringList texts{window->freqSampField()->text()};
        for (int slot = 0; slot < 6; ++slot)
            texts << window->parmField(slot)->text();
        return texts;
    }
    QStringList labels(QLabel* (GVRWinSignalDesign::*label)(int) const) const
    {
        QStringList texts;
        for (int slot = 0; slot < 6; ++slot)
            texts << (window.get()->*label)(slot)->text();
        return texts;
    }
    bool designed() const { return !window->theTimeArray().empty() && !window->theFreqArray().empty(); }
    GVRSignal saved(const QString& name) const
    {
        return designer_test::saved(&readSignalFile, library.signalPath(name));
    }
};

TEST_F(SignalDesignFlow, TitleFieldsChartsAndSavedFileAgree)
{
    std::vector<double> samples; // of the 35 kHz sine the files hold
    auto holdsTheDesign = [&](const QString& name) {
        const GVRSignal s = saved(name);
        EXPECT_EQ(std::tuple(s.freqUnits, s.voltUnits, s.samplingFreq, s.yStepIndex, s.parm1, s.parm2),
                  std::tuple(Kilo, 1, 300000.0, 3.0, 500.0, 35000.0));
        EXPECT_EQ(s.sampledSignalArray, std::vector<double>(samples.begin() + 8, samples.end()));
    };
    auto saveAs = [&](const char* name) {
        window->saveAsMenuItem();
        answerSaveSheet(name);
    };
    auto open = [&](const char* file) {
        window->openMenuItem();
        answerOpenSheet(file);
    };
    auto titled = [](const char* name) { return QString::fromUtf8(name) + " — Signal Designer"; };
    // clang-format off
    const std::vector<Step> steps = {
        {"design a 35 kHz sine in millivolts", [&] {
             stepTo(3);
             choose(window->freqUnitsPopUp(), Kilo);
             choose(window->voltUnitsPopUp(), "mV");
             typeAll({"300000", "500", "35000", "0.25", "0", "0"});
             QTest::mouseClick(window->designSignalBut(), Qt::LeftButton); },
         kUntitled, kRateNotice, true, [&] {
             samples = window->theTimeArray();
             EXPECT_EQ(samples.size(), 16392u);
             EXPECT_EQ(window->theFreqArray().size(), 8200u); }},
        {"Save As names the design", [&] { saveAs("sine35k"); }, titled("sine35k"), kRateNotice, true,
         [&] { holdsTheDesign("sine35k"); }},
        {"a refused frequency leaves the shown design",
         [&] { type(window->parmField(1), "200000"); QTest::keyClick(window->parmField(1), Qt::Key_Return); },
         titled("sine35k"), "VALID RANGE: fₐ <  150000.000", true, [&] { EXPECT_EQ(window->theTimeArray(), samples); }},
        {"Save As then writes the design shown, not the one typed", [&] { saveAs("refused"); }, titled("refused"),
         nullptr, true, [&] { holdsTheDesign("refused"); }},
        {"a broken file leaves title, fields and design",
         [&] { writeFile(library.signalPath("broken"), "not a design"); open("broken.signal"); },
         titled("refused"), nullptr, true, [&] {
             EXPECT_TRUE(window->noteField()->text().contains("broken"));
             EXPECT_EQ(fields(), QStringList({"300000", "500", "200000", "0.25", "0", "0", ""})); }},
        {"empty fields read as zero", [&] {
             type(window->parmField(1), "");
             type(window->parmField(2), "-");
             QTest::mouseClick(window->designSignalBut(), Qt::LeftButton); },
         titled("refused"), "VALID RANGE: fₐ > 0", true},
        {"New asks about the edits, then empties form, charts and note; the function stays", [&] {
             window->newMenuItem();
             answer("Don't Save", "Do you want to save the changes you made to \"refused\"?"); },
         kUntitled, "", false, [&] {
             EXPECT_EQ(fields(), QStringList(7, QString()));
             EXPECT_EQ(window->freqUnitsPopUp()->currentIndex(), Mega);
             EXPECT_EQ(window->voltUnitsPopUp()->currentText(), "V");
             EXPECT_EQ(window->yFuncStepper()->value(), 3); }},
        {"Save with nothing designed says why", [&] { window->saveMenuItem(); }, kUntitled,
         "There is no signal design to save: design a signal first.", false},
        {"reopen: the same function, units, fields and samples", [&] { stepTo(9); open("sine35k.signal"); },
         titled("sine35k"), kRateNotice, true, [&] {
             EXPECT_EQ(window->viewFuncSignalDesign()->functionIndex(), 3);
             EXPECT_EQ(window->freqUnitsPopUp()->currentIndex(), Kilo);
             EXPECT_EQ(window->voltUnitsPopUp()->currentText(), "mV");
             EXPECT_EQ(fields(), QStringList({"300000", "500", "35000", "0.25", "0", "0", "0"}));
             EXPECT_EQ(labels(&GVRWinSignalDesign::parmUnitsLabel).mid(0, 2), QStringList({"mV", "KHz"}));
             EXPECT_EQ(window->theTimeArray(), samples); }}, // no noise: the same samples
    };
    // clang-format on
    runFlow(
        *window, window->noteField(), [&] { return designed(); }, steps);
}

TEST_F(SignalDesignFlow, SteppersSetSymbolsCaptionsAndZoom)
{
    const struct {
        int function;
        QStringList symbols, captions;
    } cases[] = {
        // clang-format off
        {1, {"A₁", "fₐ₁", "A₂", "fₐ₂", "σ", "μ"}, {"V", "MHz", "V", "MHz", " ", "V"}},
        {6, {"σ", "μ", " ", " ", " ", " "}, {" ", "V", " ", " ", " ", " "}},
        {8, {"A", "τ", "σ", "μ", " ", " "}, {"V", "μS", " ", "V", " ", " "}},
        {10, {"β", "σ", "μ", " ", " ", " "}, {" ", " ", "V", " ", " ", " "}},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.function);
        stepTo(c.function);
        EXPECT_EQ(labels(&GVRWinSignalDesign::parmLabel), c.symbols);
        EXPECT_EQ(labels(&GVRWinSignalDesign::parmUnitsLabel), c.captions);
        EXPECT_EQ(window->viewFuncSignalDesign()->functionIndex(), c.function);
    }
    // Past the last function the stepper wraps, and a new function empties every entry.
    typeAll({"300", "1", "2", "3"});
    QTest::keyClick(window->yFuncStepper(), Qt::Key_Up);
    EXPECT_EQ(window->yFuncStepper()->value(), 0);
    EXPECT_EQ(fields(), QStringList(7, QString()));
    EXPECT_FALSE(designed());
    QTest::keyClick(window->yFuncStepper(), Qt::Key_Down);
    EXPECT_EQ(window->yFuncStepper()->value(), 10);

    // The zoom stepper doubles from x16 to x256, wrapping to x1, and the chart follows.
    QSpinBox* zoom = window->zoomStepper();
    EXPECT_EQ(zoom->text(), "x16");
    zoom->setFocus();
    for (const auto& [key, factor] : {std::pair{Qt::Key_Up, 32},
                                      {Qt::Key_Up, 64},
                                      {Qt::Key_Up, 128},
                                      {Qt::Key_Up, 256},
                                      {Qt::Key_Up, 1},
                                      {Qt::Key_Down, 256}}) {
        QTest::keyClick(zoom, key);
        EXPECT_EQ(zoom->text(), QStringLiteral("x%1").arg(factor));
        EXPECT_FLOAT_EQ(window->viewTimeSignalDesign()->zoomFactor(), factor);
    }
    // A new function puts the caption back; the chart keeps its zoom until the stepper is used.
    stepTo(1);
    EXPECT_EQ(zoom->text(), "x16");
    EXPECT_FLOAT_EQ(window->viewTimeSignalDesign()->zoomFactor(), 256.0f);
    zoom->setFocus();
    QTest::keyClick(zoom, Qt::Key_Up);
    EXPECT_FLOAT_EQ(window->viewTimeSignalDesign()->zoomFactor(), 32.0f);
}

} // namespace
