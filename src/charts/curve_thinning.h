// Thinning of dense curves before painting. Where many segments fall in one
// pixel column the column shows only the span they cover: a column where the
// curve turns back and forth over more than a pen width, or crosses steeply
// over more than four, becomes one solid column over that span, and any other
// column keeps its first, lowest, highest and last point (in curve order).
// The pixels are those of the full curve, a steep stroke's within a pixel,
// with far fewer and shorter strokes.
#pragma once

#include <QLineF>
#include <QRectF>
#include <QVector>

struct ThinCurve {
    QVector<QLineF> segments;
    // Solid pixel columns, pen width wide, where the curve turns back and
    // forth; drawn as plain rectangles since their edges are all straight.
    QVector<QRectF> columns;
};

// segments: a curve as consecutive segments (each starting where the last
// ended, except across gaps left by skipped points), in coordinates whose x
// unit is one pixel; penWidth: the width it is stroked with. Runs of points
// within a quarter pixel of one straight line become one segment.
ThinCurve thinCurveForPixels(const QVector<QLineF>& segments, double penWidth);
