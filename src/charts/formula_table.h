// The formulas of the eleven signal functions, three lines each (upper limit
// of a sum, formula, lower limit), spaced so the lines align when drawn.
#pragma once

#include <QStringList>

inline constexpr int kFormulaCount = 11;

// The three lines of function `index` (0 to 10, the signal function order);
// three empty lines for any other index.
QStringList formulaLines(int index);
