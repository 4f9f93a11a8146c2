// Where the project model's time and frequency arrays keep their parts: two
// eight-number headers (input, output), then the input's and the output's
// values. A stage of the multirate model is one record in the signal layout:
// its header, then its values from index 8.
#pragma once

namespace projectarrays {

inline constexpr int kInputHeader = 0;
inline constexpr int kOutputHeader = 8;
inline constexpr int kInputSamples = 16;
inline constexpr int kOutputSamples = 16400;
inline constexpr int kInputBins = 16;
inline constexpr int kOutputBins = 8208;
inline constexpr int kSingleRecordHeader = 0;
inline constexpr int kSingleRecordFirst = 8;

} // namespace projectarrays
