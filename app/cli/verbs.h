// The verbs of orvana-cli. Each takes the whole argument list with the verb
// removed (args[0] is "orvana-cli <verb>") and returns the exit code.
#pragma once

#include <QStringList>

namespace cli {

int runFilter(const QStringList& args);
int runSignal(const QStringList& args);
int runProject(const QStringList& args);
int runExport(const QStringList& args);
int runOpen(const QStringList& args);
int runWindow(const QStringList& args);
int runSweep(const QStringList& args);
int runCompare(const QStringList& args);
int runTuneFft(const QStringList& args);

} // namespace cli
