// Every real of a binary property list as an 8-byte double. libplist's
// plist_to_bin stores a double that a float holds exactly (300, 0.5, -1) as a
// 4-byte real (marker 0x22); the platform's archiver never does, and a strict
// keyed-archive reader then sees a float where the record says double.
#pragma once

#include <optional>

#include <QByteArray>

// The same property list with each 4-byte real rewritten as the 8-byte real
// of the same value and the offset table rebuilt; none when `bplist` is not
// a well-formed "bplist00" whose objects lie in offset order.
std::optional<QByteArray> widenBinaryPlistReals(const QByteArray& bplist);
