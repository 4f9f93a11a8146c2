// Saved designs held in memory rather than in library folders: lets the
// project model run on records made by hand, without touching the disk.
#pragma once

#include <map>

#include "library/design_source.h"

class MemoryDesignSource : public DesignSource {
public:
    std::optional<GVRSignal> signalRecord(const QString& name) const override
    {
        const auto it = signalRecords.find(name);
        return it == signalRecords.end() ? std::nullopt : std::optional(it->second);
    }
    std::optional<GVRFilter> filterRecord(const QString& name) const override
    {
        const auto it = filterRecords.find(name);
        return it == filterRecords.end() ? std::nullopt : std::optional(it->second);
    }
    QStringList signalNames() const override { return {}; }
    QStringList filterNames() const override { return {}; }

    std::map<QString, GVRSignal> signalRecords;
    std::map<QString, GVRFilter> filterRecords;
};
