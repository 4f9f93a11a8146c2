#include "cli/cli_options.h"
#include "cli/verbs.h"

namespace cli {

int runExport(const QStringList&)
{
    printErr(QStringLiteral("orvana-cli export: not available in this build yet."));
    return Usage;
}

}  // namespace cli
