// A filter design window that only records what the model tells it.
#pragma once

#include "filter/filter_design_view.h"
#include "library/note_format.h"

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <ostream>
#include <vector>

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
    void displayFilterDesignResults(const QVariantMap& r) override
    {
        results = r;
        calls << QStringLiteral("results");
    }
    void plotMagnitudeAndPhaseWithArray(const std::vector<double>& array) override
    {
        plotted = array;
        calls << QStringLiteral("plot");
    }
    void clearFilterDesignResults() override { calls << QStringLiteral("clear"); }
    void restoreFilterParameters(const QVariantMap& p) override
    {
        restored = p;
        calls << QStringLiteral("restore");
    }

    QString note;
    QStringList calls;
    QVariantMap results;
    QVariantMap restored;
    std::vector<double> plotted;
};
