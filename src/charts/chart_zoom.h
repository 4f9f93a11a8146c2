// Zoom and pan arithmetic of the chart views, and the layout of a zoomed
// chart: the same grid and label rules as the default charts, worked out
// again for the visible range.
#pragma once

#include <optional>

#include <QPointF>
#include <QRectF>

#include "charts/chart_scene.h"
#include "charts/chart_series.h"

// Where a chart is zoomed to, as fractions of its default view: (0, 1, 0, 1)
// is the default. Kept relative so that a new design, a new size or the time
// charts' zoom stepper combine with it.
struct ChartZoom {
    double u0 = 0.0;
    double u1 = 1.0;
    double v0 = 0.0;
    double v1 = 1.0;

    bool isDefault() const { return u0 == 0.0 && u1 == 1.0 && v0 == 0.0 && v1 == 1.0; }
};

namespace chartzoom {

// The data range `zoom` shows of a chart whose default view is `base`.
ChartRange visibleRange(const ChartRange& base, const ChartZoom& zoom);

// Zooms by `factor` (> 1 magnifies) around the view fraction `anchor` (0 left
// or bottom, 1 right or top), on the x or the y axis.
ChartZoom zoomX(const ChartZoom& zoom, double anchor, double factor);
ChartZoom zoomY(const ChartZoom& zoom, double anchor, double factor);

// Moves the view by a fraction of its own width and height (positive: the
// content moves right and up, as under a dragging hand).
ChartZoom pan(const ChartZoom& zoom, double dxFraction, double dyFraction);

// Shows the part of the current view inside `rect` (view pixels, lower-left
// origin) of a view of size width × height; nothing for a rectangle thinner
// than 3 pixels either way.
std::optional<ChartZoom> zoomToRect(const ChartZoom& zoom, const QRectF& rect, double width, double height);

// View position of a data point, lower-left origin.
QPointF toView(const ChartRange& range, double x, double y, double width, double height);
// Data x at a view x.
double xAtView(const ChartRange& range, double viewX, double width);

// The grid step of a zoomed axis spanning `span`: the axis table's own choice
// while it gives at least 3 lines, else the finest step of 1, 2, 2.5 and 5
// times a power of ten that gives at most maxCount divisions.
std::optional<GridStep> zoomedGridStep(double span, const ChartAxis& axis);

// Decimals that show every multiple of `step`, never fewer than `atLeast`.
int labelDecimals(double step, int atLeast);

} // namespace chartzoom

// A chart zoomed to `range`: the series' curve, grid lines at multiples of the
// zoomed steps, their labels, and the axis units at the lowest labels.
ChartScene layoutZoomedChart(const ChartSeries& series, const ChartRange& range, float width, float height);
