// The names in one folder, read straight from the directory: QDir builds a
// file-info record per entry, four times the cost of the names alone, and a
// class's shared library holds tens of thousands of designs.
#pragma once

#include <QString>
#include <QStringList>

enum class FolderLinks {
    Follow, // links to regular files count as files, as in QDir::Files
    Skip,   // only regular files themselves
};

// The names of the regular files in `folder` (hidden ones too), unsorted;
// empty when the folder cannot be read.
QStringList regularFileNames(const QString& folder, FolderLinks links = FolderLinks::Follow);
