// GVRProject: the nine choices of a saved project, as archived in a ".orvana" file.
// A project stores design names only, never samples or coefficients.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

struct GVRProject {
    std::optional<std::int64_t> blockDiagramNumber;
    std::optional<std::int64_t> signalOneSign;
    std::optional<std::int64_t> signalTwoSign;
    std::optional<std::int64_t> multirateL;
    std::optional<std::int64_t> multirateM;
    std::optional<std::int64_t> multirateFilterType;
    std::optional<std::string> filterName;
    std::optional<std::string> signalOneName;
    std::optional<std::string> signalTwoName;

    bool operator==(const GVRProject&) const = default;
};
