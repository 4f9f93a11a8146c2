#include "cli/cli_options.h"
#include "cli/verbs.h"

namespace cli {

int runProject(const QStringList&)
{
    printErr(QStringLiteral("orvana-cli project: not available in this build yet."));
    return Usage;
}

}  // namespace cli
