// The note line of every designer window: a message, optionally followed by
// a number. Shared by the windows and the command line so both show the
// same text.
#pragma once

#include <QString>

// With `withValue` the text is followed by one blank and the value narrowed
// to single precision, printed with three decimals ("%@ %1.3f").
QString formatNote(const QString& text, double value, bool withValue);
