// Word Length chart: a plain QPainter plot with dB ticks every 10 dB.
#include "charts/word_length_chart.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

GVRViewWordLength::GVRViewWordLength(QWidget* parent) : QWidget(parent)
{
    setMinimumSize(320, 200);
}

void GVRViewWordLength::setSweep(std::vector<double> bits, std::vector<double> attenuationDb, double doubleDb,
                                 int chosenBits)
{
    bits_ = std::move(bits);
    attenuationDb_ = std::move(attenuationDb);
    if (attenuationDb_.size() != bits_.size())
        bits_.clear(), attenuationDb_.clear();
    doubleDb_ = doubleDb;
    chosenBits_ = chosenBits;
    update();
}

void GVRViewWordLength::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().base());
    const QRectF plot = QRectF(rect()).adjusted(56, 28, -20, -40);
    p.setPen(palette().text().color());
    p.drawRect(plot);
    p.drawText(QRectF(0, 4, width(), 20), Qt::AlignHCenter,
               tr("Stopband attenuation against coefficient bits"));
    p.drawText(QRectF(plot.left(), plot.bottom() + 20, plot.width(), 18), Qt::AlignHCenter, tr("bits"));

    double top = std::isfinite(doubleDb_) ? doubleDb_ : 0.0;
    for (const double a : attenuationDb_)
        if (std::isfinite(a))
            top = std::max(top, a);
    top = std::max(10.0, std::ceil(top / 10.0) * 10.0 + 10.0);
    auto x = [&](double b) { return plot.left() + (b - 8.0) / 12.0 * plot.width(); };
    auto y = [&](double dB) { return plot.bottom() - std::clamp(dB, 0.0, top) / top * plot.height(); };

    const QColor grid = palette().mid().color();
    for (int b = 8; b <= 20; ++b) {
        p.setPen(grid);
        p.drawLine(QPointF(x(b), plot.bottom()), QPointF(x(b), plot.bottom() + 4));
        p.setPen(palette().text().color());
        p.drawText(QRectF(x(b) - 12, plot.bottom() + 5, 24, 14), Qt::AlignHCenter, QString::number(b));
    }
    const double step = top > 100.0 ? 20.0 : 10.0;
    for (double dB = 0.0; dB <= top + 1e-9; dB += step) {
        p.setPen(QPen(grid, 0.5, Qt::DotLine));
        p.drawLine(QPointF(plot.left(), y(dB)), QPointF(plot.right(), y(dB)));
        p.setPen(palette().text().color());
        p.drawText(QRectF(0, y(dB) - 7, plot.left() - 6, 14), Qt::AlignRight | Qt::AlignVCenter,
                   QString::number(dB, 'f', 0));
    }
    if (bits_.empty())
        return;
    if (std::isfinite(doubleDb_)) {
        p.setPen(QPen(QColor(0, 128, 0), 1.0, Qt::DashLine));
        p.drawLine(QPointF(plot.left(), y(doubleDb_)), QPointF(plot.right(), y(doubleDb_)));
        p.drawText(QRectF(plot.left() + 4, y(doubleDb_) - 16, 120, 14), Qt::AlignLeft, tr("Double"));
    }
    if (chosenBits_ >= 8 && chosenBits_ <= 20) {
        p.setPen(QPen(QColor(200, 0, 0), 1.5));
        p.drawLine(QPointF(x(chosenBits_), plot.top()), QPointF(x(chosenBits_), plot.bottom()));
    }
    QPainterPath line;
    const QColor blue(0, 0, 200);
    for (std::size_t i = 0; i < bits_.size(); ++i) {
        if (!std::isfinite(attenuationDb_[i]))
            continue;
        const QPointF point(x(bits_[i]), y(attenuationDb_[i]));
        if (line.elementCount() == 0)
            line.moveTo(point);
        else
            line.lineTo(point);
        p.setPen(Qt::NoPen);
        p.setBrush(blue);
        p.drawEllipse(point, 3.0, 3.0);
    }
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(blue, 1.5));
    p.drawPath(line);
}
