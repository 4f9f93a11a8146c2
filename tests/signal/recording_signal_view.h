// For the signal tests: a design window that records what the model tells
// it, and a fixture with a model over a temporary library.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "library/design_library.h"
#include "library/note_format.h"
#include "signal/signal_design_view.h"
#include "signal/signal_designer_model.h"
#include "signal/signal_keys.h"
#include "support/temp_library.h"

class RecordingSignalView : public SignalDesignView {
public:
    void displayNoteField(const QString& text, double value, bool withValue) override
    {
        note = formatNote(text, value, withValue);
        ++notes;
    }
    void plotTimeWithArray(const std::vector<double>& a) override { keep(time, a, plots); }
    void plotFreqWithArray(const std::vector<double>& a) override { freq = a; }
    void restoreSignalParameters(const QVariantMap& p) override { keep(restored, p, restores); }

    QString note;
    int notes = 0, plots = 0, restores = 0;
    std::vector<double> time, freq;
    QVariantMap restored;

private:
    template <class T> static void keep(T& slot, const T& value, int& count)
    {
        slot = value;
        ++count;
    }
};

class SignalFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.ensureFolders().isEmpty());
        model.setWinSignalDesign(&view);
    }
    // Designs function `index` at fs with parameters in slot order (MHz, V unless given).
    void design(double index, double fs, std::array<double, 6> p, std::int64_t freqUnits = 0,
                std::int64_t voltUnits = 0)
    {
        model.designSignalWithParameters(
            GVRSignalDesignerModel::parameterDictionary(freqUnits, voltUnits, fs, index, p));
    }

    TempLibrary temp;
    DesignLibrary library{temp.root()};
    RecordingSignalView view;
    GVRSignalDesignerModel model{library};
};
