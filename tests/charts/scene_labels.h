// The label texts of a laid-out chart, for the layout tests.
#pragma once

#include <QStringList>

#include "charts/chart_scene.h"

inline QStringList labelTexts(const ChartScene& scene)
{
    QStringList texts;
    for (const ChartLabel& label : scene.labels)
        texts << label.text;
    return texts;
}
