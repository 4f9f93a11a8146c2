// The saved signals and filters of the design library, as the project model
// reads them: by name, through the strict archive readers.
#pragma once

#include <QString>

#include "library/design_source.h"

class DesignLibrary;

class LibraryDesignSource : public DesignSource {
public:
    // `library` must outlive this object.
    explicit LibraryDesignSource(const DesignLibrary& library);

    std::optional<GVRSignal> signalRecord(const QString& name) const override;
    std::optional<GVRFilter> filterRecord(const QString& name) const override;
    QStringList signalNames() const override;
    QStringList filterNames() const override;

    // Why the last record asked for could not be read; empty after a success.
    QString lastError() const { return lastError_; }

    // A name that stays inside its folder: not empty, no folder separators,
    // no NUL. Other names are refused without touching the disk.
    static bool isPlainName(const QString& name);

private:
    const DesignLibrary& library_;
    mutable QString lastError_;
};
