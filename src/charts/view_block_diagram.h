// The block diagram of the project window: the signal flow of the
// sum-and-filter or the multirate model, scaled to the view.
#pragma once

#include <QFont>
#include <QWidget>

class GVRViewBlockDiagram : public QWidget {
    Q_OBJECT
public:
    explicit GVRViewBlockDiagram(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    int blockDiagramIndex() const { return blockDiagramIndex_; }

public slots:
    // 1 sum-and-filter model, anything else the multirate model. Redraws.
    void newBlockDiagramWithIndex(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int blockDiagramIndex_ = 0;
    QFont textFont_;
    QFont textFontLarge_;
};
