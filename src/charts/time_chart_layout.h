// Layout of the time-domain charts: a sampled signal against time, zoomed so
// that the first 16384 / zoom samples fill the width.
#pragma once

#include <span>

#include "charts/chart_scene.h"

// array: a time-domain array (8-number headers, then 16384 samples per
// record); headerBase, sampleBase: positions of the chosen header and of its
// first sample (0 and 8 for a signal, 0/16 or 8/16400 for a project);
// zoom: 1 to 256 in practice; width, height: view size.
ChartScene layoutTimeChart(std::span<const double> array, int headerBase, int sampleBase, float zoom,
                           float width, float height);
