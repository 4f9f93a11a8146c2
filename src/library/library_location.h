// Where the design library lives: a command-line option, then the
// ORVANA_LIBRARY environment variable, then the per-user data folder; and
// where the sample designs shipped with the program are.
#pragma once

#include <QString>

// Environment variable that moves the library, for scripts and test runs.
inline constexpr char kLibraryEnvironmentVariable[] = "ORVANA_LIBRARY";

// "<generic data folder>/Orvana", e.g. ~/.local/share/Orvana. The generic
// folder rather than the application's own, so that the windowed program and
// the command line share one library whatever their application names.
QString defaultLibraryRoot();

// The library root to use: `optionValue` when not blank, else the environment
// variable when set and not blank, else defaultLibraryRoot(). A leading "~"
// stands for the home folder; the answer is an absolute, cleaned path.
QString resolveLibraryRoot(const QString& optionValue = {});

// A file or folder shipped with the program: the first of <program folder>/<name>
// and <program folder>/../share/orvana/<name> that exists, or an empty string.
QString bundledDataPath(const QString& name);

// Folder of the sample design files (all thirteen side by side): the first of
// <program folder>/samples and <program folder>/../share/orvana/samples that
// exists, or an empty string.
QString defaultSampleFolder();
