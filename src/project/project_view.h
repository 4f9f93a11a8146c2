// What the project model needs from its window: the note line, the two
// charts and the restoration of controls after a project file is opened.
// The project window implements it; tests and the command line use their own.
#pragma once

#include <vector>

#include <QString>
#include <QVariantMap>

class ProjectView {
public:
    virtual ~ProjectView() = default;

    // The note line; the project model always passes withValue = false.
    virtual void displayNoteField(const QString& text, double value, bool withValue) = 0;
    // 32784 numbers: input and output headers (8 each), then x and y (16384 each).
    virtual void plotTimeWithArray(const std::vector<double>& timeArray) = 0;
    // 16400 numbers: the two headers, then |X| and |Y| (8192 each).
    virtual void plotFreqWithArray(const std::vector<double>& freqArray) = 0;
    // The nine KEYMOD_ entries of an opened project.
    virtual void restoreProjectParameters(const QVariantMap& parameters) = 0;
};
