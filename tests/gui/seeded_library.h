// A temporary design library holding the thirteen sample designs, for the
// window tests of the shell.
#pragma once

#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"

struct SeededLibrary {
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    QList<LibraryProblem> problems = prepareLibrary(library);
};
