// Script and data exports: a MATLAB/Octave script, an importable Python
// module and a JSON object. Integers are written in full whatever the width,
// doubles with 17 significant digits.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "project/coefficient_design.h"

namespace {

// The integers, or the doubles of a Double design, as text.
std::vector<std::string> valueTexts(const CoefficientDesign& d, std::string (*doubleText)(double))
{
    if (!d.isDouble())
        return integerTexts(d.integers);
    std::vector<std::string> out;
    for (double v : d.coefficients)
        out.push_back(doubleText(v));
    return out;
}

// Python reads "1" as an int: a double keeps a decimal point.
std::string pythonFloat(double v)
{
    std::string text = exactDouble(v);
    if (text.find_first_of(".en") == std::string::npos)
        text += ".0";
    return text;
}

// JSON has no NaN or infinity.
std::string jsonNumber(double v)
{
    return std::isfinite(v) ? exactDouble(v) : "null";
}

std::string jsonString(const std::string& utf8)
{
    std::string out = "\"";
    for (const char c : utf8) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (u < 0x20) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\u%04x", u);
            out += buf;
        } else {
            out += c;
        }
    }
    return out + '"';
}

std::string jsonArray(const std::vector<std::string>& values, std::size_t perLine)
{
    return "[\n" + valueRows(values, perLine, "    ") + "\n  ]";
}

std::vector<std::string> doubleTexts(const std::vector<double>& values)
{
    std::vector<std::string> out;
    for (double v : values)
        out.push_back(jsonNumber(v));
    return out;
}

} // namespace

std::string matlabText(const CoefficientDesign& d)
{
    std::string out = commentHeader(d, "%", "double");
    if (d.isDouble())
        out += "% q holds the double coefficients and scale is 1, so b = q.\n";
    out += "q = [ ...\n" + valueRows(valueTexts(d, exactDouble), d.isDouble() ? 4 : 8, "    ", ", ...\n") +
           " ...\n];\n";
    out += "scale = " + exactDouble(d.scale) + ";\n";
    out += "b = q / scale;\n";
    return out;
}

std::string pythonText(const CoefficientDesign& d)
{
    std::string out = commentHeader(d, "#", "int");
    out += "\"\"\"FIR coefficients: COEFFICIENTS[n] / SCALE is tap n.\"\"\"\n\n";
    out += "TAPS = " + std::to_string(d.taps) + '\n';
    out += "SCALE = " + pythonFloat(d.scale) + '\n';
    out +=
        "COEFFICIENTS = (\n" + valueRows(valueTexts(d, pythonFloat), d.isDouble() ? 4 : 8, "    ") + ",\n)\n";
    return out;
}

std::string jsonText(const CoefficientDesign& d)
{
    std::string out = "{\n";
    out += "  \"name\": " + jsonString(d.utf8Name) + ",\n";
    out += "  \"taps\": " + std::to_string(d.taps) + ",\n";
    out += "  \"bits\": " + (d.isDouble() ? std::string("null") : std::to_string(d.bits)) + ",\n";
    out +=
        "  \"integers\": " + (d.isDouble() ? std::string("null") : jsonArray(integerTexts(d.integers), 8)) +
        ",\n";
    out += "  \"coefficients\": " + jsonArray(doubleTexts(d.coefficients), 4) + ",\n";
    out += "  \"precisionCoefficients\": " + jsonArray(doubleTexts(d.precisionCoefficients), 4) + ",\n";
    out += "  \"scale\": " + (d.isDouble() ? std::string("null") : jsonNumber(d.scale)) + ",\n";
    out += "  \"design\": {\n";
    out += "    \"units\": " + std::to_string(d.units) + ",\n";
    out += "    \"filterType\": " + std::to_string(d.filterType) + ",\n";
    out += "    \"samplingFreq\": " + jsonNumber(d.samplingFreq) + ",\n";
    out += "    \"cutoffFreq\": " + jsonNumber(d.cutoffFreq) + ",\n";
    out += "    \"centerFreq\": " + jsonNumber(d.centerFreq) + ",\n";
    out += "    \"filterLength\": " + jsonNumber(d.filterLength) + ",\n";
    out += "    \"filterWidth\": " + std::to_string(d.filterWidth) + ",\n";
    out += "    \"windowType\": " + std::to_string(d.windowType) + ",\n";
    out += "    \"betaUpsilon\": " + jsonNumber(d.betaUpsilon) + "\n";
    out += "  }\n}\n";
    return out;
}
