// What a design request came to, as the models report it. The CLI turns it
// into its exit status and the windows into their edited mark; nobody has to
// read the note line's words to tell a refusal from a warning.
#pragma once

enum class DesignOutcome {
    Designed,        // results made and valid
    Refused,         // the parameters were refused; nothing changed
    DesignedInvalid, // designed, but the results are not valid (e.g. no 3 dB point)
};
