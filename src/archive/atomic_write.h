// Writes a whole file or nothing: a short-named temporary file in the same
// folder is written, flushed to disk, renamed over the target, and the folder
// itself is flushed so that the rename survives a power cut. Every step is
// checked; on failure the old file is left as it was (a failing folder flush
// is the one exception: the new file is already in place, and we say so).
#pragma once

#include <QByteArray>
#include <QString>

// On failure returns false and, when `error` is given, a message naming the
// file and the system's reason in plain words ("No space left on device").
bool writeFileAtomically(const QString& path, const QByteArray& data, QString* error = nullptr);

// Temporary files of writeFileAtomically() are named with this prefix and six
// random characters (".orvana-save-Ab12Cd"): short, so that any file name the
// file system takes can be written again, and hidden, so no listing shows them.
inline constexpr char kAtomicWriteTemporaryPrefix[] = ".orvana-save-";

// Test seam: the steps of a write, each of which can be made to fail with a
// chosen errno. Production code never sets a fault.
enum class AtomicWriteStep { Create, Write, Flush, Rename, FolderSync };
void setAtomicWriteFault(AtomicWriteStep step, int errorNumber);
void clearAtomicWriteFault();
