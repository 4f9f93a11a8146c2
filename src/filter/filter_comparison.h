// Saved filters read for a comparison: each one's magnitude response, the dB
// of its filterPrecisionCoefficients on the 4096-point grid (the lower 2048
// bins), exactly what its own magnitude chart draws, with its units and
// frequency scale.
#pragma once

#include <optional>
#include <vector>

#include <QString>

class DesignSource;

struct ComparedFilter {
    QString name;
    int units = 0;          // 0 Norm, 1 KHz, 2 MHz
    double fsOver2 = 1.0;   // the frequency of bin 2048 in `units` (1 for Norm)
    std::vector<double> dB; // 2048 values, bin k at k/2048 of fs/2
};

// The saved filter `name`; nothing, with the reason in `error`, when it is
// missing, unreadable or holds coefficients or rates that cannot be drawn.
std::optional<ComparedFilter> comparedFilter(const DesignSource& source, const QString& name, QString* error);

// Most filters a comparison overlays on the current design.
inline constexpr int kMaxComparedFilters = 3;
