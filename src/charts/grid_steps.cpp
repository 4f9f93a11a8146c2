// Grid-step choice shared by every chart axis.
#include "charts/grid_steps.h"

#include <cmath>

std::optional<GridStep> chooseGridStep(float span, std::span<const float> table, int maxCount)
{
    for (const float c : table) {
        const float k = std::ceil(std::fabs(span / c));
        // NaN fails this test, so a NaN span finds no step.
        if (k <= static_cast<float>(maxCount))
            return GridStep{c, static_cast<int>(k)};
    }
    return std::nullopt;
}

GridStep chooseGridStep(float span, std::span<const float> table, int maxCount, GridStep preset)
{
    return chooseGridStep(span, table, maxCount).value_or(preset);
}
