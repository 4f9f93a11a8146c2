// Small numeric helpers of the chart layouts: reading header values safely
// and collecting curve segments that a painter can always draw.
#pragma once

#include <span>

#include <QLineF>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <QVector>

#include "charts/chart_scene.h"

// Clips the segment a-b to `clip`; appends what is left, if anything. A
// segment with a NaN or infinite coordinate is dropped, so absurd data can
// neither stall the rasteriser nor draw across the view.
void appendClippedSegment(QVector<QLineF>& segments, QPointF a, QPointF b, const QRectF& clip);

// The rectangle segments are clipped to: the view plus a margin wider than the pen.
QRectF curveClipRect(float width, float height);

// Array element at `index` in single precision, or NaN when out of range.
float elementAt(std::span<const double> array, long long index);

// A unit index stored as a double, truncated to an integer; -1 when it is
// not finite or not a valid position in a list of `count` names.
int unitIndex(double value, int count);

// unitIndex() of the array element at `index`; -1 when out of range.
int unitIndexAt(std::span<const double> array, long long index, int count);

// names[index], or the empty string when index is not a valid position.
QString nameAt(const QStringList& names, int index);

// "%1.2f" of a single-precision value widened to double.
QString formatTwoDecimals(float value);
// "%1.0f" of a single-precision value widened to double.
QString formatNoDecimals(float value);

// Number of passes of "for (i = 0; i < limit; ++i)", for any float limit
// (0 for NaN or a limit ≤ 0; capped far above any array length).
long long loopCount(float limit);

// Appends up to `count` segments between consecutive values v = array[first + i]
// and array[first + i + 1], at x = i × xSpacing and y = v × yScale + yOffset
// (single precision), clipped to `clip`; stops at the end of the array.
void appendCurve(QVector<QLineF>& segments, std::span<const double> array, long long first, long long count,
                 float xSpacing, float yScale, float yOffset, const QRectF& clip);

// Adds the vertical grid line at x, from the bottom to the top of the view,
// with its label at (x + 5, 5); a line outside the view is left out.
void appendVerticalGridLine(ChartScene& scene, float x, const QString& label, float width, float height);
