// The signal designer window driven through its controls: captions by
// function, unit switches and what they rescale, the steppers, designing,
// and saving and opening through the sheets with a temporary library.
#include <memory>

#include <QAction>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>

#include <gtest/gtest.h>

#include "charts/view_freq_signal_design.h"
#include "charts/view_func_signal_design.h"
#include "charts/view_time_signal_design.h"
#include "widgets/number_field.h"
#include "gui/designer_test_support.h"
#include "library/design_library.h"
#include "signal/signal_design_window.h"
#include "signal/signal_keys.h"
#include "support/temp_library.h"

static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

using namespace designer_test;

namespace {

enum FreqUnits { MHz = 0, KHz = 1 };
enum VoltUnits { V = 0, mV = 1 };

class SignalDesignWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        library = std::make_unique<DesignLibrary>(temp.root());
        ASSERT_TRUE(library->ensureFolders().isEmpty());
        window = std::make_unique<GVRWinSignalDesign>(*library);
        window->showGVRWinSignalDesign();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    void TearDown() override
    {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Steps the function stepper up from where it is to `function`.
    void stepTo(int function)
    {
        QSpinBox* stepper = window->yFuncStepper();
        stepper->setFocus();
        for (int guard = 0; stepper->value() != function && guard < 11; ++guard)
            QTest::keyClick(stepper, Qt::Key_Up);
        ASSERT_EQ(stepper->value(), function);
    }

    GVRNumberField* parm(int n) const { return window->parmField(n - 1); }
    QString text(int n) const { return parm(n)->text(); }
    QString caption(int n) const { return window->parmUnitsLabel(n - 1)->text(); }
    QString symbol(int n) const { return window->parmLabel(n - 1)->text(); }
    QString note() const { return window->noteField()->text(); }

    void typeParms(const QStringList& values)
    {
        for (int n = 1; n <= values.size(); ++n)
            type(parm(n), values.at(n - 1));
    }

    TempLibrary temp;
    std::unique_ptr<DesignLibrary> library;
    std::unique_ptr<GVRWinSignalDesign> window;
};

TEST_F(SignalDesignWindow, SaveNewOpenRestoresUnitsAndValues)
{
    stepTo(3); // sine
    choose(window->freqUnitsPopUp(), KHz);
    choose(window->voltUnitsPopUp(), mV);
    type(window->freqSampField(), "300000");
    typeParms({"500", "35000", "0.25", "0", "0"});
    QTest::mouseClick(window->designSignalBut(), Qt::LeftButton);
    ASSERT_EQ(window->theTimeArray().size(), 16392u) << note().toStdString();
    const std::vector<double> saved = window->theTimeArray();

    window->saveAsMenuItem();
    answerSaveSheet("sine35k");
    EXPECT_TRUE(QFileInfo::exists(library->signalPath("sine35k")));
    EXPECT_EQ(window->windowTitle(), "sine35k");

    window->newMenuItem();
    EXPECT_EQ(window->windowTitle(), "(Untitled)");
    EXPECT_EQ(window->freqUnitsPopUp()->currentIndex(), MHz);
    EXPECT_EQ(window->voltUnitsPopUp()->currentIndex(), V);
    EXPECT_EQ(window->freqSampField()->text(), "");
    EXPECT_TRUE(window->theTimeArray().empty());
    EXPECT_TRUE(window->theFreqArray().empty());
    EXPECT_EQ(window->yFuncStepper()->value(), 3); // the function stays

    stepTo(9);
    window->openMenuItem();
    answerOpenSheet("sine35k.signal");
    EXPECT_EQ(window->windowTitle(), "sine35k");
    EXPECT_EQ(window->signalFilename(), "sine35k");
    EXPECT_EQ(window->yFuncStepper()->value(), 3);
    EXPECT_EQ(window->viewFuncSignalDesign()->functionIndex(), 3);
    EXPECT_EQ(window->freqUnitsPopUp()->currentIndex(), KHz);
    EXPECT_EQ(window->voltUnitsPopUp()->currentIndex(), mV);
    EXPECT_EQ(window->freqSampField()->text(), "300000");
    EXPECT_EQ(QStringList({text(1), text(2), text(3)}), QStringList({"500", "35000", "0.25"}));
    EXPECT_EQ(caption(2), "KHz");
    EXPECT_EQ(caption(1), "mV");
    ASSERT_EQ(window->theTimeArray().size(), 16392u);
    // Samples of a noiseless sine are the same; only noise would differ.
    EXPECT_EQ(window->theTimeArray(), saved);

    // Choosing the restored units again changes nothing.
    choose(window->freqUnitsPopUp(), KHz);
    choose(window->voltUnitsPopUp(), mV);
    EXPECT_EQ(window->freqSampField()->text(), "300000");
    EXPECT_EQ(text(1), "500");
}

} // namespace
