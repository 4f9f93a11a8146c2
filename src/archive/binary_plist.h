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
//
// For lists of thousands of designs there is also an on-demand scope: only the
// trailer is checked up front, and each object is parsed and checked (bounds,
// marker, length, text) the first time a reference to it is followed, so a
// caller that needs a few scalar values never touches 16384 samples. Its
// caller must bound its own walk (the keyed-archive decoder is schema-driven
// and cycle-checked); a bad reference or object poisons the whole parse.
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

    // Whole: every object checked up front. OnDemand: see above.
    enum class Scope : std::uint8_t { Whole, OnDemand };

    // Parses and validates `bytes`. On failure returns nothing and puts the
    // reason in `reason`, a clause in lower case ("the file is empty").
    static std::optional<BinaryPlist> parse(const QByteArray& bytes, QString* reason,
                                            Scope scope = Scope::Whole);

    // On demand only: why an object reached so far was refused (empty while
    // none was). Every index handed out after a refusal names an empty data
    // object, a type no caller accepts, so the caller fails too.
    const QString& refusal() const { return refusal_; }

    std::uint64_t objectCount() const { return objectCount_; }
    std::uint64_t top() const { return top_; }

    // Accessors take an object index from top(), element(), dictKey(),
    // dictValue() or lookup(); the caller checks types.
    Type type(std::uint64_t index) const { return object(index).type; }
    bool boolean(std::uint64_t index) const;
    std::int64_t integer(std::uint64_t index) const;
    double real(std::uint64_t index) const;
    std::uint64_t uid(std::uint64_t index) const;
    // ASCII and UTF-16 strings alike, as UTF-8.
    std::string string(std::uint64_t index) const;

    // Array elements, or dictionary pairs.
    std::uint64_t count(std::uint64_t index) const { return object(index).count; }
    std::uint64_t element(std::uint64_t array, std::uint64_t i) const;
    std::uint64_t dictKey(std::uint64_t dict, std::uint64_t i) const;
    std::uint64_t dictValue(std::uint64_t dict, std::uint64_t i) const;
    // The value stored under `key`, if the dictionary has it.
    std::optional<std::uint64_t> lookup(std::uint64_t dict, std::string_view key) const;

private:
    struct Object {
        std::uint64_t payload = 0; // offset of the first byte after marker and length
        std::uint64_t count = 0;   // elements, pairs, string units, data bytes
        Type type = Type::Boolean;
        std::uint8_t width = 0; // bytes of an integer, real or UID; 1 or 2 per string unit
        bool value = false;     // a boolean's value
    };

    BinaryPlist() = default;
    const Object& object(std::uint64_t index) const
    {
        if (!onDemand_)
            return objects_[index];
        const std::uint32_t slot = index < slots_.size() ? slots_[index] : 0;
        return slot == 0 ? kRefused : reached_[slot - 1];
    }
    // On demand: parses object `index` if not yet done; the index to hand out.
    std::uint64_t reach(std::uint64_t index, bool mustBeString = false) const
    {
        return onDemand_ ? reachOnDemand(index, mustBeString) : index;
    }
    std::uint64_t reachOnDemand(std::uint64_t index, bool mustBeString) const;
    bool parseObject(std::uint64_t index, std::uint64_t offset, std::uint64_t limit, Object& out,
                     std::uint64_t& size, QString* reason) const;
    bool checkContainers(QString* reason) const;
    bool checkGraph(QString* reason) const;
    bool equalsKey(std::uint64_t index, std::string_view key) const;
    std::uint64_t readUnsigned(std::uint64_t offset, unsigned width) const;
    std::uint64_t ref(std::uint64_t offset, std::uint64_t i) const
    {
        return readUnsigned(offset + i * refSize_, refSize_);
    }

    const unsigned char* data() const { return reinterpret_cast<const unsigned char*>(bytes_.constData()); }

    QByteArray bytes_;
    std::vector<Object> objects_;
    std::uint64_t top_ = 0;
    unsigned refSize_ = 1;

    // On demand: the objects parsed so far, the offset table and the refusal.
    static const Object kRefused;
    bool onDemand_ = false;
    std::uint64_t objectCount_ = 0;
    std::uint64_t tableOffset_ = 0;
    unsigned offsetSize_ = 1;
    // slots_[i] is 1 + the place of object i in reached_, or 0 while unparsed.
    mutable std::vector<std::uint32_t> slots_;
    mutable std::vector<Object> reached_;
    mutable QString refusal_;
};
