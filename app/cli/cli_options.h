// Helpers shared by the verbs of orvana-cli.
#pragma once

#include <optional>
#include <string>

#include <QString>
#include <QStringList>

#include "library/design_outcome.h"

class DesignLibrary;
class QCommandLineOption;
class QCommandLineParser;

namespace cli {

enum ExitCode : int {
    Designed = 0,        // a design was made (or the command did its work)
    Refused = 1,         // the model refused the input; the message says why
    Usage = 2,           // the command line itself is wrong
    DesignedInvalid = 3, // designed, but the results are not valid
};

// The exit status for what a model reported; a failed save comes on top.
int exitStatusOf(DesignOutcome outcome);

// The verb's description followed by its exit statuses, for --help. Verbs
// that design say 3 too.
QString describeVerb(const QString& summary, bool designs);

// A number as typed: plain decimals, exponents, and every spelling of "nan"
// and of infinity; a number beyond the range of a double reads as an
// infinity. Anything else is not a number.
std::optional<double> parseNumber(const QString& text);

// The refusal of an infinite value for an option, naming what it is ("the
// sampling frequency (--fs) must be a finite number, not inf."); nothing for
// a finite value or a NaN (the models name a NaN themselves).
std::optional<QString> nonFiniteRefusal(const QString& verb, const QString& option, const QString& what,
                                        const QString& text, double value);

// Whether a verb takes positional arguments.
enum class Positionals { None, Allowed };

// Parses the verb's arguments (`args` starts with the program name). A usage error is
// printed with the help text to stderr and gives Usage; --help prints the help text and
// gives Designed; otherwise there is no answer and the verb goes on.
std::optional<int> parseVerbArguments(QCommandLineParser& parser, const QStringList& args,
                                      Positionals positionals);

// -h/--help, which every verb takes.
QCommandLineOption helpOption();
// --json, for the verbs that can print one JSON object.
QCommandLineOption jsonOption();
// The --library DIR option every verb takes.
QCommandLineOption libraryOption();
// The design library folder for `optionValue` (else ORVANA_LIBRARY, else the
// per-user folder).
QString cliLibraryRoot(const QString& optionValue);
// Makes the library's folders and copies the sample designs in without
// replacing anything. Problems are printed as warnings.
void prepareCliLibrary(DesignLibrary& library, const QString& verb);

// The help text of a verb's parser with the usage line naming the command as
// typed ("Usage: orvana-cli filter [options]") rather than the binary's path.
QString helpText(const QCommandLineParser& parser);
// What the usage line names; main sets it to "orvana-cli <verb>".
void setCommandName(const QString& name);

void printOut(const QString& text);
void printOut(const std::string& text);
void printErr(const QString& text);

} // namespace cli
