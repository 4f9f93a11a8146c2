// Output shared by the designing verbs of orvana-cli.
#include "cli/cli_output.h"

#include "cli/cli_options.h"
#include "cli/json_writer.h"

namespace cli {

void printNoteAndChartsJson(const QString& note, const std::vector<double>& time,
                            const std::vector<double>& freq, bool designed)
{
    JsonWriter json;
    json.beginObject();
    json.key("note");
    json.value(note.toStdString());
    json.key("time");
    json.array(designed ? time : std::vector<double>{});
    json.key("freq");
    json.array(designed ? freq : std::vector<double>{});
    json.endObject();
    printOut(json.text() + "\n");
}

QString noteLine(const QString& note)
{
    return note.isEmpty() ? QString() : note + QLatin1Char('\n');
}

bool reportSave(const QString& verb, const QString& what, bool saved, const QString& error,
                const QString& path, bool json)
{
    if (!saved) {
        printErr(QStringLiteral("orvana-cli %1: the %2 was not saved. %3").arg(verb, what, error));
        return false;
    }
    if (!json)
        printOut(QStringLiteral("Saved as %1\n").arg(path));
    return true;
}

} // namespace cli
