// FPGA exports: Xilinx COE and Intel MIF memory files, a Verilog-2001 ROM
// module and a VHDL package. All hold the integers at the design's width.
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "project/coefficient_design.h"

namespace {

// Address bits that count 0 .. taps-1 (at least one).
int addressBits(std::size_t taps)
{
    int bits = 1;
    while ((std::size_t{1} << bits) < taps)
        ++bits;
    return bits;
}

std::string hex(std::uint64_t v)
{
    char buf[24];
    std::snprintf(buf, sizeof buf, "%llx", static_cast<unsigned long long>(v));
    return buf;
}

} // namespace

std::string coeText(const CoefficientDesign& d)
{
    std::string out = commentHeader(d, ";");
    out += "radix=10;\ncoefdata=\n";
    for (std::size_t i = 0; i < d.taps; ++i)
        out += std::to_string(d.integers[i]) + (i + 1 < d.taps ? ",\n" : ";\n");
    return out;
}

std::string mifText(const CoefficientDesign& d)
{
    std::string out = commentHeader(d, "--");
    out += "\nWIDTH=" + std::to_string(d.bits) + ";\nDEPTH=" + std::to_string(d.taps) + ";\n\n";
    out += "ADDRESS_RADIX=UNS;\nDATA_RADIX=DEC;\n\nCONTENT BEGIN\n";
    for (std::size_t i = 0; i < d.taps; ++i)
        out += "    " + std::to_string(i) + " : " + std::to_string(d.integers[i]) + ";\n";
    out += "END;\n";
    return out;
}

std::string verilogText(const CoefficientDesign& d)
{
    const int a = addressBits(d.taps);
    const std::string bits = std::to_string(d.bits);
    const std::string addr = std::to_string(a);
    std::string out = commentHeader(d, "//");
    out += "// A combinational ROM: coef is the integer tap at addr, 0 past the last tap.\n\n";
    out += "module " + d.identifier + "_rom #(\n    parameter TAPS = " + std::to_string(d.taps) + "\n) (\n";
    out += "    input wire [" + std::to_string(a - 1) + ":0] addr,\n";
    out += "    output reg signed [" + std::to_string(d.bits - 1) + ":0] coef\n);\n\n";
    out += "    always @(*) begin\n        case (addr)\n";
    for (std::size_t i = 0; i < d.taps; ++i) {
        const std::int64_t v = d.integers[i];
        std::string literal = (v < 0 ? "-" : "") + bits + "'sd" + std::to_string(v < 0 ? -v : v);
        // The most negative value has no positive twin at this width: its bit pattern instead.
        if (v == -(std::int64_t{1} << (d.bits - 1)))
            literal = bits + "'sh" + hex(static_cast<std::uint64_t>(-v));
        out += "            " + addr + "'d" + std::to_string(i) + ": coef = " + literal + ";\n";
    }
    out += "            default: coef = " + bits + "'sd0;\n";
    out += "        endcase\n    end\n\nendmodule\n";
    return out;
}

std::string vhdlText(const CoefficientDesign& d)
{
    const std::int64_t top = (std::int64_t{1} << (d.bits - 1)) - 1;
    const std::string id = d.identifier;
    std::string out = commentHeader(d, "--");
    out += "\npackage " + id + "_pkg is\n";
    out += "    constant " + id + "_taps : positive := " + std::to_string(d.taps) + ";\n";
    out += "    subtype " + id + "_coef_t is integer range " + std::to_string(-top - 1) + " to " +
           std::to_string(top) + ";\n";
    out += "    type " + id + "_array_t is array (0 to " + id + "_taps - 1) of " + id + "_coef_t;\n";
    out += "    constant " + id + "_coefficients : " + id + "_array_t := (\n";
    // A one-element aggregate must name its index; otherwise it reads as a bracketed value.
    if (d.taps == 1)
        out += "        0 => " + std::to_string(d.integers[0]);
    else
        out += valueRows(integerTexts(d.integers), 8, "        ");
    out += "\n    );\nend package " + id + "_pkg;\n";
    return out;
}
