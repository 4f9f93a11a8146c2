// Geometry of the project block diagram. Every position is a fraction of the
// view's size plus a fixed offset, in single precision.
#include "charts/block_diagram_layout.h"

#include "charts/chart_colors.h"

#include <algorithm>
#include <vector>

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
    // Below 600 wide the four blocks would close the gaps their labels sit
    // in: the blocks narrow with the view (their places stay fractions).
    const float k = std::min(1.0f, w / 600.0f);
    const float upHalf = 25.0f * k;
    const float filterHalf = 40.0f * k;

    d.title = {QPointF(0.4f * w, 0.85f * h), QStringLiteral("Multirate Model"), true};
    d.summingCircle = QRectF(sumX - 20.0f, midY - 20.0f, 40.0, 40.0);
    d.boxes = {
        {QRectF(filterX - filterHalf, midY - 50.0f, 2.0f * filterHalf, 100.0), chartcolors::filter(),
         stage == DiagramStage::Filter},
        {QRectF(upX - upHalf, midY - 50.0f, 2.0f * upHalf, 100.0), chartcolors::multi(),
         stage == DiagramStage::Upsampler},
        {QRectF(downX - upHalf, midY - 50.0f, 2.0f * upHalf, 100.0), chartcolors::multi(), false},
    };
    d.lines = {
        polyline({QPointF(0.0, 0.75f * h), QPointF(sumX, 0.75f * h), QPointF(sumX, midY + 20.0f)}),
        polyline({QPointF(0.0, 0.25f * h), QPointF(sumX, 0.25f * h), QPointF(sumX, midY - 20.0f)}),
        polyline({QPointF(sumX + 20.0f, midY), QPointF(upX - upHalf, midY)}),
        polyline({QPointF(upX + upHalf, midY), QPointF(filterX - filterHalf, midY)}),
        polyline({QPointF(filterX + filterHalf, midY), QPointF(downX - upHalf, midY)}),
        polyline({QPointF(downX + upHalf, midY), QPointF(w, midY)}),
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

void fitLabelsBetweenBlocks(BlockDiagramLayout& d, float width,
                            const std::function<qreal(const DiagramText&)>& textWidth)
{
    constexpr qreal pad = 3.0;
    constexpr qreal smallest = 0.5;
    std::vector<std::pair<qreal, qreal>> blocks{{d.summingCircle.left(), d.summingCircle.right()}};
    for (const DiagramBox& box : d.boxes)
        blocks.emplace_back(box.rect.left(), box.rect.right());

    // In a view too short for the title above the blocks, the title goes:
    // the window already names the model.
    qreal blocksTop = d.summingCircle.bottom();
    for (const DiagramBox& box : d.boxes)
        blocksTop = std::max(blocksTop, box.rect.bottom());
    if (d.title.at.y() < blocksTop)
        d.title.scale = 0.0;

    for (DiagramText& label : d.labels) {
        const qreal textW = textWidth(label);
        const qreal left = label.at.x();
        const qreal centre = left + textW / 2.0;
        if (label.large) { // a block's symbol: centred in a block it overflows
            for (const auto& [from, to] : blocks)
                if (centre > from && centre < to && (left < from + pad || left + textW > to - pad)) {
                    label.scale = std::max(smallest, std::min(1.0, (to - from - 2.0 * pad) / textW));
                    label.at.setX((from + to - textW * label.scale) / 2.0);
                }
            continue;
        }
        qreal gapLeft = 0.0;
        qreal gapRight = width;
        for (const auto& [from, to] : blocks) {
            if (to <= centre)
                gapLeft = std::max(gapLeft, to);
            else if (from >= centre)
                gapRight = std::min(gapRight, from);
        }
        if (left >= gapLeft + pad && left + textW <= gapRight - pad)
            continue;
        const qreal room = gapRight - gapLeft - 2.0 * pad;
        label.scale = textW > room ? std::max(smallest, room / textW) : 1.0;
        const qreal fitted = textW * label.scale;
        label.at.setX(std::max(gapLeft + pad, (gapLeft + gapRight - fitted) / 2.0));
    }
}
