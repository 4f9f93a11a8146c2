// Records with awkward values and a look at our files through Python's plistlib.
#pragma once

#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstdint>
#include <limits>
#include <numbers>
#include <optional>
#include <vector>

#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include "archive/filter_record.h"
#include "archive/project_record.h"
#include "archive/signal_record.h"
#include "support/reference_python.h"

namespace archive_test {

inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// A NaN with a payload, to show NaNs are kept bit for bit.
inline double payloadNaN()
{
    return std::bit_cast<double>(std::uint64_t(0x7FF800000000BEEFull));
}

// Every field set; values a naive writer would lose.
inline GVRFilter awkwardFilter()
{
    GVRFilter f;
    f.filterName = "Band pass “µ” 50 taps";
    f.filterType = 1;
    f.windowType = 10;
    f.filterWidth = std::numeric_limits<std::int64_t>::max();
    f.unitsType = std::numeric_limits<std::int64_t>::min();
    f.dfThetaSamplingFreq = 48.0;
    f.dfFilterLengthN = 7.0;
    f.dfBetaUpsilon = -0.0;
    f.dfThetaCutoffFreqNormalized = 0.7;
    f.dfThetaCenterFreqNormalized = 0.1;  // not exact in binary
    f.dfGimeldbLow = kNaN;
    f.dfGimeldbHigh = -1.0;
    f.dfGimeldbBandwidth = kInf;
    f.dfPassbandRipple = -kInf;
    f.dfDynamicRange = 5e-324;  // smallest subnormal
    f.dfDynamicRangeError = std::numeric_limits<double>::max();
    f.integerCoefficients = std::vector<std::int64_t>{0, -1, 1, 131071, -131072, 0, 255};
    f.filterCoefficients = std::vector<double>{0.0, -0.0, 1.0 / 3.0, 1e-300, payloadNaN(), 0.0, 1.5};
    f.filterPrecisionCoefficients = std::vector<double>{1.0, 1.0, 2.0, -2.0, 0.25, 0.25, 0.0};
    return f;
}

inline GVRSignal awkwardSignal()
{
    GVRSignal s;
    s.samplingFreq = 300.0;
    s.yStepIndex = 3.0;
    s.freqUnits = 0;
    s.voltUnits = 1;
    s.parm1 = 35.0;
    s.parm2 = -0.0;
    s.parm3 = kNaN;
    s.parm4 = kInf;
    s.parm5 = 1e308;
    s.parm6 = 0.1;
    s.maxAmplitude = 1.0;
    s.minAmplitude = -1.0;
    s.maxFreq = 35.0;
    std::vector<double> samples(16384);
    for (std::size_t k = 0; k < samples.size(); ++k)
        samples[k] = std::cos(2.0 * std::numbers::pi * 35.0 * double(k) / 300.0);
    samples[1] = -0.0;
    samples[2] = kNaN;
    samples[3] = -kInf;
    samples[16383] = 5e-324;
    s.sampledSignalArray = samples;
    return s;
}

inline GVRProject awkwardProject()
{
    GVRProject p;
    p.blockDiagramNumber = 2;
    p.signalOneSign = 0;
    p.signalTwoSign = 1;
    p.multirateL = 3;
    p.multirateM = -2;
    p.multirateFilterType = 1;
    p.filterName = "lp300fc25";
    p.signalOneName = "Cos10M3Fs300";
    p.signalTwoName = "Ωmega 😀";
    return p;
}

// Equality bit for bit: NaN payloads count, 0.0 differs from -0.0.
inline bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
template <typename T>
bool sameBits(const std::optional<T>& a, const std::optional<T>& b)
{
    if (a.has_value() != b.has_value())
        return false;
    if (!a)
        return true;
    if constexpr (std::is_same_v<T, double>)
        return sameBits(*a, *b);
    else if constexpr (std::is_same_v<T, std::vector<double>>) {
        if (a->size() != b->size())
            return false;
        for (std::size_t i = 0; i < a->size(); ++i) {
            if (!sameBits((*a)[i], (*b)[i]))
                return false;
        }
        return true;
    } else
        return *a == *b;
}

// A real as Python printed it with float.hex().
inline double fromPythonHex(const QString& text)
{
    return std::strtod(text.toStdString().c_str(), nullptr);
}

// Python's reading of a file (tests/reference/archive_check.py), or an empty
// object with the failure in `error`.
inline QJsonObject pythonView(const QString& path, QString* error)
{
    const auto out = reference::runPython(QStringLiteral("archive_check.py"), {path}, {}, error);
    if (!out)
        return {};
    return QJsonDocument::fromJson(*out).object();
}

}  // namespace archive_test
