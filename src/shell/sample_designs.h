// Making the design library ready at launch: its folders, and the sample
// designs shipped with the program copied in without replacing a user's file.
// Also the designing of those samples, done once at build time.
#pragma once

#include <QList>
#include <QString>

#include "library/design_library.h"
#include "library/library_location.h"

// Makes sure the library folders exist and copies the 13 samples in (never
// overwriting); returns the problems to show. A missing sample folder is a problem.
QList<LibraryProblem> prepareLibrary(DesignLibrary& library,
                                     const QString& sampleFolder = defaultSampleFolder());

// Designs the thirteen sample designs with the models and writes them side by
// side into `folder` (made if missing), replacing older copies. Returns the
// problems; empty when all thirteen were written.
QList<LibraryProblem> makeSampleDesigns(const QString& folder);
