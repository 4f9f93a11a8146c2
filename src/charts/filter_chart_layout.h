// Layout of the filter response chart: magnitude in dB or unwrapped phase in
// radians over 2048 points from 0 to half the sampling frequency.
#pragma once

#include <span>

#include <QString>

#include "charts/chart_scene.h"

namespace filterchart {
inline constexpr int kMagnitude = 0;
inline constexpr int kPhase = 1;
// Further items of the chart pop-up (2 is the Word Length chart, drawn elsewhere).
inline constexpr int kImpulse = 3;
inline constexpr int kStep = 4;
inline constexpr int kGroupDelay = 5;
inline constexpr int kZeros = 6;
} // namespace filterchart

// array: the 4104-number response array (header of 8, 2048 dB magnitudes,
// 2048 phases; shorter arrays draw what they hold); chartType: 0 magnitude,
// 1 phase; freqUnits: caption of the frequency axis; width, height: view size.
ChartScene layoutFilterChart(std::span<const double> array, int chartType, const QString& freqUnits,
                             float width, float height);
