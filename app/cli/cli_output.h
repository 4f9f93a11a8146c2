// Output shared by the designing verbs of orvana-cli: the view that keeps
// what a model shows, its JSON form and the report of a --save.
#pragma once

#include "library/note_format.h"

#include <QString>

#include <vector>

namespace cli {

// Keeps the note and the time and frequency arrays a signal or project model
// hands its window; the verb adds the parameter restore its view needs.
template <class View> class NoteAndChartsView : public View {
public:
    void displayNoteField(const QString& text, double value, bool withValue) override
    {
        note = formatNote(text, value, withValue);
    }
    void plotTimeWithArray(const std::vector<double>& a) override { time = a; }
    void plotFreqWithArray(const std::vector<double>& a) override { freq = a; }

    QString note;
    std::vector<double> time;
    std::vector<double> freq;
};

// One JSON object {note, time, freq}; the arrays are empty unless `designed`.
void printNoteAndChartsJson(const QString& note, const std::vector<double>& time,
                            const std::vector<double>& freq, bool designed);

// The note as a line of its own, or nothing when there is none.
QString noteLine(const QString& note);

// After a --save of `what` ("design", "project"): the refusal on stderr, or
// "Saved as PATH" unless the output is JSON. Returns `saved`.
bool reportSave(const QString& verb, const QString& what, bool saved, const QString& error,
                const QString& path, bool json);

} // namespace cli
