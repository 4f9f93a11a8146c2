// Runs a script under Debian's python3 (numpy, scipy) to get reference values
// computed independently of our code.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include <QString>
#include <QStringList>

namespace reference {

// Path of tests/reference/<name>.
QString scriptPath(const QString& name);

// Runs python3 with the script and arguments, feeding `input` on stdin.
// Returns stdout, or nothing when python or its modules are missing or the
// script fails (the failure text goes to `error`).
std::optional<QByteArray> runPython(const QString& script, const QStringList& args,
                                    const QByteArray& input = {}, QString* error = nullptr);

// The values as a reference script reads them: full precision, one space after each,
// and a newline at the end (scripts read one array a line).
QByteArray numbersLine(std::span<const double> values);

// Whitespace-separated numbers of a reference's output.
std::vector<double> parseNumbers(const QByteArray& text);

// The numbers a script prints; on failure the test fails with python's
// message and the result is empty.
std::vector<double> numbers(const QString& script, const QStringList& args, const QByteArray& input = {});

} // namespace reference
