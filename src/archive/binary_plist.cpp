// Strict binary property list reader; see binary_plist.h for why it exists.
#include "archive/binary_plist.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace {

constexpr std::uint64_t kTrailerSize = 32;
constexpr std::uint64_t kHeaderSize = 8;

QString hex(unsigned value)
{
    return QStringLiteral("0x%1").arg(value, 2, 16, QLatin1Char('0'));
}

void fail(QString* reason, const QString& text)
{
    if (reason)
        *reason = text;
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += char(c);
    } else if (c < 0x800) {
        out += char(0xC0 | (c >> 6));
        out += char(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += char(0xE0 | (c >> 12));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    } else {
        out += char(0xF0 | (c >> 18));
        out += char(0x80 | ((c >> 12) & 0x3F));
        out += char(0x80 | ((c >> 6) & 0x3F));
        out += char(0x80 | (c & 0x3F));
    }
}

} // namespace

// Big-endian, 1 to 8 bytes. The common widths read in one load: this is the
// innermost loop of every reference and number.
std::uint64_t BinaryPlist::readUnsigned(std::uint64_t offset, unsigned width) const
{
    const unsigned char* p = data() + offset;
    switch (width) {
    case 1:
        return p[0];
    case 2:
        return (std::uint64_t(p[0]) << 8) | p[1];
    case 4: {
        std::uint32_t v;
        std::memcpy(&v, p, 4);
        return std::endian::native == std::endian::little ? __builtin_bswap32(v) : v;
    }
    case 8: {
        std::uint64_t v;
        std::memcpy(&v, p, 8);
        return std::endian::native == std::endian::little ? __builtin_bswap64(v) : v;
    }
    default:
        break;
    }
    std::uint64_t value = 0;
    for (unsigned i = 0; i < width; ++i)
        value = (value << 8) | p[i];
    return value;
}

const BinaryPlist::Object BinaryPlist::kRefused{0, 0, BinaryPlist::Type::Data, 0, false};

std::uint64_t BinaryPlist::reachOnDemand(std::uint64_t index, bool mustBeString) const
{
    // objectCount_ is never parsed, so object() answers kRefused for it.
    const std::uint64_t refused = objectCount_;
    if (!refusal_.isEmpty())
        return refused;
    if (index < objectCount_ && slots_[index] != 0) {
        if (mustBeString && reached_[slots_[index] - 1].type != Type::String) {
            refusal_ = QStringLiteral("one of its dictionaries has a key that is not a string");
            return refused;
        }
        return index;
    }
    if (index >= objectCount_) {
        refusal_ = QStringLiteral("it refers to object %1, which does not exist").arg(index);
        return refused;
    }
    const std::uint64_t offset = readUnsigned(tableOffset_ + index * offsetSize_, offsetSize_);
    if (offset < kHeaderSize || offset >= tableOffset_) {
        refusal_ = QStringLiteral("object %1 lies outside the object area").arg(index);
        return refused;
    }
    Object parsed;
    std::uint64_t size = 0;
    QString reason;
    if (!parseObject(index, offset, tableOffset_, parsed, size, &reason)) {
        refusal_ = reason.isEmpty() ? QStringLiteral("object %1 is damaged").arg(index) : reason;
        return refused;
    }
    if (mustBeString && parsed.type != Type::String) {
        refusal_ = QStringLiteral("one of its dictionaries has a key that is not a string");
        return refused;
    }
    reached_.push_back(parsed);
    slots_[index] = std::uint32_t(reached_.size());
    return index;
}

std::optional<BinaryPlist> BinaryPlist::parse(const QByteArray& bytes, QString* reason, Scope scope)
{
    const auto length = std::uint64_t(bytes.size());
    if (length == 0) {
        fail(reason, QStringLiteral("the file is empty"));
        return std::nullopt;
    }
    if (bytes.size() > kMaxBytes) {
        fail(reason, QStringLiteral("it is larger than 16 MiB, far more than any design"));
        return std::nullopt;
    }
    const QByteArray start = bytes.left(64).trimmed();
    if (start.startsWith("<?xml") || start.startsWith("<plist") || start.startsWith("<!DOCTYPE")) {
        fail(reason, QStringLiteral("it is an XML property list, and design files are binary ones"));
        return std::nullopt;
    }
    if (!bytes.startsWith("bplist")) {
        fail(reason, QStringLiteral("it is not a binary property list"));
        return std::nullopt;
    }
    if (!bytes.startsWith("bplist00")) {
        fail(reason, QStringLiteral("it is a binary property list of an unknown version"));
        return std::nullopt;
    }
    // Header, one object of at least one byte, one offset, trailer.
    if (length < kHeaderSize + 2 + kTrailerSize) {
        fail(reason, QStringLiteral("it is too short to be a binary property list"));
        return std::nullopt;
    }

    BinaryPlist plist;
    plist.bytes_ = bytes;
    const std::uint64_t trailer = length - kTrailerSize;
    const unsigned offsetSize = plist.data()[trailer + 6];
    const unsigned refSize = plist.data()[trailer + 7];
    const std::uint64_t objectCount = plist.readUnsigned(trailer + 8, 8);
    const std::uint64_t top = plist.readUnsigned(trailer + 16, 8);
    const std::uint64_t tableOffset = plist.readUnsigned(trailer + 24, 8);

    if (offsetSize < 1 || offsetSize > 8) {
        fail(reason, QStringLiteral("its trailer gives an offset size of %1 bytes").arg(offsetSize));
        return std::nullopt;
    }
    if (refSize < 1 || refSize > 8) {
        fail(reason, QStringLiteral("its trailer gives a reference size of %1 bytes").arg(refSize));
        return std::nullopt;
    }
    if (objectCount == 0) {
        fail(reason, QStringLiteral("it declares no objects"));
        return std::nullopt;
    }
    if (tableOffset <= kHeaderSize || tableOffset >= trailer) {
        fail(reason, QStringLiteral("its offset table lies outside the file"));
        return std::nullopt;
    }
    // Division keeps this free of overflow whatever the trailer claims.
    if (objectCount > (trailer - tableOffset) / offsetSize) {
        fail(reason,
             QStringLiteral("it declares %1 objects, more than its offset table holds").arg(objectCount));
        return std::nullopt;
    }
    if (objectCount > kMaxObjects) {
        fail(reason, QStringLiteral("it holds %1 objects, far more than any design").arg(objectCount));
        return std::nullopt;
    }
    if (top >= objectCount) {
        fail(reason, QStringLiteral("its top object is not one of its %1 objects").arg(objectCount));
        return std::nullopt;
    }
    plist.refSize_ = refSize;
    plist.top_ = top;
    plist.objectCount_ = objectCount;
    plist.tableOffset_ = tableOffset;
    plist.offsetSize_ = offsetSize;
    if (scope == Scope::OnDemand) {
        plist.onDemand_ = true;
        // At most kMaxObjects slots; the objects reached are few.
        plist.slots_.assign(objectCount, 0);
        plist.reached_.reserve(64);
        plist.reach(top);
        if (!plist.refusal_.isEmpty()) {
            fail(reason, plist.refusal_);
            return std::nullopt;
        }
        return plist;
    }
    plist.objects_.resize(objectCount);

    // Objects may come in any order, but together they cannot take more room
    // than the object area: that bounds all later work by the file size.
    std::uint64_t used = 0;
    const std::uint64_t area = tableOffset - kHeaderSize;
    for (std::uint64_t i = 0; i < objectCount; ++i) {
        const std::uint64_t offset = plist.readUnsigned(tableOffset + i * offsetSize, offsetSize);
        if (offset < kHeaderSize || offset >= tableOffset) {
            fail(reason, QStringLiteral("object %1 lies outside the object area").arg(i));
            return std::nullopt;
        }
        std::uint64_t size = 0;
        if (!plist.parseObject(i, offset, tableOffset, plist.objects_[i], size, reason))
            return std::nullopt;
        used += size;
        if (used > area) {
            fail(reason, QStringLiteral("its objects overlap one another"));
            return std::nullopt;
        }
    }
    if (!plist.checkContainers(reason) || !plist.checkGraph(reason))
        return std::nullopt;
    return plist;
}

bool BinaryPlist::parseObject(std::uint64_t index, std::uint64_t offset, std::uint64_t limit, Object& out,
                              std::uint64_t& size, QString* reason) const
{
    const unsigned marker = data()[offset];
    const unsigned high = marker >> 4;
    const unsigned low = marker & 0x0F;
    std::uint64_t pos = offset + 1;
    const auto unknown = [&] {
        fail(reason, QStringLiteral("object %1 has the unknown type marker %2").arg(index).arg(hex(marker)));
        return false;
    };
    const auto pastEnd = [&] {
        fail(reason, QStringLiteral("object %1 runs past the end of the object area").arg(index));
        return false;
    };
    // Length of a data, string or container object: in the marker, or an integer after it.
    const auto readCount = [&](std::uint64_t& count) {
        if (low != 0x0F) {
            count = low;
            return true;
        }
        if (pos >= limit)
            return pastEnd();
        const unsigned lengthMarker = data()[pos];
        if ((lengthMarker >> 4) != 0x1 || (lengthMarker & 0x0F) > 3) {
            fail(reason, QStringLiteral("object %1 has a damaged length").arg(index));
            return false;
        }
        const unsigned width = 1u << (lengthMarker & 0x0F);
        if (width > limit - pos - 1)
            return pastEnd();
        count = readUnsigned(pos + 1, width);
        if (width == 8 && (count >> 63) != 0) {
            fail(reason, QStringLiteral("object %1 has a negative length").arg(index));
            return false;
        }
        pos += 1 + width;
        return true;
    };
    // Whole payload of `count` units of `unit` bytes inside the object area.
    const auto takePayload = [&](std::uint64_t count, std::uint64_t unit) {
        if (count > (limit - pos) / unit) {
            fail(reason, QStringLiteral("object %1 claims %2 entries, more than the file holds")
                             .arg(index)
                             .arg(count));
            return false;
        }
        out.payload = pos;
        out.count = count;
        size = pos + count * unit - offset;
        return true;
    };

    switch (high) {
    case 0x0:
        if (marker != 0x08 && marker != 0x09)
            return unknown();
        out.type = Type::Boolean;
        out.value = marker == 0x09;
        out.payload = pos;
        size = 1;
        return true;
    case 0x1:
        if (low == 4) {
            fail(reason, QStringLiteral("object %1 is an integer wider than 64 bits").arg(index));
            return false;
        }
        if (low > 3)
            return unknown();
        out.type = Type::Integer;
        out.width = std::uint8_t(1u << low);
        return takePayload(out.width, 1);
    case 0x2:
        if (low != 2 && low != 3)
            return unknown();
        out.type = Type::Real;
        out.width = std::uint8_t(1u << low);
        return takePayload(out.width, 1);
    case 0x3: {
        if (marker != 0x33)
            return unknown();
        out.type = Type::Date;
        out.width = 8;
        if (!takePayload(8, 1))
            return false;
        const double seconds = std::bit_cast<double>(readUnsigned(out.payload, 8));
        if (!std::isfinite(seconds)) {
            fail(reason, QStringLiteral("object %1 is a date that is not a number").arg(index));
            return false;
        }
        return true;
    }
    case 0x4: {
        std::uint64_t count = 0;
        out.type = Type::Data;
        return readCount(count) && takePayload(count, 1);
    }
    case 0x5: {
        std::uint64_t count = 0;
        out.type = Type::String;
        out.width = 1;
        if (!readCount(count) || !takePayload(count, 1))
            return false;
        for (std::uint64_t i = 0; i < count; ++i) {
            const unsigned c = data()[out.payload + i];
            if (c == 0 || c > 0x7F) {
                fail(reason, QStringLiteral("object %1 is an ASCII string holding the byte %2")
                                 .arg(index)
                                 .arg(hex(c)));
                return false;
            }
        }
        return true;
    }
    case 0x6: {
        std::uint64_t count = 0;
        out.type = Type::String;
        out.width = 2;
        if (!readCount(count) || !takePayload(count, 2))
            return false;
        for (std::uint64_t i = 0; i < count; ++i) {
            const auto unit = readUnsigned(out.payload + 2 * i, 2);
            const bool lead = unit >= 0xD800 && unit <= 0xDBFF;
            const bool trail = unit >= 0xDC00 && unit <= 0xDFFF;
            bool bad = unit == 0 || trail;
            if (lead) {
                bad = i + 1 == count;
                if (!bad) {
                    const auto next = readUnsigned(out.payload + 2 * (i + 1), 2);
                    bad = next < 0xDC00 || next > 0xDFFF;
                    ++i;
                }
            }
            if (bad) {
                fail(reason, QStringLiteral("object %1 is a string with an invalid character").arg(index));
                return false;
            }
        }
        return true;
    }
    case 0x8:
        if (low > 7)
            return unknown();
        out.type = Type::Uid;
        out.width = std::uint8_t(low + 1);
        return takePayload(out.width, 1);
    case 0xA: {
        std::uint64_t count = 0;
        out.type = Type::Array;
        return readCount(count) && takePayload(count, refSize_);
    }
    case 0xD: {
        std::uint64_t count = 0;
        out.type = Type::Dict;
        return readCount(count) && takePayload(count, 2 * std::uint64_t(refSize_));
    }
    default:
        // Sets (0xC) and the unassigned markers: never in a design file.
        return unknown();
    }
}

bool BinaryPlist::checkContainers(QString* reason) const
{
    const std::uint64_t n = objects_.size();
    for (std::uint64_t i = 0; i < n; ++i) {
        const Object& object = objects_[i];
        if (object.type != Type::Array && object.type != Type::Dict)
            continue;
        const std::uint64_t refs = object.type == Type::Dict ? 2 * object.count : object.count;
        for (std::uint64_t k = 0; k < refs; ++k) {
            const std::uint64_t target = ref(object.payload, k);
            if (target >= n) {
                fail(
                    reason,
                    QStringLiteral("object %1 refers to object %2, which does not exist").arg(i).arg(target));
                return false;
            }
            if (object.type == Type::Dict && k < object.count && objects_[target].type != Type::String) {
                fail(reason,
                     QStringLiteral("object %1 is a dictionary with a key that is not a string").arg(i));
                return false;
            }
        }
    }
    return true;
}

// Depth-first walk from the top object with an explicit stack. Heights
// (longest path down) are computed once per object, so shared objects cost
// nothing extra and the longest path is found exactly.
bool BinaryPlist::checkGraph(QString* reason) const
{
    enum : std::uint8_t { White, Grey, Black };
    std::vector<std::uint8_t> colour(objects_.size(), White);
    std::vector<std::uint16_t> height(objects_.size(), 1);
    struct Frame {
        std::uint64_t node;
        std::uint64_t next;
    };
    std::vector<Frame> stack;
    stack.push_back({top_, 0});
    colour[top_] = Grey;
    while (!stack.empty()) {
        const std::uint64_t node = stack.back().node;
        const Object& object = objects_[node];
        const std::uint64_t refs = object.type == Type::Dict    ? 2 * object.count
                                   : object.type == Type::Array ? object.count
                                                                : 0;
        if (stack.back().next == refs) {
            colour[node] = Black;
            stack.pop_back();
            if (!stack.empty() && height[node] + 1 > height[stack.back().node])
                height[stack.back().node] = std::uint16_t(height[node] + 1);
            continue;
        }
        const std::uint64_t child = ref(object.payload, stack.back().next++);
        if (colour[child] == Grey) {
            fail(reason, QStringLiteral("it contains a reference cycle"));
            return false;
        }
        if (colour[child] == Black) {
            // Reached again by another path: only the longer path counts.
            if (height[child] + 1 > height[node])
                height[node] = std::uint16_t(height[child] + 1);
        } else {
            colour[child] = Grey;
            stack.push_back({child, 0});
        }
        if (stack.size() > std::size_t(kMaxDepth) || height[node] > kMaxDepth) {
            fail(reason, QStringLiteral("it nests deeper than %1 levels").arg(kMaxDepth));
            return false;
        }
    }
    if (height[top_] > kMaxDepth) {
        fail(reason, QStringLiteral("it nests deeper than %1 levels").arg(kMaxDepth));
        return false;
    }
    return true;
}

bool BinaryPlist::boolean(std::uint64_t index) const
{
    return object(index).value;
}

std::int64_t BinaryPlist::integer(std::uint64_t index) const
{
    const Object& object = this->object(index);
    // 1, 2 and 4 byte integers are unsigned, 8 byte ones two's complement.
    return std::int64_t(readUnsigned(object.payload, object.width));
}

double BinaryPlist::real(std::uint64_t index) const
{
    const Object& object = this->object(index);
    if (object.width == 4)
        return double(std::bit_cast<float>(std::uint32_t(readUnsigned(object.payload, 4))));
    return std::bit_cast<double>(readUnsigned(object.payload, 8));
}

std::uint64_t BinaryPlist::uid(std::uint64_t index) const
{
    const Object& object = this->object(index);
    return readUnsigned(object.payload, object.width);
}

std::string BinaryPlist::string(std::uint64_t index) const
{
    const Object& object = this->object(index);
    std::string out;
    if (object.width == 1) {
        out.assign(reinterpret_cast<const char*>(data() + object.payload), object.count);
        return out;
    }
    out.reserve(object.count);
    for (std::uint64_t i = 0; i < object.count; ++i) {
        char32_t unit = char32_t(readUnsigned(object.payload + 2 * i, 2));
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            const auto low = char32_t(readUnsigned(object.payload + 2 * (++i), 2));
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        }
        appendUtf8(out, unit);
    }
    return out;
}

std::uint64_t BinaryPlist::element(std::uint64_t array, std::uint64_t i) const
{
    return reach(ref(object(array).payload, i));
}

std::uint64_t BinaryPlist::dictKey(std::uint64_t dict, std::uint64_t i) const
{
    return reach(ref(object(dict).payload, i), true);
}

std::uint64_t BinaryPlist::dictValue(std::uint64_t dict, std::uint64_t i) const
{
    const Object& object = this->object(dict);
    return reach(ref(object.payload, object.count + i));
}

bool BinaryPlist::equalsKey(std::uint64_t index, std::string_view key) const
{
    const Object& object = this->object(index);
    if (object.width == 1)
        return object.count == key.size() &&
               std::memcmp(data() + object.payload, key.data(), key.size()) == 0;
    // Keys we look up are ASCII: a UTF-16 key matches unit for unit.
    if (object.count != key.size())
        return false;
    for (std::uint64_t i = 0; i < object.count; ++i) {
        if (readUnsigned(object.payload + 2 * i, 2) != static_cast<unsigned char>(key[i]))
            return false;
    }
    return true;
}

std::optional<std::uint64_t> BinaryPlist::lookup(std::uint64_t dict, std::string_view key) const
{
    const std::uint64_t pairs = object(dict).count;
    for (std::uint64_t i = 0; i < pairs; ++i) {
        if (equalsKey(dictKey(dict, i), key))
            return dictValue(dict, i);
    }
    return std::nullopt;
}
