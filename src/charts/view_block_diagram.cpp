// The block diagram of the project window.
#include "charts/view_block_diagram.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include "charts/block_diagram_layout.h"
#include "charts/chart_colors.h"
#include "charts/chart_painting.h"

GVRViewBlockDiagram::GVRViewBlockDiagram(QWidget* parent)
    : QWidget(parent), textFont_(chartpaint::palatinoFont(16)), textFontLarge_(chartpaint::palatinoFont(20))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize GVRViewBlockDiagram::sizeHint() const
{
    return QSize(600, 200);
}

void GVRViewBlockDiagram::newBlockDiagramWithIndex(int index)
{
    blockDiagramIndex_ = index;
    update();
}

void GVRViewBlockDiagram::setHighlightedStage(DiagramStage stage)
{
    stage_ = stage;
    update();
}

void GVRViewBlockDiagram::paintEvent(QPaintEvent*)
{
    const QSizeF size = this->size();
    BlockDiagramLayout d =
        blockDiagramLayout(blockDiagramIndex_, float(size.width()), float(size.height()), stage_);
    auto fontOf = [&](const DiagramText& t) {
        QFont font = t.large ? textFontLarge_ : textFont_;
        if (t.scale < 1.0)
            font.setPixelSize(std::max(1, int(font.pixelSize() * t.scale)));
        return font;
    };
    fitLabelsBetweenBlocks(d, float(size.width()), [&](const DiagramText& t) {
        return QFontMetricsF(fontOf(t), this).horizontalAdvance(t.text);
    });
    auto draw = [&](QPainter& p, const DiagramText& t) {
        if (t.scale > 0.0)
            chartpaint::drawTextAt(p, t.at, t.text, fontOf(t));
    };

    QPainter painter(this);
    chartpaint::beginFramedView(painter, size, chartpaint::kDiagramLineWidth);
    const QPen outline(chartcolors::outline(), chartpaint::kDiagramLineWidth, Qt::SolidLine, Qt::FlatCap,
                       Qt::MiterJoin);
    painter.setPen(outline);
    painter.setBrush(Qt::NoBrush);

    for (const DiagramText& t : d.inputs)
        draw(painter, t);
    draw(painter, d.title);

    // Circle, box outlines and connecting lines in one stroke.
    QPainterPath path;
    path.addEllipse(d.summingCircle);
    for (const DiagramBox& box : d.boxes)
        path.addRect(box.rect);
    for (const QPolygonF& line : d.lines)
        path.addPolygon(line);
    painter.strokePath(path, outline);

    for (const DiagramBox& box : d.boxes) {
        painter.fillRect(box.rect, box.fill);
        painter.setPen(outline);
        painter.drawRect(box.rect);
        if (box.highlighted) {
            painter.setPen(
                QPen(chartcolors::stageHighlight(), 4.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
            painter.drawRect(box.rect.adjusted(-4.0, -4.0, 4.0, 4.0));
        }
    }
    for (const DiagramText& t : d.labels)
        draw(painter, t);
}
