// Bitwise comparison of archived values, used to prove a write reads back.
#include "archive/keyed_archive.h"

#include <bit>

namespace {

bool sameDouble(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace

bool sameBits(const ArchiveValue& a, const ArchiveValue& b)
{
    if (a.index() != b.index())
        return false;
    if (const auto* x = std::get_if<double>(&a))
        return sameDouble(*x, std::get<double>(b));
    if (const auto* x = std::get_if<std::vector<double>>(&a)) {
        const auto& y = std::get<std::vector<double>>(b);
        if (x->size() != y.size())
            return false;
        for (std::size_t i = 0; i < x->size(); ++i) {
            if (!sameDouble((*x)[i], y[i]))
                return false;
        }
        return true;
    }
    return a == b;
}

bool sameBits(const ArchiveRecord& a, const ArchiveRecord& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (!sameBits(a[i], b[i]))
            return false;
    }
    return true;
}
