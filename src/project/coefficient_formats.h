// Coefficient export formats beyond the one-line CSV: C headers, CMSIS-DSP
// tables, Xilinx COE, Intel MIF, Verilog and VHDL ROMs, MATLAB/Octave and
// Python scripts and JSON. Pure text generation from a saved filter record:
// deterministic (no dates, no paths), "\n" line ends.
#pragma once

#include <optional>
#include <span>

#include <QByteArray>
#include <QString>

struct GVRFilter;

enum class CoefficientFormat { Csv, C, Cmsis, Coe, Mif, Verilog, Vhdl, Matlab, Python, Json };

struct CoefficientFormatInfo {
    CoefficientFormat format;
    const char* name;      // as --format takes it: "csv", "c", "cmsis", ...
    const char* extension; // with its dot: ".csv", ".h", ...
    const char* title;     // the export window's Format pop-up item
};

// Every format, CSV first (the default).
std::span<const CoefficientFormatInfo> coefficientFormats();
const CoefficientFormatInfo& coefficientFormatInfo(CoefficientFormat format);
// The format of a --format name (case-insensitive); nothing for an unknown name.
std::optional<CoefficientFormat> coefficientFormatNamed(const QString& name);
// The format OUT's extension chooses; CSV for any other extension. ".h" means
// the plain C header (CMSIS is chosen by name only).
CoefficientFormat coefficientFormatForPath(const QString& path);

// c, matlab, python and json also write the doubles of a Double design.
bool coefficientFormatTakesDoubles(CoefficientFormat format);

// Choices that only some formats use.
struct CoefficientExportOptions {
    // CMSIS: the block size the state-buffer comment is worked out for.
    int cmsisBlockSize = 32;
};

// An identifier from a design name: ASCII letters, digits and "_"; any other
// character becomes "_", runs of "_" collapse to one, no "_" at either end,
// and a leading digit gets an "f_" prefix. "filter" when nothing is left.
QString coefficientIdentifier(const QString& designName);

// The whole file text of `record` (the design called `designName`) in
// `format`, or nothing with the reason in `error`: a Double design for the
// fixed-point formats, integers wider than the design's width for the
// fixed-width ones, an incomplete or inconsistent record. CSV is the
// export's own one-line text.
std::optional<QByteArray> coefficientFileText(CoefficientFormat format, const QString& designName,
                                              const GVRFilter& record,
                                              const CoefficientExportOptions& options = {},
                                              QString* error = nullptr);
