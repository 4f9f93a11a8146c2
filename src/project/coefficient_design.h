// What every coefficient format writer starts from: a filter record checked
// once and turned into the values, the identifier, the scale and the lines of
// the comment header. Internal to the coefficient export.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "project/coefficient_formats.h"

struct CoefficientDesign {
    std::string name;       // the design name, printable ASCII ("?" for anything else)
    std::string utf8Name;   // the design name as it is
    std::string identifier; // coefficientIdentifier() of the name
    std::string upper;      // the identifier in upper case, for macros
    std::size_t taps = 0;
    int bits = 0;                       // the design's width; 0 for a Double design
    int bitsNeeded = 0;                 // the smallest two's-complement width holding every integer
    std::vector<std::int64_t> integers; // empty for a Double design
    std::vector<double> coefficients;
    std::vector<double> precisionCoefficients;
    double scale = 1.0; // coefficient = integer / scale; 1 for a Double design
    // The nine design parameters, with the frequencies as they were typed.
    std::int64_t units = 0, filterType = 0, filterWidth = 0, windowType = 0;
    double samplingFreq = 0, cutoffFreq = 0, centerFreq = 0, filterLength = 0, betaUpsilon = 0;
    // The comment header's lines, without any comment marker.
    std::vector<std::string> header;

    bool isDouble() const { return bits == 0; }
    // The integers need more bits than the design's width.
    bool widerThanWidth() const { return !isDouble() && bitsNeeded > bits; }
};

// "%.17g": every double survives the round trip.
std::string exactDouble(double value);
// The header lines, each behind `marker` and a blank, ending in "\n". When the
// integers are wider than the design's width, a last line says that `holder`
// (the type the format writes them as) holds them.
std::string commentHeader(const CoefficientDesign& design, const std::string& marker,
                          const std::string& holder = {});
// Values joined by ", ", `perLine` to a line, each line behind `indent`; lines
// after the first follow `lineEnd` (", " then newline by default).
std::string valueRows(const std::vector<std::string>& values, std::size_t perLine, const std::string& indent,
                      const std::string& lineEnd = ",\n");
std::vector<std::string> integerTexts(const std::vector<std::int64_t>& values);

// One writer per format family; each assumes the checks its family needs were made.
std::string cHeaderText(const CoefficientDesign& design);
std::string cmsisHeaderText(const CoefficientDesign& design, int blockSize);
std::string coeText(const CoefficientDesign& design);
std::string mifText(const CoefficientDesign& design);
std::string verilogText(const CoefficientDesign& design);
std::string vhdlText(const CoefficientDesign& design);
std::string matlabText(const CoefficientDesign& design);
std::string pythonText(const CoefficientDesign& design);
std::string jsonText(const CoefficientDesign& design);
