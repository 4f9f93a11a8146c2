// A project window for the project tests that records what the model tells it.
#pragma once

#include <gtest/gtest.h>

#include "project/project_view.h"

class RecordingProjectView : public ProjectView {
public:
    void displayNoteField(const QString& text, double, bool withValue) override
    {
        note = text;
        EXPECT_FALSE(withValue); // project notes never carry a number
        ++notes;
    }
    void plotTimeWithArray(const std::vector<double>&) override { ++plots; }
    void plotFreqWithArray(const std::vector<double>&) override {}
    void restoreProjectParameters(const QVariantMap& p) override
    {
        restored = p;
        ++restores;
    }

    QString note;
    QVariantMap restored;
    int notes = 0, plots = 0, restores = 0;
};
