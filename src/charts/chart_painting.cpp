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

void paintChartScene(QPainter& painter, const ChartScene& scene, QSizeF size, const QFont& labelFont)
{
    painter.save();
    beginFramedView(painter, size, kChartLineWidth);
    if (!scene.hasData) {
        painter.restore();
        return;
    }

    // Separate segments with butt ends, all in one call; dense curves are
    // thinned to what each pixel column can show, their solid columns filled
    // in a second call without antialiasing (it would only soften their ends).
    const ThinCurve curve = thinCurveForPixels(scene.curve, kChartLineWidth);
    painter.setPen(QPen(scene.curveColor, kChartLineWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawLines(curve.segments);
    if (!curve.columns.isEmpty()) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(Qt::NoPen);
        painter.setBrush(scene.curveColor);
        painter.drawRects(curve.columns);
        painter.restore();
    }

    for (const ChartLabel& label : scene.labels)
        drawTextAt(painter, label.at, label.text, labelFont);

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
