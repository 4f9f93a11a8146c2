// Painting shared by the chart and panel views.
#include "charts/chart_painting.h"

#include <algorithm>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include "charts/chart_colors.h"
#include "charts/chart_scene.h"
#include "charts/curve_thinning.h"

namespace chartpaint {

void useLowerLeftOrigin(QPainter& painter, QSizeF size)
{
    painter.translate(0.0, size.height());
    painter.scale(1.0, -1.0);
}

void drawFrame(QPainter& painter, QSizeF size, qreal lineWidth)
{
    const QRectF bounds(QPointF(0.0, 0.0), size);
    painter.fillRect(bounds, chartcolors::background());
    // Square joins so the corners of the outline are closed like a stroked rectangle.
    QPen pen(chartcolors::outline(), lineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(bounds);
}

void drawTextAt(QPainter& painter, QPointF at, const QString& text, const QFont& font)
{
    // Undo the flip around the anchor so glyphs stay upright; y then grows
    // downward, so the baseline one descent above the anchor is at -descent.
    const QFontMetricsF metrics(font, painter.device());
    painter.save();
    painter.translate(at);
    painter.scale(1.0, -1.0);
    painter.setFont(font);
    painter.setPen(chartcolors::outline());
    painter.drawText(QPointF(0.0, -metrics.descent()), text);
    painter.restore();
}

void beginFramedView(QPainter& painter, QSizeF size, qreal lineWidth)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    useLowerLeftOrigin(painter, size);
    drawFrame(painter, size, lineWidth);
}

namespace {

// The text boxes of the labels as drawn: bottom-row labels moved in from the
// right edge and, where they would run into each other, every second (fourth...)
// one kept. Labels left out get an empty box.
QVector<QRectF> labelBoxes(const QVector<ChartLabel>& labels, QSizeF size, const QFontMetricsF& metrics)
{
    QVector<QRectF> boxes;
    boxes.reserve(labels.size());
    for (const ChartLabel& label : labels) {
        const qreal w = metrics.horizontalAdvance(label.text);
        QPointF at = label.at;
        if (at.x() + w > size.width() - 3.0)
            at.setX(std::max<qreal>(3.0, size.width() - 3.0 - w));
        boxes.append(QRectF(at, QSizeF(w, metrics.height())));
    }
    // The corner label (not a grid line's) stays; grid labels give way to it.
    QVector<int> bottom;
    QRectF corner;
    for (int i = 0; i < labels.size(); ++i) {
        if (labels[i].alongBottom)
            bottom.append(i);
        else if (labels[i].at.y() <= 5.0)
            corner = boxes[i];
    }
    constexpr qreal kGap = 6.0;
    for (int stride = 1; stride <= bottom.size(); stride *= 2) {
        bool clear = true;
        qreal right = corner.isNull() ? -1e9 : corner.right();
        for (int j = stride - 1; j < bottom.size(); j += stride) {
            const QRectF& box = boxes[bottom[j]];
            if (box.left() < right + kGap) {
                clear = false;
                break;
            }
            right = box.right();
        }
        if (clear || stride * 2 > bottom.size()) {
            for (int j = 0; j < bottom.size(); ++j) {
                const bool kept = (j + 1) % stride == 0 &&
                                  (corner.isNull() || boxes[bottom[j]].left() >= corner.right() + kGap);
                if (!kept)
                    boxes[bottom[j]] = QRectF();
            }
            break;
        }
    }
    return boxes;
}

// The curve as one path: consecutive segments that meet become one polyline.
QPainterPath curvePath(const QVector<QLineF>& segments)
{
    QPainterPath path;
    QPointF end;
    bool open = false;
    for (const QLineF& line : segments) {
        if (!open || line.p1() != end)
            path.moveTo(line.p1());
        path.lineTo(line.p2());
        end = line.p2();
        open = true;
    }
    return path;
}

void drawCurve(QPainter& painter, const QVector<QLineF>& segments, const QColor& color, qreal width,
               ChartPaintMode mode)
{
    const QPen pen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (mode == ChartPaintMode::Vector) {
        // Files keep every point, as one path.
        painter.strokePath(curvePath(segments), pen);
        return;
    }
    // Separate segments with butt ends, all in one call; dense curves are
    // thinned to what each pixel column can show, their solid columns filled
    // in a second call without antialiasing (it would only soften their ends).
    const ThinCurve curve = thinCurveForPixels(segments, width);
    painter.setPen(pen);
    painter.drawLines(curve.segments);
    if (!curve.columns.isEmpty()) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRects(curve.columns);
        painter.restore();
    }
}

// The legend of a chart with compared designs: a swatch and a name per
// curve, the chart's own first, in a framed box at the top right.
void paintLegend(QPainter& painter, const ChartScene& scene, QSizeF size, const QFont& font)
{
    QVector<std::pair<QString, QColor>> entries{{scene.curveName, scene.curveColor}};
    for (const ChartTrace& trace : scene.traces)
        entries.append({trace.name, trace.color});
    const QFontMetricsF metrics(font, painter.device());
    qreal textWidth = 0.0;
    for (const auto& entry : entries)
        textWidth = std::max(textWidth, metrics.horizontalAdvance(entry.first));
    constexpr qreal kSwatch = 18.0;
    constexpr qreal kPad = 6.0;
    const qreal row = metrics.height() + 2.0;
    const qreal boxWidth = kPad * 3 + kSwatch + textWidth;
    const qreal boxHeight = kPad * 2 + row * qreal(entries.size());
    // Lower-left coordinates: the box hangs from the top edge.
    const QRectF box(size.width() - boxWidth - 10.0, size.height() - boxHeight - 10.0, boxWidth, boxHeight);
    painter.setPen(QPen(chartcolors::outline(), 0.75));
    painter.setBrush(chartcolors::background());
    painter.drawRect(box);
    painter.setBrush(Qt::NoBrush);
    for (int i = 0; i < entries.size(); ++i) {
        const qreal baseline = box.bottom() - kPad - row * qreal(i + 1);
        const qreal midY = baseline + 0.5 * row;
        painter.setPen(QPen(entries[i].second, 3.0, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(box.left() + kPad, midY), QPointF(box.left() + kPad + kSwatch, midY));
        drawTextAt(painter, QPointF(box.left() + 2 * kPad + kSwatch, baseline), entries[i].first, font);
    }
}

} // namespace

void paintChartScene(QPainter& painter, const ChartScene& scene, QSizeF size, const QFont& labelFont,
                     ChartPaintMode mode)
{
    painter.save();
    beginFramedView(painter, size, kChartLineWidth);
    if (!scene.hasData) {
        painter.restore();
        return;
    }

    if (!scene.shading.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(220, 60, 60, 45));
        painter.drawRects(scene.shading);
        painter.setBrush(Qt::NoBrush);
    }

    drawCurve(painter, scene.curve, scene.curveColor, kChartLineWidth, mode);
    if (!scene.overlay.isEmpty())
        drawCurve(painter, scene.overlay, scene.overlayColor, 1.5, mode);
    // Compared curves one pixel wide: under the main curve, and Qt strokes
    // antialiased lines of that width on its fast path.
    for (const ChartTrace& trace : scene.traces)
        drawCurve(painter, trace.lines, trace.color, 1.0, mode);

    QPainterPath gridPath;
    for (const QLineF& line : scene.gridLines) {
        gridPath.moveTo(line.p1());
        gridPath.lineTo(line.p2());
    }
    QPen gridPen(chartcolors::grid(), kGridLineWidth, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
    // Qt measures dashes in pen widths, but in whole units for pens thinner than 1.
    const qreal dashUnit = std::max<qreal>(kGridLineWidth, 1.0);
    gridPen.setDashPattern({kGridDash / dashUnit, kGridGap / dashUnit});
    gridPen.setDashOffset(0.0);
    painter.strokePath(gridPath, gridPen);

    // Labels last, each on a small background, so no curve runs through them.
    const QFontMetricsF metrics(labelFont, painter.device());
    const QVector<QRectF> boxes = labelBoxes(scene.labels, size, metrics);
    for (int i = 0; i < scene.labels.size(); ++i) {
        if (boxes[i].isNull())
            continue;
        painter.fillRect(boxes[i].adjusted(-2.0, 0.0, 2.0, 0.0), chartcolors::background());
        drawTextAt(painter, boxes[i].topLeft(), scene.labels[i].text, labelFont);
    }
    if (!scene.traces.isEmpty())
        paintLegend(painter, scene, size, labelFont);
    painter.restore();
}

QFont palatinoFont(int pixels)
{
    // hasFamily() also matches families listed with a foundry ("P052 [urw]").
    static const QString family = [] {
        for (const QString& name : {QStringLiteral("Palatino"), QStringLiteral("P052")}) {
            if (QFontDatabase::hasFamily(name))
                return name;
        }
        return QString();
    }();
    QFont font;
    if (!family.isEmpty())
        font.setFamily(family);
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(pixels);
    return font;
}

} // namespace chartpaint
