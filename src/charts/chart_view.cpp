// Base of the chart views: painting, the cached chart under the cursor
// overlay, and the chart files.
#include "charts/chart_view.h"

#include <cmath>

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>

#include "charts/chart_export.h"
#include "charts/chart_painting.h"

namespace {

// The read-out's numbers: a real minus sign, no trailing zeros.
QString readoutNumber(double value, int digits)
{
    if (std::isnan(value))
        return QStringLiteral("\u2014");
    QString text = QString::number(value, 'g', digits);
    if (text.startsWith(QLatin1Char('-')))
        text.replace(0, 1, QChar(0x2212));
    return text;
}

} // namespace

GVRChartView::GVRChartView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // Every pass paints the whole bounds, background included.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QSize GVRChartView::sizeHint() const
{
    return QSize(640, 300);
}

QString GVRChartView::chartTitle() const
{
    return QStringLiteral("Chart");
}

void GVRChartView::chartChanged()
{
    overlayOnly_ = false;
    fullPending_ = true;
    seriesValid_ = false;
    update();
}

void GVRChartView::overlayChanged()
{
    // A pending full pass stays a full pass.
    if (!cache_.isNull() && !fullPending_)
        overlayOnly_ = true;
    update();
}

void GVRChartView::setChartZoom(const ChartZoom& zoom)
{
    zoom_ = zoom;
    chartChanged();
}

void GVRChartView::resetZoom()
{
    setChartZoom(ChartZoom{});
}

ChartScene GVRChartView::currentScene(QSizeF size)
{
    const auto w = float(size.width());
    const auto h = float(size.height());
    ChartScene scene = layoutChart(w, h);
    defaultRange_ = scene.viewRange;
    hasData_ = scene.hasData;
    seriesValid_ = false;
    if (!zoom_.isDefault() && scene.hasData)
        scene = layoutZoomedChart(currentSeries(), visibleRange(), w, h);
    if (scene.hasData)
        decorateScene(scene, size);
    return scene;
}

const ChartSeries& GVRChartView::currentSeries()
{
    if (!seriesValid_) {
        series_ = chartSeries();
        seriesValid_ = true;
    }
    return series_;
}

ChartRange GVRChartView::visibleRange() const
{
    return chartzoom::visibleRange(defaultRange_, zoom_);
}

void GVRChartView::setCursorIndex(int index)
{
    const int count = int(currentSeries().xs.size());
    cursorIndex_ = count == 0 ? -1 : std::clamp(index, 0, count - 1);
    cursorShown_ = cursorIndex_ >= 0;
    overlayChanged();
}

QString GVRChartView::readoutText()
{
    const ChartSeries& s = currentSeries();
    if (cursorIndex_ < 0 || cursorIndex_ >= int(s.xs.size()))
        return QString();
    const size_t i = size_t(cursorIndex_);
    return QStringLiteral("%1 %2, %3 %4")
        .arg(readoutNumber(s.xs[i], 4), s.x.unit, readoutNumber(s.ys[i], 3), s.y.unit);
}

void GVRChartView::paintEvent(QPaintEvent*)
{
    const QSizeF size = this->size();
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (size * ratio).toSize();
    if (!overlayOnly_ || cache_.size() != pixels) {
        // The chart is drawn once into the cache; cursor moves only repaint over it.
        if (cache_.size() != pixels) {
            cache_ = QPixmap(pixels);
            cache_.setDevicePixelRatio(ratio);
        }
        const ChartScene scene = currentScene(size);
        QPainter chart(&cache_);
        chartpaint::paintChartScene(chart, scene, size, font());
    }
    overlayOnly_ = false;
    fullPending_ = false;
    QPainter painter(this);
    painter.drawPixmap(0, 0, cache_);
    paintOverlay(painter);
}

void GVRChartView::paintOverlay(QPainter& painter)
{
    const QSizeF size = this->size();
    if (cursorShown_ && hasData_ && cursorIndex_ >= 0) {
        const ChartSeries& s = currentSeries();
        if (cursorIndex_ < int(s.xs.size())) {
            const size_t i = size_t(cursorIndex_);
            const QPointF at =
                chartzoom::toView(visibleRange(), s.xs[i], s.ys[i], size.width(), size.height());
            // Widget coordinates: y downward.
            const double x = at.x();
            const double y = size.height() - at.y();
            painter.setRenderHint(QPainter::Antialiasing, false);
            painter.setPen(QPen(QColor(0, 0, 0, 150), 0.0));
            if (x >= 0.0 && x <= size.width())
                painter.drawLine(QPointF(x, 0.0), QPointF(x, size.height()));
            if (std::isfinite(y) && y >= 0.0 && y <= size.height())
                painter.drawLine(QPointF(0.0, y), QPointF(size.width(), y));
            const QString text = readoutText();
            const QFontMetricsF metrics(font());
            QRectF box(0.0, 0.0, metrics.horizontalAdvance(text) + 8.0, metrics.height() + 4.0);
            // Beside the point, kept inside the view.
            box.moveTopLeft(QPointF(std::isfinite(x) ? x + 8.0 : 8.0, 8.0));
            if (box.right() > size.width() - 4.0)
                box.moveRight(std::isfinite(x) ? x - 8.0 : size.width() - 4.0);
            painter.fillRect(box, QColor(255, 255, 240, 235));
            painter.setPen(QColor(0, 0, 0));
            painter.drawRect(box);
            painter.drawText(box, Qt::AlignCenter, text);
        }
    }
    if (drag_ == Drag::Zoom) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.0, Qt::DashLine));
        QColor fill = palette().color(QPalette::Highlight);
        fill.setAlpha(40);
        painter.setBrush(fill);
        painter.drawRect(QRect(dragStart_, dragLast_).normalized());
    }
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(QPointF(1.0, 1.0), size - QSizeF(2.0, 2.0)));
    }
}

bool GVRChartView::exportChart(const QString& path, QSize size, qreal devicePixelRatio, QString* error)
{
    const ChartScene scene = currentScene(QSizeF(size));
    return chartexport::writeChartFile(path, scene, currentSeries(), size, devicePixelRatio, font(),
                                       chartTitle(), error);
}

void GVRChartView::copyImage()
{
    const ChartScene scene = currentScene(QSizeF(size()));
    QGuiApplication::clipboard()->setImage(
        chartexport::renderImage(scene, size(), devicePixelRatioF(), font()));
}
