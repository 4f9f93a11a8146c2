// For the filter tests: a design window that only records what the model
// tells it, the nine design entries as a struct, and a fixture with a model
// over a temporary library.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <ostream>
#include <vector>

#include "filter/filter_design_view.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "library/design_library.h"
#include "library/note_format.h"
#include "support/temp_library.h"

// Readable QString values in test failures.
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}

class RecordingFilterView : public GVRFilterDesignView {
public:
    void displayNoteField(const QString& text, double value, bool withValue) override
    {
        note = formatNote(text, value, withValue);
        calls << QStringLiteral("note:") + note;
    }
    void displayFilterDesignResults(const QVariantMap& r) override { keep(results, r, "results"); }
    void plotMagnitudeAndPhaseWithArray(const std::vector<double>& a) override { keep(plotted, a, "plot"); }
    void clearFilterDesignResults() override { calls << QStringLiteral("clear"); }
    void restoreFilterParameters(const QVariantMap& p) override { keep(restored, p, "restore"); }

    QString note;
    QStringList calls;
    QVariantMap results, restored;
    std::vector<double> plotted;

private:
    template <class T> void keep(T& slot, const T& value, const char* call)
    {
        slot = value;
        calls << QLatin1String(call);
    }
};

// The nine entries of the design window: a 51-tap Norm low pass with a
// rectangular window and Double coefficients unless told otherwise.
struct FilterParams {
    double units = 0, type = 0, fs = 0, cutoff = 0.25, center = 0.5, length = 51, width = 0, window = 0,
           beta = 0;
    QVariantMap map() const
    {
        return {{KEYFP_UNITS, units},        {KEYFP_FILTER_TYPE, type},   {KEYFP_SAMPLING_FREQ, fs},
                {KEYFP_CUTOFF_FREQ, cutoff}, {KEYFP_CENTER_FREQ, center}, {KEYFP_FILTER_LENGTH, length},
                {KEYFP_FILTER_WIDTH, width}, {KEYFP_WINDOW_TYPE, window}, {KEYFP_BETA_UPSILON, beta}};
    }
};

class FilterFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.ensureFolders().isEmpty());
        model.setWindow(&view);
    }
    // Designs with `p` and returns the note it left.
    QString design(const FilterParams& p)
    {
        view.calls.clear();
        model.designFilterWithParameters(p.map());
        return view.note;
    }

    TempLibrary temp;
    DesignLibrary library{temp.root()};
    RecordingFilterView view;
    GVRFilterDesignerModel model{library};
};
