// Archive test helpers: records with awkward values, Python's plistlib view
// of a file, and binary property lists assembled by hand, good or broken
// (every trailer field can be overridden, objects can refer to anything).
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

#include "archive/filter_record.h"
#include "archive/project_record.h"
#include "archive/signal_record.h"
#include "support/reference_python.h"

namespace archive_test {

inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Every field set; values a naive writer would lose (a NaN payload, -0.0,
// a subnormal, 0.1, the int64 extremes).
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
    f.dfThetaCenterFreqNormalized = 0.1;
    f.dfGimeldbLow = kNaN;
    f.dfGimeldbHigh = -1.0;
    f.dfGimeldbBandwidth = kInf;
    f.dfPassbandRipple = -kInf;
    f.dfDynamicRange = 5e-324;
    f.dfDynamicRangeError = std::numeric_limits<double>::max();
    f.integerCoefficients = std::vector<std::int64_t>{0, -1, 1, 131071, -131072, 0, 255};
    const double payloadNaN = std::bit_cast<double>(std::uint64_t(0x7FF800000000BEEFull));
    f.filterCoefficients = std::vector<double>{0.0, -0.0, 1.0 / 3.0, 1e-300, payloadNaN, 0.0, 1.5};
    f.filterPrecisionCoefficients = std::vector<double>{1.0, 1.0, 2.0, -2.0, 0.25, 0.25, 0.0};
    return f;
}

inline GVRSignal awkwardSignal()
{
    GVRSignal s{300.0, 3.0, 0, 1, 35.0, -0.0, kNaN, kInf, 1e308, 0.1, 1.0, -1.0, 35.0, {}};
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
    return GVRProject{2, 0, 1, 3, -2, 1, "lp300fc25", "Cos10M3Fs300", "Ωmega 😀"};
}

inline bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// A real as Python printed it with float.hex().
inline double fromPythonHex(const QJsonValue& text)
{
    return std::strtod(text.toString().toStdString().c_str(), nullptr);
}

// Python's reading of a file (tests/reference/archive_check.py), or an empty
// object with the failure in `error`.
inline QJsonObject pythonView(const QString& path, QString* error)
{
    const auto out = reference::runPython(QStringLiteral("archive_check.py"), {path}, {}, error);
    return out ? QJsonDocument::fromJson(*out).object() : QJsonObject{};
}

// Trailer fields to override; unset ones are computed.
struct BplistTrailer {
    std::optional<unsigned> offsetSize = {}, refSize = {};
    std::optional<std::uint64_t> objectCount = {}, top = {}, tableOffset = {};
};

class BplistBuilder {
public:
    static QByteArray bigEndian(std::uint64_t value, unsigned width)
    {
        QByteArray out;
        for (unsigned i = width; i-- > 0;)
            out.append(char(i >= 8 ? 0 : (value >> (8 * i)) & 0xFF)); // widths over 8 get leading zeros
        return out;
    }
    static unsigned width(std::uint64_t v)
    {
        return v <= 0xFF ? 1 : v <= 0xFFFF ? 2 : v <= 0xFFFFFFFFu ? 4 : 8;
    }
    static QByteArray integerBytes(std::uint64_t v)
    {
        return QByteArray(1, char(0x10 | std::countr_zero(width(v)))) + bigEndian(v, width(v));
    }
    // Marker byte with the count in its low nibble or in a following integer.
    static QByteArray head(unsigned high, std::uint64_t count)
    {
        return count < 15 ? QByteArray(1, char((high << 4) | count))
                          : QByteArray(1, char((high << 4) | 0x0F)) + integerBytes(count);
    }

    // Each adder answers the new object's index. `refs` are written at the
    // reference size after `head`.
    int add(const QByteArray& head, std::vector<std::uint64_t> refs = {})
    {
        objects_.push_back({head, std::move(refs)});
        return int(objects_.size() - 1);
    }
    int hex(const char* bytes) { return add(QByteArray::fromHex(bytes)); }
    int integer(std::int64_t v)
    {
        return add(v >= 0 ? integerBytes(std::uint64_t(v))
                          : QByteArray(1, 0x13) + bigEndian(std::uint64_t(v), 8));
    }
    int real(double v) { return add(QByteArray(1, 0x23) + bigEndian(std::bit_cast<std::uint64_t>(v), 8)); }
    int uid(std::uint64_t v)
    {
        return add(QByteArray(1, char(0x80 | (width(v) - 1))) + bigEndian(v, width(v)));
    }
    int ascii(const std::string& text)
    {
        return add(head(0x5, text.size()) + QByteArray::fromStdString(text));
    }
    int array(const std::vector<std::uint64_t>& refs) { return add(head(0xA, refs.size()), refs); }
    // A dictionary with string keys made on the spot.
    int dict(const std::vector<std::pair<std::string, std::uint64_t>>& pairs)
    {
        std::vector<std::uint64_t> refs;
        for (const auto& pair : pairs)
            refs.push_back(std::uint64_t(ascii(pair.first)));
        for (const auto& pair : pairs)
            refs.push_back(pair.second);
        return add(head(0xD, pairs.size()), refs);
    }

    QByteArray build(std::uint64_t top, const BplistTrailer& trailer = {}) const
    {
        const unsigned refSize = trailer.refSize.value_or(width(objects_.size()));
        QByteArray out("bplist00");
        std::vector<std::uint64_t> offsets;
        for (const auto& [head, refs] : objects_) {
            offsets.push_back(std::uint64_t(out.size()));
            out.append(head);
            for (std::uint64_t ref : refs)
                out.append(bigEndian(ref, refSize));
        }
        const auto tableOffset = std::uint64_t(out.size());
        const unsigned offsetSize = trailer.offsetSize.value_or(std::min(width(tableOffset), 4u));
        for (std::uint64_t offset : offsets)
            out.append(bigEndian(offset, offsetSize));
        out.append(QByteArray(6, '\0') + char(offsetSize) + char(refSize));
        out.append(bigEndian(trailer.objectCount.value_or(objects_.size()), 8));
        out.append(bigEndian(trailer.top.value_or(top), 8));
        out.append(bigEndian(trailer.tableOffset.value_or(tableOffset), 8));
        return out;
    }

private:
    std::vector<std::pair<QByteArray, std::vector<std::uint64_t>>> objects_;
};

// A keyed archive assembled object by object: `entry()` appends a property
// list object to $objects and answers its UID.
class KeyedArchiveBuilder {
public:
    KeyedArchiveBuilder() { entry(plist.ascii("$null")); }

    std::uint64_t entry(int object)
    {
        objects_.push_back(std::uint64_t(object));
        return objects_.size() - 1;
    }
    // UID the next entry will get.
    std::uint64_t uidCount() const { return objects_.size(); }
    void setEntry(std::uint64_t uid, int object) { objects_[uid] = std::uint64_t(object); }
    // The $objects array, for tests that assemble the top dictionary themselves.
    int objectsArray() { return plist.array(objects_); }

    std::uint64_t classEntry(const std::string& name)
    {
        const int chain =
            plist.array({std::uint64_t(plist.ascii(name)), std::uint64_t(plist.ascii("NSObject"))});
        return entry(plist.dict(
            {{"$classname", std::uint64_t(plist.ascii(name))}, {"$classes", std::uint64_t(chain)}}));
    }
    // An object dictionary: keys to UIDs, plus "$class".
    int object(const std::vector<std::pair<std::string, std::uint64_t>>& uids, std::uint64_t classUid)
    {
        std::vector<std::pair<std::string, std::uint64_t>> pairs;
        for (const auto& [key, value] : uids)
            pairs.push_back({key, std::uint64_t(plist.uid(value))});
        pairs.push_back({"$class", std::uint64_t(plist.uid(classUid))});
        return plist.dict(pairs);
    }
    // An array object holding the given UIDs.
    int arrayObject(const std::vector<std::uint64_t>& uids, std::uint64_t classUid)
    {
        std::vector<std::uint64_t> refs;
        for (std::uint64_t u : uids)
            refs.push_back(std::uint64_t(plist.uid(u)));
        return plist.dict({{"NS.objects", std::uint64_t(plist.array(refs))},
                           {"$class", std::uint64_t(plist.uid(classUid))}});
    }
    // The archive around $objects; `top` false leaves "$top" out.
    QByteArray build(std::uint64_t rootUid, std::int64_t version = 100000,
                     const std::string& archiver = "NSKeyedArchiver", bool top = true)
    {
        std::vector<std::pair<std::string, std::uint64_t>> root{
            {"$version", std::uint64_t(plist.integer(version))},
            {"$archiver", std::uint64_t(plist.ascii(archiver))},
            {"$objects", std::uint64_t(objectsArray())}};
        if (top)
            root.push_back(
                {"$top", std::uint64_t(plist.dict({{"root", std::uint64_t(plist.uid(rootUid))}}))});
        return plist.build(std::uint64_t(plist.dict(root)));
    }

    BplistBuilder plist;

private:
    std::vector<std::uint64_t> objects_;
};

} // namespace archive_test
