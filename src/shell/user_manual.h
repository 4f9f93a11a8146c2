// The user manual: docs/user-manual.md is built into the program as a Qt
// resource; Help opens it as an HTML page written into a cache folder, in
// the user's browser.
#pragma once

#include <QString>

// The manual's Markdown text (empty if the resource is missing).
QString userManualMarkdown();

// Folder the HTML page is written to: the per-user cache folder + "/manual".
QString userManualCacheFolder();

// Writes "OrvanaUserManual.html" into `folder` (made if missing), with the
// manual's pictures in `folder`/images, replacing older copies atomically. Returns its path, or an empty
// string with the reason in `error`.
QString writeUserManualHtml(const QString& folder, QString* error = nullptr);
