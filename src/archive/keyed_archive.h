// The values of one archived record and the keys they are archived under,
// shared by the keyed-archive reader and writer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

// What a key holds: NSString, NSNumber (integer or real) or an array of NSNumbers.
enum class ArchiveKind { String, Integer, Real, IntegerArray, RealArray };

struct ArchiveField {
    const char* key;
    ArchiveKind kind;
    std::size_t maxCount = 0;       // arrays only: most elements a reader accepts
    bool omittedWhenAbsent = false; // an absent value leaves the key out instead of archiving null
};

// One record class and its keys, in archiving order.
struct ArchiveSchema {
    const char* className;
    std::span<const ArchiveField> fields;
};

// std::monostate is an absent value, archived as the null reference.
using ArchiveValue = std::variant<std::monostate, std::string, std::int64_t, double,
                                  std::vector<std::int64_t>, std::vector<double>>;

// One value per field of the schema, in the schema's order.
using ArchiveRecord = std::vector<ArchiveValue>;

// Equal bit for bit: NaN equals the same NaN, 0.0 differs from -0.0.
bool sameBits(const ArchiveValue& a, const ArchiveValue& b);
bool sameBits(const ArchiveRecord& a, const ArchiveRecord& b);
