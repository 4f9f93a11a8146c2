// Scripts that drive the real program's windows through their widgets to take
// pictures of a real screen (the end-to-end test under Xvfb, and a look at
// every window).
#pragma once

#include <QString>

class OrvanaShell;

namespace SelfTest {

// Opens the sample filter "lp300fc25" in the filter designer through its open
// sheet, presses Design, and saves a picture of the whole screen to `pngPath`.
// Quits with 0 when the picture was saved and the design went through, else 1.
void runScreenshotScript(OrvanaShell& shell, const QString& pngPath);

// Designs in every window (sample designs opened through the sheets) and
// saves a picture of each window, and of the whole screen, into `folder`.
void runWindowTour(OrvanaShell& shell, const QString& folder);

} // namespace SelfTest
