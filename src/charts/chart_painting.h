// Painting shared by the chart and panel views: the lower-left coordinate
// system, the frame, upright text placed by its lower-left corner, and one
// chart pass from a ChartScene.
#pragma once

#include <QFont>
#include <QPointF>
#include <QSizeF>
#include <QString>

class QPainter;
struct ChartScene;

namespace chartpaint {

// Default line widths.
inline constexpr qreal kChartLineWidth = 2.0;
inline constexpr qreal kDiagramLineWidth = 1.25;
// The dashed grid: width and the drawn/gap lengths in view units.
inline constexpr qreal kGridLineWidth = 0.375;
inline constexpr qreal kGridDash = 4.0;
inline constexpr qreal kGridGap = 6.0;

// Puts the origin at the lower-left corner of a view of `size`, y upward.
void useLowerLeftOrigin(QPainter& painter, QSizeF size);

// Fills the bounds white and strokes them black at `lineWidth`.
void drawFrame(QPainter& painter, QSizeF size, qreal lineWidth);

// How every chart and panel starts: antialiased lines and text, the origin at the
// lower-left corner, and the frame at `lineWidth`.
void beginFramedView(QPainter& painter, QSizeF size, qreal lineWidth);

// Draws `text` upright in black with the lower-left corner of its text box at
// `at` (lower-left coordinates): the baseline sits one descent above it.
void drawTextAt(QPainter& painter, QPointF at, const QString& text, const QFont& font);

// Screen: dense curves thinned to the pixels; Vector: the curve as one
// unthinned path, for SVG and PDF files.
enum class ChartPaintMode { Screen, Vector };

// One chart pass: frame; then, with data, the curve, the grid path stroked
// once, and the labels on a small background (moved in from the right edge,
// alternate bottom labels skipped where they would collide). `labelFont` is
// the view's default font.
void paintChartScene(QPainter& painter, const ChartScene& scene, QSizeF size, const QFont& labelFont,
                     ChartPaintMode mode = ChartPaintMode::Screen);

// "Palatino" where installed, else its metric twin "P052"; `pixels` is the
// point size of the layouts, one point per view unit.
QFont palatinoFont(int pixels);

} // namespace chartpaint
