// Making the design library ready at launch: its folders, and the sample
// designs shipped with the program copied in without replacing a user's file.
// Also the designing of those samples, done once at build time.
#pragma once

#include <QList>
#include <QString>

#include "library/design_library.h"
#include "library/library_location.h"

// When the stale temporaries of interrupted saves are removed: at once, or
// in a worker thread while the windows come up (reading the names of a
// folder of thousands of designs is work the first paint need not wait for).
enum class StaleCleanUp { Now, InBackground };

// Makes sure the library folders exist, removes stale temporaries and copies
// the 13 samples in (never overwriting); returns the problems to show. A
// missing sample folder is a problem.
QList<LibraryProblem> prepareLibrary(DesignLibrary& library,
                                     const QString& sampleFolder = defaultSampleFolder(),
                                     StaleCleanUp cleanUp = StaleCleanUp::Now);

// Designs the thirteen sample designs with the models and writes them side by
// side into `folder` (made if missing), replacing older copies. Returns the
// problems; empty when all thirteen were written.
QList<LibraryProblem> makeSampleDesigns(const QString& folder);
