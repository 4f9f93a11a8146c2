// Base of the five charts.
#include "charts/chart_view.h"

#include <QKeyEvent>
#include <QPainter>

#include "charts/chart_painting.h"

GVRChartView::GVRChartView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    // Every pass paints the whole bounds, background included.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize GVRChartView::sizeHint() const
{
    return QSize(640, 300);
}

void GVRChartView::paintEvent(QPaintEvent*)
{
    const QSizeF size = this->size();
    const ChartScene scene = layoutChart(float(size.width()), float(size.height()));
    QPainter painter(this);
    chartpaint::paintChartScene(painter, scene, size, font());
}

void GVRChartView::keyPressEvent(QKeyEvent* event)
{
    // Keys are taken so they neither change the chart nor reach the window.
    event->accept();
}

void GVRChartView::keyReleaseEvent(QKeyEvent* event)
{
    event->accept();
}

bool GVRChartView::event(QEvent* event)
{
    // No tool tip here, and none of a parent's either.
    if (event->type() == QEvent::ToolTip || event->type() == QEvent::WhatsThis) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}
