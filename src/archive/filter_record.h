// GVRFilter: one saved filter design, as archived in a ".filt" file.
// Every property may be absent, as an unset object property would be.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct GVRFilter {
    std::optional<std::string> filterName; // never set by the designer: archived as null
    std::optional<std::int64_t> filterType;
    std::optional<std::int64_t> windowType;
    std::optional<std::int64_t> filterWidth;
    std::optional<std::int64_t> unitsType;
    std::optional<double> dfThetaSamplingFreq;
    std::optional<double> dfFilterLengthN;
    std::optional<double> dfBetaUpsilon;
    std::optional<double> dfThetaCutoffFreqNormalized;
    std::optional<double> dfThetaCenterFreqNormalized;
    std::optional<double> dfGimeldbLow;
    std::optional<double> dfGimeldbHigh;
    std::optional<double> dfGimeldbBandwidth;
    std::optional<double> dfPassbandRipple;
    std::optional<double> dfDynamicRange;
    std::optional<double> dfDynamicRangeError;
    std::optional<std::vector<std::int64_t>> integerCoefficients;
    std::optional<std::vector<double>> filterCoefficients;
    std::optional<std::vector<double>> filterPrecisionCoefficients;
    // A design made from a tolerance mask; absent in a window design. Frequencies normalised;
    // the second edges belong to a band pass.
    std::optional<std::int64_t> designMethod; // 0 window method, 1 equiripple
    std::optional<double> dfMaskPassbandEdge;
    std::optional<double> dfMaskPassbandEdge2;
    std::optional<double> dfMaskStopbandEdge;
    std::optional<double> dfMaskStopbandEdge2;
    std::optional<double> dfMaskRipple;
    std::optional<double> dfMaskAttenuation;

    bool operator==(const GVRFilter&) const = default;
};
