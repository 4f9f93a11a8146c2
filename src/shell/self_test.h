// Hidden start-up modes for automated runs of the real program: timing the
// first paint, and driving the windows through their widgets to take
// pictures of a real screen (used by the end-to-end test under Xvfb and to
// look at every window).
#pragma once

#include <QElapsedTimer>
#include <QString>

class OrvanaShell;

namespace SelfTest {

// Once any widget has painted, prints "first paint: N ms" (since
// `sinceStart`) on standard output and quits with code 0.
void quitAfterFirstPaint(const QElapsedTimer& sinceStart);

// Opens the sample filter "lp300fc25" in the filter designer through its open
// sheet, presses Design, and saves a picture of the whole screen to `pngPath`.
// Quits with 0 when the picture was saved and the design went through, else 1.
void runScreenshotScript(OrvanaShell& shell, const QString& pngPath);

// Designs in every window (sample designs opened through the sheets) and
// saves a picture of each window, and of the whole screen, into `folder`.
void runWindowTour(OrvanaShell& shell, const QString& folder);

} // namespace SelfTest
