// Hand-assembles binary property lists, good or deliberately broken, for the
// hostile-file tests: every byte of the trailer can be overridden and objects
// can refer to anything, themselves included.
#pragma once

#include <bit>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QByteArray>

// Trailer fields to override; unset ones are computed.
struct BplistTrailer {
    std::optional<unsigned> offsetSize = {};
    std::optional<unsigned> refSize = {};
    std::optional<std::uint64_t> objectCount = {};
    std::optional<std::uint64_t> top = {};
    std::optional<std::uint64_t> tableOffset = {};
};

class BplistBuilder {
public:
    using Trailer = BplistTrailer;

    // Index the next object will get (for objects that refer to themselves).
    int next() const { return int(objects_.size()); }

    // Marker byte with the count in its low nibble or in a following integer.
    static QByteArray head(unsigned high, std::uint64_t count)
    {
        QByteArray out;
        if (count < 15) {
            out.append(char((high << 4) | count));
            return out;
        }
        out.append(char((high << 4) | 0x0F));
        out.append(integerBytes(count));
        return out;
    }

    static QByteArray integerBytes(std::uint64_t value)
    {
        QByteArray out;
        unsigned width = value <= 0xFF ? 1 : value <= 0xFFFF ? 2 : value <= 0xFFFFFFFFu ? 4 : 8;
        out.append(char(0x10 | std::countr_zero(width)));
        out.append(bigEndian(value, width));
        return out;
    }

    static QByteArray bigEndian(std::uint64_t value, unsigned width)
    {
        QByteArray out;
        for (unsigned i = 0; i < width; ++i) {
            const unsigned shift = 8 * (width - 1 - i);  // widths over 8 get leading zeros
            out.append(char(shift >= 64 ? 0 : (value >> shift) & 0xFF));
        }
        return out;
    }

    int raw(const QByteArray& bytes) { return add({bytes, {}, {}}); }
    int boolean(bool value) { return raw(QByteArray(1, char(value ? 0x09 : 0x08))); }
    int integer(std::int64_t value)
    {
        if (value >= 0)
            return raw(integerBytes(std::uint64_t(value)));
        return raw(QByteArray(1, char(0x13)) + bigEndian(std::uint64_t(value), 8));
    }
    int real(double value)
    {
        return raw(QByteArray(1, char(0x23)) + bigEndian(std::bit_cast<std::uint64_t>(value), 8));
    }
    int date(double seconds)
    {
        return raw(QByteArray(1, char(0x33)) + bigEndian(std::bit_cast<std::uint64_t>(seconds), 8));
    }
    int uid(std::uint64_t value)
    {
        unsigned width = value <= 0xFF ? 1 : value <= 0xFFFF ? 2 : value <= 0xFFFFFFFFu ? 4 : 8;
        return raw(QByteArray(1, char(0x80 | (width - 1))) + bigEndian(value, width));
    }
    int ascii(std::string_view text)
    {
        return raw(head(0x5, text.size()) + QByteArray(text.data(), qsizetype(text.size())));
    }
    int utf16(const std::vector<std::uint16_t>& units)
    {
        QByteArray out = head(0x6, units.size());
        for (std::uint16_t unit : units)
            out.append(bigEndian(unit, 2));
        return raw(out);
    }
    int array(const std::vector<std::uint64_t>& refs) { return add({head(0xA, refs.size()), refs, {}}); }
    int dict(const std::vector<std::uint64_t>& keys, const std::vector<std::uint64_t>& values)
    {
        std::vector<std::uint64_t> refs = keys;
        refs.insert(refs.end(), values.begin(), values.end());
        return add({head(0xD, keys.size()), refs, {}});
    }
    // Dictionary with string keys made on the spot.
    int dict(const std::vector<std::pair<std::string, std::uint64_t>>& pairs)
    {
        std::vector<std::uint64_t> keys, values;
        for (const auto& [key, value] : pairs) {
            keys.push_back(std::uint64_t(ascii(key)));
            values.push_back(value);
        }
        return dict(keys, values);
    }

    QByteArray build(std::uint64_t top, const Trailer& trailer = {}) const
    {
        const unsigned refSize = trailer.refSize.value_or(objects_.size() <= 0xFF ? 1 : objects_.size() <= 0xFFFF ? 2 : 4);
        QByteArray out("bplist00");
        std::vector<std::uint64_t> offsets;
        for (const Object& object : objects_) {
            offsets.push_back(std::uint64_t(out.size()));
            out.append(object.head);
            for (std::uint64_t ref : object.refs)
                out.append(bigEndian(ref, refSize));
            out.append(object.tail);
        }
        const std::uint64_t tableOffset = std::uint64_t(out.size());
        const unsigned offsetSize = trailer.offsetSize.value_or(tableOffset <= 0xFF ? 1 : tableOffset <= 0xFFFF ? 2 : 4);
        for (std::uint64_t offset : offsets)
            out.append(bigEndian(offset, offsetSize));
        out.append(QByteArray(6, '\0'));
        out.append(char(offsetSize));
        out.append(char(refSize));
        out.append(bigEndian(trailer.objectCount.value_or(objects_.size()), 8));
        out.append(bigEndian(trailer.top.value_or(top), 8));
        out.append(bigEndian(trailer.tableOffset.value_or(tableOffset), 8));
        return out;
    }

private:
    struct Object {
        QByteArray head;
        std::vector<std::uint64_t> refs;
        QByteArray tail;
    };
    int add(Object object)
    {
        objects_.push_back(std::move(object));
        return int(objects_.size() - 1);
    }

    std::vector<Object> objects_;
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
        const int chain = plist.array({std::uint64_t(plist.ascii(name)), std::uint64_t(plist.ascii("NSObject"))});
        return entry(plist.dict({{"$classname", std::uint64_t(plist.ascii(name))}, {"$classes", std::uint64_t(chain)}}));
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

    QByteArray build(std::uint64_t rootUid, std::int64_t version = 100000,
                     const std::string& archiver = "NSKeyedArchiver")
    {
        const int list = objectsArray();
        const int top = plist.dict({{"root", std::uint64_t(plist.uid(rootUid))}});
        const int root = plist.dict({{"$version", std::uint64_t(plist.integer(version))},
                                     {"$archiver", std::uint64_t(plist.ascii(archiver))},
                                     {"$top", std::uint64_t(top)},
                                     {"$objects", std::uint64_t(list)}});
        return plist.build(std::uint64_t(root));
    }

    BplistBuilder plist;

private:
    std::vector<std::uint64_t> objects_;
};
