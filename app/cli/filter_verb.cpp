#include "cli/cli_options.h"
#include "cli/verbs.h"

namespace cli {

int runFilter(const QStringList&)
{
    printErr(QStringLiteral("orvana-cli filter: not available in this build yet."));
    return Usage;
}

}  // namespace cli
