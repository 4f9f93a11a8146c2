// GVRSignal: one saved signal design, as archived in a ".signal" file.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

struct GVRSignal {
    std::optional<double> samplingFreq;
    std::optional<double> yStepIndex; // a whole number stored as a double
    std::optional<std::int64_t> freqUnits;
    std::optional<std::int64_t> voltUnits;
    std::optional<double> parm1;
    std::optional<double> parm2;
    std::optional<double> parm3;
    std::optional<double> parm4;
    std::optional<double> parm5;
    std::optional<double> parm6;
    std::optional<double> maxAmplitude;
    std::optional<double> minAmplitude;
    std::optional<double> maxFreq;
    std::optional<std::vector<double>> sampledSignalArray; // 16384 samples, no header

    bool operator==(const GVRSignal&) const = default;
};
