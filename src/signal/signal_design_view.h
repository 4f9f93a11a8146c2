// What the signal designer model needs from its window: the note line, the
// two charts and the restoration of controls after a file is opened. The
// signal design window implements it; tests and the command line use their own.
#pragma once

#include <vector>

#include <QString>
#include <QVariantMap>

class SignalDesignView {
public:
    virtual ~SignalDesignView() = default;

    // The note line: text alone, or with withValue the text, a blank and the
    // value with three decimals (formatNote in shell/note_format.h).
    virtual void displayNoteField(const QString& text, double value, bool withValue) = 0;
    // 16392 numbers: 8 header values then 16384 samples. The window keeps a copy.
    virtual void plotTimeWithArray(const std::vector<double>& timeArray) = 0;
    // 8200 numbers: 8 header values then 8192 magnitudes.
    virtual void plotFreqWithArray(const std::vector<double>& freqArray) = 0;
    // The ten KEYSP_ entries of an opened design.
    virtual void restoreSignalParameters(const QVariantMap& parameters) = 0;
};
