// The format table, identifiers, the checks every format shares and the
// comment header; the writers live in one file per format family.
#include "project/coefficient_formats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include <QFileInfo>

#include "archive/filter_record.h"
#include "filter/inspector_filt_model.h"
#include "project/coefficient_design.h"
#include "project/fir_export_model.h"

namespace {

constexpr std::array<CoefficientFormatInfo, 10> kFormats{{
    {CoefficientFormat::Csv, "csv", ".csv", "CSV (.csv)"},
    {CoefficientFormat::C, "c", ".h", "C header (.h)"},
    {CoefficientFormat::Cmsis, "cmsis", ".h", "CMSIS-DSP table (.h)"},
    {CoefficientFormat::Coe, "coe", ".coe", "Xilinx COE (.coe)"},
    {CoefficientFormat::Mif, "mif", ".mif", "Intel MIF (.mif)"},
    {CoefficientFormat::Verilog, "verilog", ".v", "Verilog ROM (.v)"},
    {CoefficientFormat::Vhdl, "vhdl", ".vhd", "VHDL package (.vhd)"},
    {CoefficientFormat::Matlab, "matlab", ".m", "MATLAB/Octave script (.m)"},
    {CoefficientFormat::Python, "python", ".py", "Python module (.py)"},
    {CoefficientFormat::Json, "json", ".json", "JSON (.json)"},
}};

// Formats whose values have the design's exact width: they need integers that fit it.
bool isFixedWidth(CoefficientFormat format)
{
    return format == CoefficientFormat::Cmsis || format == CoefficientFormat::Coe ||
           format == CoefficientFormat::Mif || format == CoefficientFormat::Verilog ||
           format == CoefficientFormat::Vhdl;
}

// Two's-complement bits that hold v.
int bitsFor(std::int64_t v)
{
    const std::uint64_t magnitude =
        v < 0 ? static_cast<std::uint64_t>(-(v + 1)) : static_cast<std::uint64_t>(v);
    int bits = 1;
    while ((magnitude >> (bits - 1)) != 0)
        ++bits;
    return bits;
}

std::string shortNumber(double value)
{
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.10g", value);
    return buf;
}

// Comments carry printable ASCII only, so every tool reads them whatever its
// character set; a line break in a name must not end a comment early.
std::string printableAscii(const QString& text)
{
    std::string out;
    for (const QChar c : text)
        out += (c.unicode() >= 0x20 && c.unicode() < 0x7f) ? static_cast<char>(c.unicode()) : '?';
    return out;
}

template <typename T> bool sameLength(const std::optional<std::vector<T>>& values, std::size_t n)
{
    return values && values->size() == n;
}

// The record checked and prepared, or nothing with the reason.
std::optional<CoefficientDesign> prepare(const QString& designName, const GVRFilter& r, QString* error)
{
    auto fail = [&](const QString& why) -> std::optional<CoefficientDesign> {
        if (error)
            *error = QStringLiteral("The filter design \"%1\" %2").arg(designName, why);
        return std::nullopt;
    };
    if (!r.filterType || !r.windowType || !r.filterWidth || !r.unitsType || !r.dfThetaSamplingFreq ||
        !r.dfFilterLengthN || !r.dfBetaUpsilon || !r.dfThetaCutoffFreqNormalized ||
        !r.dfThetaCenterFreqNormalized)
        return fail(QStringLiteral("lacks some of its design parameters."));
    if (*r.filterType < 0 || *r.filterType > 2 || *r.windowType < 0 || *r.windowType > 10 ||
        *r.filterWidth < 0 || *r.filterWidth > 13 || *r.unitsType < 0 || *r.unitsType > 2)
        return fail(QStringLiteral("holds a type, window, width or units out of range."));
    if (!r.filterCoefficients || r.filterCoefficients->empty())
        return fail(QStringLiteral("holds no coefficients."));
    const std::size_t n = r.filterCoefficients->size();
    if (!sameLength(r.filterPrecisionCoefficients, n) ||
        (*r.filterWidth != 0 && !sameLength(r.integerCoefficients, n)))
        return fail(QStringLiteral("holds coefficient lists of different lengths."));
    for (const auto* list : {&*r.filterCoefficients, &*r.filterPrecisionCoefficients})
        if (!std::all_of(list->begin(), list->end(), [](double v) { return std::isfinite(v); }))
            return fail(QStringLiteral("holds a coefficient that is not a finite number."));

    CoefficientDesign d;
    d.name = printableAscii(designName);
    d.utf8Name = designName.toStdString();
    d.identifier = coefficientIdentifier(designName).toStdString();
    d.upper = coefficientIdentifier(designName).toUpper().toStdString();
    d.taps = n;
    d.coefficients = *r.filterCoefficients;
    d.precisionCoefficients = *r.filterPrecisionCoefficients;
    d.units = *r.unitsType;
    d.filterType = *r.filterType;
    d.filterWidth = *r.filterWidth;
    d.windowType = *r.windowType;
    d.samplingFreq = *r.dfThetaSamplingFreq;
    d.filterLength = *r.dfFilterLengthN;
    d.betaUpsilon = *r.dfBetaUpsilon;
    // The frequencies as typed: the high pass was stored as its complement,
    // and units other than "Norm" scale by half the sampling frequency.
    const double half = d.units != 0 ? d.samplingFreq * 0.5 : 1.0;
    d.cutoffFreq =
        (d.filterType == 2 ? 1.0 - *r.dfThetaCutoffFreqNormalized : *r.dfThetaCutoffFreqNormalized) * half;
    d.centerFreq = *r.dfThetaCenterFreqNormalized * half;

    if (d.filterWidth != 0) {
        d.bits = 21 - static_cast<int>(d.filterWidth);
        d.integers = *r.integerCoefficients;
        constexpr std::int64_t lo = std::numeric_limits<std::int32_t>::min();
        constexpr std::int64_t hi = std::numeric_limits<std::int32_t>::max();
        if (!std::all_of(d.integers.begin(), d.integers.end(),
                         [](std::int64_t v) { return v >= lo && v <= hi; }))
            return fail(QStringLiteral("holds an integer coefficient outside the 32-bit range."));
        d.bitsNeeded = 1;
        for (std::int64_t v : d.integers)
            d.bitsNeeded = std::max(d.bitsNeeded, bitsFor(v));
        // The quantisation maps the largest coefficient to the largest integer,
        // so their ratio takes the integers back to the coefficients.
        const std::int64_t qmax = *std::max_element(d.integers.begin(), d.integers.end());
        const double cmax = *std::max_element(d.coefficients.begin(), d.coefficients.end());
        if (qmax <= 0 || !(cmax > 0.0))
            return fail(QStringLiteral("has no positive coefficient, so no scale maps its integers back."));
        d.scale = static_cast<double>(qmax) / cmax;
    }

    const auto& windows = GVRInspectorFiltModel::windowTypeTitle();
    std::string window = windows.at(static_cast<qsizetype>(d.windowType)).toStdString() + " window";
    if (d.windowType == 9)
        window += " (beta " + shortNumber(d.betaUpsilon) + ")";
    else if (d.windowType == 10)
        window += " (upsilon " + shortNumber(d.betaUpsilon) + ")";
    const std::string type =
        GVRInspectorFiltModel::filterTypeTitle().at(static_cast<qsizetype>(d.filterType)).toStdString();
    const std::string width = d.isDouble() ? "Double coefficients" : std::to_string(d.bits) + "-bit integers";
    d.header.push_back("Orvana FIR coefficients of the filter design \"" + d.name + "\"");
    d.header.push_back(type + ", " + window + ", N = " + std::to_string(n) + ", " + width);
    const std::string unused = " (not used)";
    const std::string units =
        d.units == 0
            ? "Units Norm (1.0 = half the sampling frequency)"
            : "Units " +
                  GVRInspectorFiltModel::unitsFieldTitle().at(static_cast<qsizetype>(d.units)).toStdString();
    d.header.push_back(units + ": cutoff " + shortNumber(d.cutoffFreq) + ", centre " +
                       shortNumber(d.centerFreq) + (d.filterType == 1 ? "" : unused) +
                       ", sampling frequency " + shortNumber(d.samplingFreq) + (d.units == 0 ? unused : ""));
    d.header.push_back(d.isDouble()
                           ? "Scale 1: the values are the double coefficients, to 17 significant digits"
                           : "Scale " + exactDouble(d.scale) + ": coefficient = integer / scale");
    return d;
}

} // namespace

std::span<const CoefficientFormatInfo> coefficientFormats()
{
    return kFormats;
}

const CoefficientFormatInfo& coefficientFormatInfo(CoefficientFormat format)
{
    return kFormats.at(static_cast<std::size_t>(format));
}

std::optional<CoefficientFormat> coefficientFormatNamed(const QString& name)
{
    for (const CoefficientFormatInfo& info : kFormats)
        if (name.compare(QLatin1String(info.name), Qt::CaseInsensitive) == 0)
            return info.format;
    return std::nullopt;
}

CoefficientFormat coefficientFormatForPath(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix();
    if (suffix.isEmpty())
        return CoefficientFormat::Csv;
    const QString extension = u'.' + suffix;
    for (const CoefficientFormatInfo& info : kFormats)
        if (info.format != CoefficientFormat::Cmsis &&
            extension.compare(QLatin1String(info.extension), Qt::CaseInsensitive) == 0)
            return info.format;
    return CoefficientFormat::Csv;
}

bool coefficientFormatTakesDoubles(CoefficientFormat format)
{
    return format == CoefficientFormat::C || format == CoefficientFormat::Matlab ||
           format == CoefficientFormat::Python || format == CoefficientFormat::Json;
}

QString coefficientIdentifier(const QString& designName)
{
    QString id;
    for (const QChar c : designName) {
        const char16_t u = c.unicode();
        const bool keep = (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9');
        if (keep)
            id += c;
        else if (!id.isEmpty() && !id.endsWith(u'_'))
            id += u'_'; // nothing at the start: VHDL identifiers begin with a letter
    }
    while (id.endsWith(u'_'))
        id.chop(1);
    if (id.isEmpty())
        return QStringLiteral("filter");
    if (id.front().isDigit())
        id.prepend(QStringLiteral("f_"));
    return id;
}

std::optional<QByteArray> coefficientFileText(CoefficientFormat format, const QString& designName,
                                              const GVRFilter& record,
                                              const CoefficientExportOptions& options, QString* error)
{
    const std::string formatName = coefficientFormatInfo(format).name;
    if (format == CoefficientFormat::Csv) {
        if (record.filterWidth == 0) {
            if (error)
                *error = GVRFirExportModel::integerWidthAlert();
            return std::nullopt;
        }
        if (!record.integerCoefficients || record.integerCoefficients->empty()) {
            if (error)
                *error =
                    QStringLiteral("The filter design \"%1\" holds no integer coefficients.").arg(designName);
            return std::nullopt;
        }
        return GVRFirExportModel::coefficientText(*record.integerCoefficients);
    }
    std::optional<CoefficientDesign> design = prepare(designName, record, error);
    if (!design)
        return std::nullopt;
    if (isFixedWidth(format) && design->isDouble()) {
        if (error)
            *error =
                QStringLiteral("The filter design \"%1\" has Double coefficients and no integers: the %2 "
                               "format holds integers only (c, matlab, python and json write doubles).")
                    .arg(designName, QString::fromStdString(formatName));
        return std::nullopt;
    }
    if (isFixedWidth(format) && design->widerThanWidth()) {
        if (error)
            *error =
                QStringLiteral("The integer coefficients of \"%1\" need %2 bits, more than its %3-bit width: "
                               "the %4 format holds %3-bit values only (c, matlab, python and json write "
                               "them in full).")
                    .arg(designName)
                    .arg(design->bitsNeeded)
                    .arg(design->bits)
                    .arg(QString::fromStdString(formatName));
        return std::nullopt;
    }
    std::string text;
    switch (format) {
    case CoefficientFormat::C:
        text = cHeaderText(*design);
        break;
    case CoefficientFormat::Cmsis:
        text = cmsisHeaderText(*design, std::max(1, options.cmsisBlockSize));
        break;
    case CoefficientFormat::Coe:
        text = coeText(*design);
        break;
    case CoefficientFormat::Mif:
        text = mifText(*design);
        break;
    case CoefficientFormat::Verilog:
        text = verilogText(*design);
        break;
    case CoefficientFormat::Vhdl:
        text = vhdlText(*design);
        break;
    case CoefficientFormat::Matlab:
        text = matlabText(*design);
        break;
    case CoefficientFormat::Python:
        text = pythonText(*design);
        break;
    case CoefficientFormat::Json:
        text = jsonText(*design);
        break;
    case CoefficientFormat::Csv:
        break;
    }
    return QByteArray::fromStdString(text);
}

std::string exactDouble(double value)
{
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.17g", value);
    return buf;
}

std::string commentHeader(const CoefficientDesign& design, const std::string& marker,
                          const std::string& holder)
{
    std::string out;
    for (const std::string& line : design.header)
        out += marker + ' ' + line + '\n';
    if (design.widerThanWidth() && !holder.empty())
        out += marker + " The integers need " + std::to_string(design.bitsNeeded) + " bits, more than the " +
               std::to_string(design.bits) + "-bit width: " + holder + " holds them\n";
    return out;
}

std::string valueRows(const std::vector<std::string>& values, std::size_t perLine, const std::string& indent,
                      const std::string& lineEnd)
{
    std::string out;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i % perLine == 0)
            out += (i == 0 ? "" : lineEnd) + indent;
        else
            out += ", ";
        out += values[i];
    }
    return out;
}

std::vector<std::string> integerTexts(const std::vector<std::int64_t>& values)
{
    std::vector<std::string> out;
    out.reserve(values.size());
    for (std::int64_t v : values)
        out.push_back(std::to_string(v));
    return out;
}
