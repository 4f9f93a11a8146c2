// Thinning of dense curves before painting. Where many segments fall in one
// pixel column the column shows only the span they cover: a column where the
// curve turns back and forth over more than a pen width becomes one vertical
// bar over that span, and any other column keeps its first, lowest, highest
// and last point (in curve order). The pixels are those of the full curve,
// with far fewer and shorter strokes.
#pragma once

#include <QLineF>
#include <QVector>

// segments: a curve as consecutive segments (each starting where the last
// ended, except across gaps left by skipped points), in coordinates whose x
// unit is one pixel; penWidth: the width it is stroked with. Runs of points
// within a quarter pixel of one straight line become one segment.
QVector<QLineF> thinCurveForPixels(const QVector<QLineF>& segments, double penWidth);
