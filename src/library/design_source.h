// Where the project model gets its saved designs from. The design library
// implements it over the library folders; tests implement it in memory.
#pragma once

#include <optional>

#include <QString>
#include <QStringList>

#include "archive/filter_record.h"
#include "archive/signal_record.h"

class DesignSource {
public:
    virtual ~DesignSource() = default;

    // The record named (no folder, no extension), or nothing when it cannot be read.
    virtual std::optional<GVRSignal> signalRecord(const QString& name) const = 0;
    virtual std::optional<GVRFilter> filterRecord(const QString& name) const = 0;

    // Names (no extension) of the saved designs, in folder-listing order.
    virtual QStringList signalNames() const = 0;
    virtual QStringList filterNames() const = 0;
};
