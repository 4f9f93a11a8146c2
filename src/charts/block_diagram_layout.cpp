// Geometry of the project block diagram. Every position is a fraction of the
// view's size plus a fixed offset, in single precision.
#include "charts/block_diagram_layout.h"

#include "charts/chart_colors.h"

namespace {

QPolygonF polyline(std::initializer_list<QPointF> points)
{
    return QPolygonF(QVector<QPointF>(points));
}

void layoutSumAndFilter(BlockDiagramLayout& d, float w, float h)
{
    const float sumX = w / 3.0f;
    const float filterX = 2.0f * w / 3.0f;
    const float midY = h / 2.0f;

    d.title = {QPointF(sumX + 25.0f, 0.85f * h), QStringLiteral("Sum & Filter Model"), true};
    d.summingCircle = QRectF(sumX - 20.0f, midY - 20.0f, 40.0, 40.0);
    d.boxes = {{QRectF(filterX - 40.0f, midY - 50.0f, 80.0, 100.0), chartcolors::filter()}};
    d.lines = {
        polyline({QPointF(0.0, 0.75f * h), QPointF(sumX, 0.75f * h), QPointF(sumX, midY + 20.0f)}),
        polyline({QPointF(0.0, 0.25f * h), QPointF(sumX, 0.25f * h), QPointF(sumX, midY - 20.0f)}),
        polyline({QPointF(sumX + 20.0f, midY), QPointF(filterX - 40.0f, midY)}),
        polyline({QPointF(filterX + 40.0f, midY), QPointF(w, midY)}),
    };
    d.labels = {
        {QPointF(w / 2.0f - 15.0f, midY), QStringLiteral("x[n]"), false},
        {QPointF(w / 2.0f - 10.0f, midY - 20.0f), QStringLiteral("fs"), false},
        {QPointF(sumX - 8.0f, midY - 10.0f), QStringLiteral("\u2211"), true},
        {QPointF(filterX - 22.0f, midY - 12.5f), QStringLiteral("H[n]"), true},
        {QPointF(w - 45.0f, midY), QStringLiteral("y[n]"), false},
        {QPointF(w - 40.0f, midY - 20.0f), QStringLiteral("fs"), false},
    };
}

void layoutMultirate(BlockDiagramLayout& d, float w, float h, DiagramStage stage)
{
    const float sumX = w / 5.0f;
    const float upX = 2.0f * w / 5.0f;
    const float filterX = 3.0f * w / 5.0f;
    const float downX = 4.0f * w / 5.0f;
    const float midY = h / 2.0f;

    d.title = {QPointF(0.4f * w, 0.85f * h), QStringLiteral("Multirate Model"), true};
    d.summingCircle = QRectF(sumX - 20.0f, midY - 20.0f, 40.0, 40.0);
    d.boxes = {
        {QRectF(filterX - 40.0f, midY - 50.0f, 80.0, 100.0), chartcolors::filter(),
         stage == DiagramStage::Filter},
        {QRectF(upX - 25.0f, midY - 50.0f, 50.0, 100.0), chartcolors::multi(),
         stage == DiagramStage::Upsampler},
        {QRectF(downX - 25.0f, midY - 50.0f, 50.0, 100.0), chartcolors::multi(), false},
    };
    d.lines = {
        polyline({QPointF(0.0, 0.75f * h), QPointF(sumX, 0.75f * h), QPointF(sumX, midY + 20.0f)}),
        polyline({QPointF(0.0, 0.25f * h), QPointF(sumX, 0.25f * h), QPointF(sumX, midY - 20.0f)}),
        polyline({QPointF(sumX + 20.0f, midY), QPointF(upX - 25.0f, midY)}),
        polyline({QPointF(upX + 25.0f, midY), QPointF(filterX - 40.0f, midY)}),
        polyline({QPointF(filterX + 40.0f, midY), QPointF(downX - 25.0f, midY)}),
        polyline({QPointF(downX + 25.0f, midY), QPointF(w, midY)}),
    };
    // 16.666666f: the single-precision value nearest 50/3 centres "↓M" in its box.
    d.labels = {
        {QPointF(0.3f * w - 15.0f, midY), QStringLiteral("x[n]"), false},
        {QPointF(0.3f * w - 10.0f, midY - 20.0f), QStringLiteral("fs"), false},
        {QPointF(sumX - 8.0f, midY - 10.0f), QStringLiteral("\u2211"), true},
        {QPointF(upX - 13.0f, midY - 12.5f), QStringLiteral("\u2191L"), true},
        {QPointF(w / 2.0f - 25.0f, midY), QStringLiteral("w[m]"), false},
        {QPointF(w / 2.0f - 20.0f, midY - 20.0f), QStringLiteral("Lfs"), false},
        {QPointF(filterX - 22.0f, midY - 12.5f), QStringLiteral("H[m]"), true},
        {QPointF(0.7f * w - 10.0f, midY), QStringLiteral("p[m]"), false},
        {QPointF(0.7f * w - 5.0f, midY - 20.0f), QStringLiteral("Lfs"), false},
        {QPointF(downX - 16.666666f, midY - 12.5f), QStringLiteral("\u2193M"), true},
        {QPointF(w - 45.0f, midY), QStringLiteral("y[k]"), false},
        {QPointF(w - 55.0f, midY - 20.0f), QStringLiteral("Lfs/M"), false},
    };
}

} // namespace

BlockDiagramLayout blockDiagramLayout(int index, float width, float height, DiagramStage stage)
{
    BlockDiagramLayout d;
    d.inputs = {
        {QPointF(15.0, 0.75f * height), QStringLiteral("x\u2081[n]"), false},
        {QPointF(25.0, 0.75f * height - 20.0f), QStringLiteral("fs"), false},
        {QPointF(15.0, 0.25f * height), QStringLiteral("x\u2082[n]"), false},
        {QPointF(25.0, 0.25f * height - 20.0f), QStringLiteral("fs"), false},
    };
    if (index == kSumAndFilterDiagram)
        layoutSumAndFilter(d, width, height);
    else
        layoutMultirate(d, width, height, stage);
    return d;
}
