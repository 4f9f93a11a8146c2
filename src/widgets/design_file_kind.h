// What tells the designers' file commands apart: library folder, extension
// and the wording of the alerts, plus the project window's stricter rules.
#pragma once

#include <functional>

#include <QString>

struct DesignFileKind {
    // Library folder of this designer; asked each time, as the project
    // window switches between two folders.
    std::function<QString()> folder;
    // What the window is, for its title: "Filter Designer", "Multirate Model".
    std::function<QString()> windowKind;
    QString extension;                // ".filt", ".signal", ".orvana"
    QString replaceInformativeText;   // the Replace alert's second line
    QString overwriteInformativeText; // the Overwrite alert's second line
    // A file the model refuses gives the invalid-project-file alert;
    // otherwise the note line says why. Either way the title stays.
    bool alertOnFailedOpen = false;
    // Replace and Overwrite do nothing for an empty name.
    bool saveNeedsName = false;

    static DesignFileKind filter(std::function<QString()> folder);
    static DesignFileKind signal(std::function<QString()> folder);
    static DesignFileKind project(std::function<QString()> folder);
};
