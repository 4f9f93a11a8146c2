// The block diagram of the project window: the signal flow of the
// sum-and-filter or the multirate model, scaled to the view.
#pragma once

#include <QFont>
#include <QWidget>

#include "charts/block_diagram_layout.h"

class GVRViewBlockDiagram : public QWidget {
    Q_OBJECT
public:
    explicit GVRViewBlockDiagram(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    int blockDiagramIndex() const { return blockDiagramIndex_; }
    DiagramStage highlightedStage() const { return stage_; }

public slots:
    // 1 sum-and-filter model, anything else the multirate model. Redraws.
    void newBlockDiagramWithIndex(int index);
    // Marks the multirate block whose output the charts show. Redraws.
    void setHighlightedStage(DiagramStage stage);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int blockDiagramIndex_ = 0;
    DiagramStage stage_ = DiagramStage::None;
    QFont textFont_;
    QFont textFontLarge_;
};
