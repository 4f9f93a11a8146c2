// Geometry of the project block diagram, in lower-left coordinates: the
// sum-and-filter model (index 1) or the multirate model (any other index).
#pragma once

#include <functional>

#include <QColor>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <QVector>

struct DiagramText {
    QPointF at; // lower-left corner of the text box
    QString text;
    bool large = false; // 20-point font instead of 16
    qreal scale = 1.0;  // < 1 where the text had to shrink to fit its gap, 0 left out
};

struct DiagramBox {
    QRectF rect;
    QColor fill;
    // The stage the charts show: drawn with a wide coloured frame.
    bool highlighted = false;
};

// The multirate stage whose output the project charts show, if any.
enum class DiagramStage { None, Upsampler, Filter };

struct BlockDiagramLayout {
    QVector<DiagramText> inputs; // x₁[n], x₂[n] and their rates
    DiagramText title;
    QRectF summingCircle;      // bounding square of the circle
    QVector<DiagramBox> boxes; // in fill order
    QVector<QPolygonF> lines;  // connecting lines, no arrow heads
    QVector<DiagramText> labels;
};

inline constexpr int kSumAndFilterDiagram = 1;

// index: 1 sum-and-filter, anything else multirate; width, height: view size;
// stage: the box to highlight (multirate only).
BlockDiagramLayout blockDiagramLayout(int index, float width, float height,
                                      DiagramStage stage = DiagramStage::None);

// Keeps each small label on the signal line clear of the blocks at any view
// width: a label that would touch the circle or a box is centred in the gap
// between its neighbours by its measured width, and shrunk when even the
// whole gap is too narrow; a block's symbol is centred in a block it would
// overflow. Labels that already fit keep their place. The
// title is left out when the view is too short to hold it above the blocks.
void fitLabelsBetweenBlocks(BlockDiagramLayout& d, float width,
                            const std::function<qreal(const DiagramText&)>& textWidth);
