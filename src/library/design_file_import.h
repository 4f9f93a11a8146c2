// Bringing a design file named on the command line (or by the desktop's file
// manager) into the design library, so the designers, which read designs by
// name from their library folder, can open it. A file already in its folder
// is used in place; another is copied in under a free name, never replacing
// anything, and only after it has been read as a design of its kind.
#pragma once

#include <optional>

#include <QString>

#include "library/design_library.h"

struct DesignFileTarget {
    DesignLibrary::Folder folder; // where the design lives (a project: by its block diagram)
    QString name;                 // design name in that folder, without extension
    bool copied = false;          // whether a copy was made in the library
};

// The library folder a file name's extension belongs to (a project's folder is
// ProjectOne until the file is read); none for other extensions.
std::optional<DesignLibrary::Folder> folderForDesignFile(const QString& path);

// Reads `path` as a design of its kind and finds (or makes) its place in the
// library. On failure returns none and a message naming the file and the reason.
std::optional<DesignFileTarget> placeDesignFileInLibrary(const DesignLibrary& library, const QString& path,
                                                         QString* error = nullptr);
