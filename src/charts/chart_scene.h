// What one pass of a chart draws, in chart coordinates (origin at the
// lower-left corner, y upward): the curve, the dashed grid and the labels.
// Built by the chart layouts, painted by paintChartScene().
#pragma once

#include <optional>

#include <QColor>
#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QVector>

#include "charts/grid_steps.h"

struct ChartLabel {
    QPointF at; // lower-left corner of the text box
    QString text;
    // Labels of vertical grid lines share the bottom row; when they would run
    // into each other the painter skips alternate ones.
    bool alongBottom = false;
};

// A further curve over the chart (a compared design), named in the legend.
struct ChartTrace {
    QString name;
    QColor color;
    QVector<QLineF> lines;
};

// The data values at the view's edges: x0 left, x1 right, y0 bottom, y1 top.
struct ChartRange {
    double x0 = 0.0;
    double x1 = 1.0;
    double y0 = 0.0;
    double y1 = 1.0;
};

struct ChartScene {
    // False for an empty or unreadable array: only the frame is drawn.
    bool hasData = false;
    QColor curveColor;
    // Separate straight segments between consecutive points; segments with a
    // non-finite end are left out, the rest are clipped to the view.
    QVector<QLineF> curve;
    // Regions the curve must stay out of (a tolerance mask), filled under it.
    QVector<QRectF> shading;
    // Markers and outlines drawn after the curve (a second column, the unit circle).
    QVector<QLineF> overlay;
    QColor overlayColor;
    // Compared designs drawn over the curve; with any, a legend in the top
    // right corner names `curveName` and then each trace.
    QVector<ChartTrace> traces;
    QString curveName;
    QVector<QLineF> gridLines;
    // In drawing order: horizontal-line labels, vertical-line labels, origin.
    QVector<ChartLabel> labels;
    // The steps chosen for the two axes (for the vertical axis the one used
    // for the scale); nothing where no table value fitted.
    std::optional<GridStep> verticalStep;
    std::optional<GridStep> horizontalStep;
    // What the view shows in the data's own units (see ChartSeries).
    ChartRange viewRange;
};
