// What the filter designer model calls on its window. The window implements
// it; tests and the command line implement it to record the calls.
#pragma once

#include <QString>
#include <QVariantMap>

#include <vector>

class GVRFilterDesignView {
public:
    virtual ~GVRFilterDesignView() = default;
    // The note line: `text`, followed by `value` ("%@ %1.3f") when `withValue` is set.
    virtual void displayNoteField(const QString& text, double value, bool withValue) = 0;
    // The six KEYFDR_ results of a design that found its 3 dB point.
    virtual void displayFilterDesignResults(const QVariantMap& results) = 0;
    // The 4104-number response array: an eight-number header, 2048 dB values, 2048 phases.
    virtual void plotMagnitudeAndPhaseWithArray(const std::vector<double>& array) = 0;
    // A design whose 3 dB point was not found.
    virtual void clearFilterDesignResults() = 0;
    // The nine KEYFP_ parameters of a design just opened.
    virtual void restoreFilterParameters(const QVariantMap& parameters) = 0;
};
