// C exports: a plain header with the taps in index order, and a CMSIS-DSP
// table in the time-reversed order the arm_fir_* functions expect.
#include <string>
#include <vector>

#include "project/coefficient_design.h"

namespace {

// The smallest of int16_t, int32_t that holds the values, never narrower than
// the design's width asks for.
std::string cIntegerType(const CoefficientDesign& d)
{
    return (d.bits > 16 || d.bitsNeeded > 16) ? "int32_t" : "int16_t";
}

std::string guardOpen(const std::string& guard)
{
    return "#ifndef " + guard + "\n#define " + guard + "\n\n";
}

} // namespace

std::string cHeaderText(const CoefficientDesign& d)
{
    const std::string type = d.isDouble() ? "double" : cIntegerType(d);
    std::vector<std::string> values;
    if (d.isDouble()) {
        for (double v : d.coefficients)
            values.push_back(exactDouble(v));
    } else {
        values = integerTexts(d.integers);
    }
    const std::string taps = d.upper + "_TAPS";
    std::string out = commentHeader(d, "//", type);
    out += '\n' + guardOpen(d.upper + "_TAPS_H");
    out += "#include <stdint.h>\n\n";
    out += "#define " + taps + ' ' + std::to_string(d.taps) + '\n';
    out += "/* coefficient = " + d.identifier + "_taps[n] / " + d.upper + "_SCALE */\n";
    out += "#define " + d.upper + "_SCALE " + exactDouble(d.scale) + "\n\n";
    out += "static const " + type + ' ' + d.identifier + "_taps[" + taps + "] = {\n";
    out += valueRows(values, d.isDouble() ? 4 : 8, "    ") + "\n};\n\n";
    out += "#endif /* " + d.upper + "_TAPS_H */\n";
    return out;
}

std::string cmsisHeaderText(const CoefficientDesign& d, int blockSize)
{
    const bool q15 = d.bits <= 16;
    const std::string type = q15 ? "q15_t" : "q31_t";
    const std::string numTaps = d.upper + "_NUM_TAPS";
    // arm_fir_init_q15 takes an even numTaps only. A zero in front of the
    // reversed table is a zero last tap b[N]: the filter and its delay stay the same.
    const bool pad = q15 && d.taps % 2 == 1;
    const std::string tableTaps = pad ? d.upper + "_Q15_TAPS" : numTaps;
    const std::size_t passed = d.taps + (pad ? 1 : 0);

    std::vector<std::string> values;
    if (pad)
        values.emplace_back("0");
    for (std::size_t i = d.taps; i-- > 0;)
        values.push_back(std::to_string(d.integers[i]));

    std::string out = commentHeader(d, "//");
    out += "// CMSIS-DSP table: the integers in time-reversed order, b[N-1] first, as the\n";
    out += "// arm_fir_" + std::string(q15 ? "q15" : "q31") + " functions expect.\n\n";
    out += guardOpen(d.upper + "_CMSIS_H");
    out += "#include \"arm_math.h\"\n\n";
    out += "#define " + numTaps + ' ' + std::to_string(d.taps) + '\n';
    if (pad) {
        out += "/* arm_fir_init_q15 takes an even numTaps: the table starts with one 0 (a zero\n";
        out += "   last tap), so pass " + tableTaps + " as numTaps. */\n";
        out += "#define " + tableTaps + ' ' + std::to_string(passed) + '\n';
    }
    out += "/* State buffer for a block size of " + std::to_string(blockSize) +
           ": numTaps + blockSize - 1 = " + std::to_string(passed) + " + " + std::to_string(blockSize) +
           " - 1 = " + std::to_string(passed + static_cast<std::size_t>(blockSize) - 1) + ' ' + type +
           ". */\n\n";
    out += "static const " + type + ' ' + d.identifier + "_coeffs[" + tableTaps + "] = {\n";
    out += valueRows(values, 8, "    ") + "\n};\n\n";
    out += "#endif /* " + d.upper + "_CMSIS_H */\n";
    return out;
}
