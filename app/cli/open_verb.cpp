#include "cli/cli_options.h"
#include "cli/verbs.h"

namespace cli {

int runOpen(const QStringList&)
{
    printErr(QStringLiteral("orvana-cli open: not available in this build yet."));
    return Usage;
}

}  // namespace cli
