// The regions of the magnitude chart a tolerance mask forbids: above the
// passband's ripple band and below its lower limit, and above the stopband
// limit, in view coordinates for the range the chart shows.
#pragma once

#include <QRectF>
#include <QVector>

#include "charts/chart_scene.h"
#include "dsp/tolerance_mask.h"

// fsOver2: the frequency of 1.0 normalised, in the chart's units.
QVector<QRectF> maskShading(const ToleranceMask& mask, double fsOver2, const ChartRange& range, float width,
                            float height);
