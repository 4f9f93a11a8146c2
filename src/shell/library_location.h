// Where the design library lives: a command-line option, else the
// ORVANA_LIBRARY environment variable, else the per-user data folder.
#pragma once

#include <QString>

// Name of the environment variable that moves the library.
inline constexpr const char* kLibraryEnvironmentVariable = "ORVANA_LIBRARY";

// "<generic data location>/Orvana", e.g. ~/.local/share/Orvana.
QString defaultLibraryRoot();

// The library root to use: `optionValue` when not empty, then the environment
// variable when set and not empty, then defaultLibraryRoot(). Relative paths
// are made absolute against the current folder; "~/" is expanded.
QString resolveLibraryRoot(const QString& optionValue);

// Folder holding the sample designs shipped with the program, laid out like
// the library ("filter", "signal", "projectOne", "projectTwo"); the first of
// <program folder>/samples and <program folder>/../share/orvana/samples that
// exists, or an empty string.
QString defaultSampleFolder();
