#include "cli/cli_options.h"
#include "cli/verbs.h"

namespace cli {

int runSignal(const QStringList&)
{
    printErr(QStringLiteral("orvana-cli signal: not available in this build yet."));
    return Usage;
}

}  // namespace cli
