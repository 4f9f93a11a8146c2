// The order lists of designs and table cells are shown in: names "naturally"
// (case-insensitive, runs of digits compared as numbers, so "lp9" comes
// before "lp10"), numbers by value, dates by time.
#pragma once

#include <QString>

// Negative, zero or positive as `a` sorts before, with or after `b`. Names
// equal but for case fall back to a case-sensitive comparison, so the order
// is total.
int compareNaturally(const QString& a, const QString& b);

// Cells of a table: two numbers ("10.0", "-2.5e3") by value, anything else
// naturally ("8-bit" before "16-bit"); empty cells first.
int compareCellTexts(const QString& a, const QString& b);
