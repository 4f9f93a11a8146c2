// Rewriting 4-byte reals of a binary property list as 8-byte ones.
#include "archive/bplist_reals.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace {

constexpr int kTrailer = 32;
constexpr int kHeader = 8;

std::uint64_t readBig(const QByteArray& data, qsizetype at, int size)
{
    std::uint64_t value = 0;
    for (int i = 0; i < size; ++i)
        value = (value << 8) | std::uint8_t(data[at + i]);
    return value;
}

void appendBig(QByteArray& out, std::uint64_t value, int size)
{
    for (int i = size - 1; i >= 0; --i)
        out.append(char((value >> (8 * i)) & 0xff));
}

int bytesFor(std::uint64_t value)
{
    int size = 1;
    while (size < 8 && (value >> (8 * size)) != 0)
        size *= 2;
    return size;
}

} // namespace

std::optional<QByteArray> widenBinaryPlistReals(const QByteArray& bplist)
{
    if (bplist.size() < kHeader + kTrailer || !bplist.startsWith("bplist00"))
        return std::nullopt;
    const qsizetype trailer = bplist.size() - kTrailer;
    const int offsetSize = std::uint8_t(bplist[trailer + 6]);
    const std::uint64_t count = readBig(bplist, trailer + 8, 8);
    const std::uint64_t tableAt = readBig(bplist, trailer + 24, 8);
    if (offsetSize < 1 || offsetSize > 8 || tableAt > std::uint64_t(trailer) ||
        count > (std::uint64_t(trailer) - tableAt) / std::uint64_t(offsetSize))
        return std::nullopt;

    std::vector<std::uint64_t> offsets(count);
    for (std::uint64_t i = 0; i < count; ++i)
        offsets[i] = readBig(bplist, qsizetype(tableAt + i * std::uint64_t(offsetSize)), offsetSize);
    // libplist writes objects in index order, one after another; anything
    // else is left to the caller.
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t end = i + 1 < count ? offsets[i + 1] : tableAt;
        if (offsets[i] < std::uint64_t(kHeader) || offsets[i] >= end)
            return std::nullopt;
    }

    QByteArray out = bplist.left(kHeader);
    std::vector<std::uint64_t> moved(count);
    for (std::uint64_t i = 0; i < count; ++i) {
        const std::uint64_t end = i + 1 < count ? offsets[i + 1] : tableAt;
        moved[i] = std::uint64_t(out.size());
        const auto at = qsizetype(offsets[i]);
        if (std::uint8_t(bplist[at]) == 0x22 && end - offsets[i] == 5) {
            const float single = std::bit_cast<float>(std::uint32_t(readBig(bplist, at + 1, 4)));
            out.append(char(0x23));
            appendBig(out, std::bit_cast<std::uint64_t>(double(single)), 8);
        } else {
            out.append(bplist.mid(at, qsizetype(end - offsets[i])));
        }
    }
    const std::uint64_t newTableAt = std::uint64_t(out.size());
    const int newOffsetSize = bytesFor(count ? moved.back() : 0);
    for (std::uint64_t offset : moved)
        appendBig(out, offset, newOffsetSize);
    QByteArray tail = bplist.right(kTrailer);
    tail[6] = char(newOffsetSize);
    QByteArray fixed = tail.left(24);
    appendBig(fixed, newTableAt, 8);
    out.append(fixed);
    return out;
}
