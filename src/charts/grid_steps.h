// Grid-step choice shared by every chart axis: the first table value that
// cuts the axis span into few enough divisions.
#pragma once

#include <array>
#include <optional>
#include <span>

struct GridStep {
    float step = 1.0f;
    int count = 1; // number of divisions of `step`
};

namespace gridsteps {

// Frequency axes of the filter chart.
inline constexpr std::array<float, 19> kFrequency = {
    0.1f,  0.2f,   0.25f,  0.5f,   1.0f,    2.0f,    5.0f,    10.0f,    20.0f,   25.0f,
    50.0f, 100.0f, 200.0f, 500.0f, 1000.0f, 2000.0f, 5000.0f, 10000.0f, 20000.0f};
// Amplitude, magnitude, time and spectrum frequency axes.
inline constexpr std::array<float, 21> kGeneral = {
    0.01f, 0.05f, 0.1f,   0.2f,   0.25f,  0.5f,    1.0f,    2.0f,    5.0f,     10.0f,   20.0f,
    25.0f, 50.0f, 100.0f, 200.0f, 500.0f, 1000.0f, 2000.0f, 5000.0f, 10000.0f, 20000.0f};
// dB axis of the magnitude response.
inline constexpr std::array<float, 8> kDecibel = {10.0f, 20.0f, 30.0f, 40.0f, 50.0f, 60.0f, 70.0f, 80.0f};
// Radian axis of the phase response.
inline constexpr std::array<float, 12> kPhase = {2.0f,  5.0f,   10.0f,  20.0f,  30.0f,  40.0f,
                                                 50.0f, 100.0f, 200.0f, 300.0f, 400.0f, 500.0f};

} // namespace gridsteps

// span: axis span in the axis unit (sign ignored); table: steps in order of
// trial; maxCount: largest division count accepted (≥ 0). Each trial count is
// ceil(|span / step|) in single precision, so the rounding of float division
// decides ties exactly as the charts draw them. Nothing when no step fits
// (also for a NaN or infinite span).
std::optional<GridStep> chooseGridStep(float span, std::span<const float> table, int maxCount);

// As above, but `preset` when no step fits.
GridStep chooseGridStep(float span, std::span<const float> table, int maxCount, GridStep preset);
