// Base of the five charts: takes focus but acts on no key, never shows a tool
// tip, and paints the ChartScene its subclass lays out for the current size.
#pragma once

#include <QWidget>

#include "charts/chart_scene.h"

class GVRChartView : public QWidget {
    Q_OBJECT
public:
    explicit GVRChartView(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    // Pulls a fresh copy of the array and lays out the chart for a view of
    // width × height (lower-left origin). An empty array gives a scene without data.
    virtual ChartScene layoutChart(float width, float height) = 0;

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
};
