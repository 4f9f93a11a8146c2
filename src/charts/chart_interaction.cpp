// The interaction every chart view shares: the wheel zooms x around the
// pointer (with Ctrl, y), a left drag draws a zoom rectangle, a middle or
// Shift+left drag pans, double-click or Escape returns to the default view,
// the pointer or the arrow keys move the read-out, and the context menu
// copies or saves the chart.
#include "charts/chart_view.h"

#include <cmath>

#include <QContextMenuEvent>
#include <QFileDialog>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMouseEvent>
#include <QWheelEvent>

#include "charts/chart_export.h"

namespace {

// One wheel notch zooms by this factor.
constexpr double kWheelFactor = 1.25;

QString askWithDialog(QWidget* parent, const QString& caption, const QString& filters)
{
    return QFileDialog::getSaveFileName(parent, caption, QString(), filters);
}

GVRChartView::FileChooser& fileChooser()
{
    static GVRChartView::FileChooser chooser = askWithDialog;
    return chooser;
}

} // namespace

void GVRChartView::setFileChooser(FileChooser chooser)
{
    // An empty chooser brings the file dialog back.
    fileChooser() = chooser ? std::move(chooser) : FileChooser(askWithDialog);
}

void GVRChartView::moveCursorToView(QPoint pos)
{
    if (!hasData_ || width() <= 0)
        return;
    const double x = chartzoom::xAtView(visibleRange(), pos.x(), width());
    cursorIndex_ = chartseries::nearestIndex(currentSeries(), x);
    cursorShown_ = cursorIndex_ >= 0;
    overlayChanged();
}

void GVRChartView::keyPressEvent(QKeyEvent* event)
{
    // Keys are taken so they never reach the window; only these act.
    event->accept();
    switch (event->key()) {
    case Qt::Key_Escape:
        drag_ = Drag::None;
        resetZoom();
        break;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int step = event->key() == Qt::Key_Left ? -1 : 1;
        if (cursorIndex_ < 0) {
            const ChartRange r = visibleRange();
            setCursorIndex(chartseries::nearestIndex(currentSeries(), 0.5 * (r.x0 + r.x1)));
        } else {
            setCursorIndex(cursorIndex_ + step);
        }
        break;
    }
    default:
        break;
    }
}

void GVRChartView::keyReleaseEvent(QKeyEvent* event)
{
    event->accept();
}

void GVRChartView::mousePressEvent(QMouseEvent* event)
{
    const bool pan = event->button() == Qt::MiddleButton ||
                     (event->button() == Qt::LeftButton && (event->modifiers() & Qt::ShiftModifier));
    if (pan)
        drag_ = Drag::Pan;
    else if (event->button() == Qt::LeftButton)
        drag_ = Drag::Zoom;
    else
        return QWidget::mousePressEvent(event);
    dragStart_ = event->position().toPoint();
    dragLast_ = dragStart_;
    setFocus(Qt::MouseFocusReason);
    event->accept();
}

void GVRChartView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pos = event->position().toPoint();
    if (drag_ == Drag::Pan && width() > 0 && height() > 0) {
        const double dx = double(pos.x() - dragLast_.x()) / width();
        const double dy = -double(pos.y() - dragLast_.y()) / height();
        dragLast_ = pos;
        zoom_ = chartzoom::pan(zoom_, dx, dy);
        chartChanged();
    } else if (drag_ == Drag::Zoom) {
        dragLast_ = pos;
    }
    moveCursorToView(pos);
}

void GVRChartView::mouseReleaseEvent(QMouseEvent* event)
{
    if (drag_ == Drag::Zoom) {
        const QPoint end = event->position().toPoint();
        // The rectangle in lower-left coordinates.
        const QRectF rect(QPointF(dragStart_.x(), height() - dragStart_.y()),
                          QPointF(end.x(), height() - end.y()));
        drag_ = Drag::None;
        if (const auto z = chartzoom::zoomToRect(zoom_, rect, width(), height()))
            setChartZoom(*z);
        else
            overlayChanged();
    }
    drag_ = Drag::None;
    event->accept();
}

void GVRChartView::mouseDoubleClickEvent(QMouseEvent* event)
{
    drag_ = Drag::None;
    resetZoom();
    event->accept();
}

void GVRChartView::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0.0 || width() <= 0 || height() <= 0)
        return event->ignore();
    const double factor = std::pow(kWheelFactor, notches);
    const QPointF pos = event->position();
    if (event->modifiers() & Qt::ControlModifier)
        zoom_ = chartzoom::zoomY(zoom_, 1.0 - pos.y() / height(), factor);
    else
        zoom_ = chartzoom::zoomX(zoom_, pos.x() / width(), factor);
    chartChanged();
    event->accept();
}

void GVRChartView::leaveEvent(QEvent* event)
{
    // The keyboard cursor stays while the chart has focus.
    if (!hasFocus() && cursorShown_) {
        cursorShown_ = false;
        overlayChanged();
    }
    QWidget::leaveEvent(event);
}

void GVRChartView::focusInEvent(QFocusEvent* event)
{
    overlayChanged();
    QWidget::focusInEvent(event);
}

void GVRChartView::focusOutEvent(QFocusEvent* event)
{
    overlayChanged();
    QWidget::focusOutEvent(event);
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

QMenu* GVRChartView::createContextMenu(QWidget* parent)
{
    auto* menu = new QMenu(parent);
    menu->addAction(tr("Copy Image"), this, &GVRChartView::copyImage)->setObjectName("copyImageAction");
    menu->addAction(tr("Save Image As…"), this, &GVRChartView::saveImageAs)->setObjectName("saveImageAction");
    menu->addAction(tr("Save Data As…"), this, &GVRChartView::saveDataAs)->setObjectName("saveDataAction");
    return menu;
}

void GVRChartView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createContextMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
    event->accept();
}

QString GVRChartView::askFileName(const QString& caption, const QString& filters)
{
    return fileChooser()(this, caption, filters);
}

void GVRChartView::saveTo(const QString& path)
{
    if (path.isEmpty())
        return;
    QString error;
    if (!exportChart(path, size(), devicePixelRatioF(), &error))
        QMessageBox::warning(this, tr("The chart was not saved"), error);
}

void GVRChartView::saveImageAs()
{
    saveTo(
        askFileName(tr("Save Image As"), tr("PNG Image (*.png);;SVG Image (*.svg);;PDF Document (*.pdf)")));
}

void GVRChartView::saveDataAs()
{
    QString path = askFileName(tr("Save Data As"), tr("CSV File (*.csv)"));
    if (!path.isEmpty() && chartexport::formatForPath(path) != chartexport::Format::Csv)
        path += QStringLiteral(".csv");
    saveTo(path);
}

void GVRChartView::exportChartAs()
{
    saveTo(askFileName(tr("Export Chart"), tr("PNG Image (*.png);;SVG Image (*.svg);;PDF Document "
                                              "(*.pdf);;CSV File (*.csv)")));
}

GVRChartView* GVRChartView::chartIn(QWidget* window)
{
    if (!window)
        return nullptr;
    if (auto* focused = qobject_cast<GVRChartView*>(window->focusWidget()))
        return focused;
    for (GVRChartView* chart : window->findChildren<GVRChartView*>())
        if (chart->isVisible())
            return chart;
    return nullptr;
}
