// Layout of the spectrum charts: one-sided magnitude spectrum from 0 up to
// twice the highest significant frequency, or half the sampling frequency.
#pragma once

#include <span>

#include "charts/chart_scene.h"

// array: a frequency-domain array (8-number headers, then 8192 magnitudes per
// record); headerBase, binBase: positions of the chosen header and of its
// first bin (0 and 8 for a signal, 0/16 or 8/8208 for a project);
// width, height: view size.
ChartScene layoutSpectrumChart(std::span<const double> array, int headerBase, int binBase, float width,
                               float height);
