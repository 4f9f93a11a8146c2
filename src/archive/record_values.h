// Moving optional record fields in and out of archive values.
#pragma once

#include <optional>

#include "archive/keyed_archive.h"

template <typename T> ArchiveValue toValue(const std::optional<T>& field)
{
    return field ? ArchiveValue(*field) : ArchiveValue();
}

template <typename T> std::optional<T> fromValue(const ArchiveValue& value)
{
    if (const T* held = std::get_if<T>(&value))
        return *held;
    return std::nullopt;
}
