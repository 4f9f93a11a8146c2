// Strict reader of binary property lists ("bplist00") from untrusted files.
//
// We read design files with this reader instead of libplist 2.2's
// plist_from_bin: that parser has no depth limit, re-parses shared objects at
// every use (a small file can expand exponentially) and range-checks loosely.
// Guarding it would mean re-implementing most of a parser in a pre-scan anyway,
// so this reader does the whole job once, strictly: it keeps the file's flat
// object table (objects refer to each other by index, nothing is expanded),
// validates every object up front in loops with 64-bit arithmetic, and walks
// the reference graph iteratively to refuse cycles and deep nesting.
// libplist is still what writes our files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QByteArray>
#include <QString>

class BinaryPlist {
public:
    enum class Type : std::uint8_t { Boolean, Integer, Real, Date, Data, String, Uid, Array, Dict };

    // Largest input accepted; design files are a few hundred KB.
    static constexpr qsizetype kMaxBytes = 16 * 1024 * 1024;
    // More than a signal file's 16384 samples, their references and the rest.
    static constexpr std::uint64_t kMaxObjects = 1'000'000;
    // Our archives nest five levels deep; anything far deeper is not one.
    static constexpr int kMaxDepth = 16;

    // Parses and validates `bytes`. On failure returns nothing and puts the
    // reason in `reason`, a clause in lower case ("the file is empty").
    static std::optional<BinaryPlist> parse(const QByteArray& bytes, QString* reason);

    std::uint64_t objectCount() const { return objects_.size(); }
    std::uint64_t top() const { return top_; }

    // Accessors take an object index < objectCount(); the caller checks types.
    Type type(std::uint64_t index) const { return objects_[index].type; }
    bool boolean(std::uint64_t index) const;
    std::int64_t integer(std::uint64_t index) const;
    double real(std::uint64_t index) const;
    std::uint64_t uid(std::uint64_t index) const;
    // ASCII and UTF-16 strings alike, as UTF-8.
    std::string string(std::uint64_t index) const;

    // Array elements, or dictionary pairs.
    std::uint64_t count(std::uint64_t index) const { return objects_[index].count; }
    std::uint64_t element(std::uint64_t array, std::uint64_t i) const;
    std::uint64_t dictKey(std::uint64_t dict, std::uint64_t i) const;
    std::uint64_t dictValue(std::uint64_t dict, std::uint64_t i) const;
    // The value stored under `key`, if the dictionary has it.
    std::optional<std::uint64_t> lookup(std::uint64_t dict, std::string_view key) const;

private:
    struct Object {
        std::uint64_t payload = 0;  // offset of the first byte after marker and length
        std::uint64_t count = 0;    // elements, pairs, string units, data bytes
        Type type = Type::Boolean;
        std::uint8_t width = 0;     // bytes of an integer, real or UID; 1 or 2 per string unit
        bool value = false;         // a boolean's value
    };

    BinaryPlist() = default;
    bool parseObject(std::uint64_t index, std::uint64_t offset, std::uint64_t limit, Object& out,
                     std::uint64_t& size, QString* reason) const;
    bool checkContainers(QString* reason) const;
    bool checkGraph(QString* reason) const;
    bool equalsKey(std::uint64_t index, std::string_view key) const;
    std::uint64_t readUnsigned(std::uint64_t offset, unsigned width) const;
    std::uint64_t ref(std::uint64_t offset, std::uint64_t i) const;

    const unsigned char* data() const
    {
        return reinterpret_cast<const unsigned char*>(bytes_.constData());
    }

    QByteArray bytes_;
    std::vector<Object> objects_;
    std::uint64_t top_ = 0;
    unsigned refSize_ = 1;
};
