// What tells one version of a file from another without reading it: device,
// inode, size and modification time to the nanosecond. Our saves rename a new
// file into place, so a saved design always gets a new identity.
#pragma once

#include <optional>

#include <QString>

struct FileIdentity {
    unsigned long long device = 0;
    unsigned long long inode = 0;
    long long size = 0;
    long long modifiedNs = 0;

    bool operator==(const FileIdentity&) const = default;
};

// Nothing when the file cannot be examined.
std::optional<FileIdentity> fileIdentity(const QString& path);
