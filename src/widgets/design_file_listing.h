// Listing of a designer's library folder for the open sheets and the name
// pop-ups: the design files with one extension, in natural order.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include "widgets/gvr_file.h"

// Date text of the open sheets: "MMM d, yyyy, h:mm a" in English, local time
// ("Mar 5, 2010, 4:07 PM").
QString formatFileDate(const QDateTime& when);
// The time such a text stands for; invalid for any other text.
QDateTime parseFileDate(const QString& text);

// One row per file of `folder` whose name ends in `extension` (".filt"),
// in natural order of their names; empty when the folder is missing.
QList<GVRFile> designFilesInFolder(const QString& folder, const QString& extension);

// `fileName` without a trailing `extension`; unchanged when it lacks it.
QString stripExtension(const QString& fileName, const QString& extension);
