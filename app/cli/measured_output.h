// The measured analysis, the mask result and the word-length sweep of a
// filter design as JSON objects and as readable lines, shared by the filter
// and sweep verbs of orvana-cli.
#pragma once

#include "cli/json_writer.h"

#include <QString>

class GVRFilterDesignerModel;

namespace cli {

// Exit status of a design that was made but whose results are not valid (a mask missed).
inline constexpr int kDesignedNotValid = 3;

// {"referenceGainDb", "peakFrequency", "edges3dB", "edges6dB", ...}; frequencies normalised.
void writeMeasuredJson(JsonWriter& json, const GVRFilterDesignerModel& model);
// {"method", "taps", "beta" (Kaiser), "met", "passbandRippleDb", "stopbandAttenuationDb", "worstFrequency"}.
void writeMaskJson(JsonWriter& json, const GVRFilterDesignerModel& model);
// {"rows": [{"bits", "stopbandAttenuationDb", "passbandRippleDb", "bitsNeeded"}, ...]}.
void writeSweepJson(JsonWriter& json, const GVRFilterDesignerModel& model);

QString measuredText(const GVRFilterDesignerModel& model);
QString maskText(const GVRFilterDesignerModel& model);
QString sweepText(const GVRFilterDesignerModel& model);

} // namespace cli
