// What tells the designers' file commands apart: library folder, extension
// and the wording of the alerts, plus the project window's stricter rules.
#pragma once

#include <functional>

#include <QString>

struct DesignFileKind {
    // Library folder of this designer; asked each time, as the project
    // window switches between two folders.
    std::function<QString()> folder;
    QString extension;                // ".filt", ".signal", ".orvana"
    QString replaceInformativeText;   // the Replace alert's second line
    QString overwriteInformativeText; // the Overwrite alert's second line
    // A file the model refuses gives the invalid-project-file alert and
    // leaves the title; otherwise the title follows the name regardless.
    bool alertOnFailedOpen = false;
    // Replace and Overwrite do nothing for an empty name.
    bool saveNeedsName = false;

    static DesignFileKind filter(std::function<QString()> folder);
    static DesignFileKind signal(std::function<QString()> folder);
    static DesignFileKind project(std::function<QString()> folder);
};
