// Thinning of dense curves before painting.
#include "charts/curve_thinning.h"

#include <algorithm>
#include <cmath>

namespace {

class ChainThinner {
public:
    ChainThinner(QVector<QLineF>& out, double penWidth) : out_(out), penWidth_(penWidth) {}

    // One connected run of points.
    void thin(const QVector<QPointF>& chain)
    {
        kept_.clear();
        previousBar_ = false;
        qsizetype start = 0;
        while (start < chain.size()) {
            const double column = std::floor(chain[start].x());
            qsizetype end = start + 1;
            while (end < chain.size() && std::floor(chain[end].x()) == column)
                ++end;
            addColumn(chain.constData() + start, end - start, column);
            start = end;
        }
        flushKept();
    }

private:
    void addColumn(const QPointF* points, qsizetype count, double column)
    {
        qsizetype low = 0;
        qsizetype high = 0;
        for (qsizetype i = 1; i < count; ++i) {
            if (points[i].y() < points[low].y())
                low = i;
            if (points[i].y() > points[high].y())
                high = i;
        }
        const double lowY = points[low].y();
        const double highY = points[high].y();
        if (count >= 3 && highY - lowY >= penWidth_) {
            // Joining from the previous column is needed unless that was a
            // bar overlapping this one.
            const bool covered = previousBar_ && lowY <= previousHigh_ && highY >= previousLow_;
            if (!covered)
                keep(points[0]);
            flushKept();
            const double x = column + 0.5;
            out_.append(QLineF(x, lowY, x, highY));
            kept_.append(points[count - 1]);
            previousBar_ = true;
            previousLow_ = lowY;
            previousHigh_ = highY;
            return;
        }
        keep(points[0]);
        const qsizetype a = std::min(low, high);
        const qsizetype b = std::max(low, high);
        if (a > 0 && a < count - 1)
            keep(points[a]);
        if (b > 0 && b < count - 1 && b != a)
            keep(points[b]);
        if (count > 1)
            keep(points[count - 1]);
        previousBar_ = false;
    }

    // A point between two at the same height is replaced by the later one.
    void keep(QPointF p)
    {
        const qsizetype n = kept_.size();
        if (n > 0 && kept_[n - 1] == p)
            return;
        if (n > 1 && kept_[n - 2].y() == kept_[n - 1].y() && kept_[n - 1].y() == p.y()) {
            kept_[n - 1] = p;
            return;
        }
        kept_.append(p);
    }

    void flushKept()
    {
        for (qsizetype i = 1; i < kept_.size(); ++i)
            out_.append(QLineF(kept_[i - 1], kept_[i]));
        kept_.clear();
    }

    QVector<QLineF>& out_;
    const double penWidth_;
    QVector<QPointF> kept_;
    bool previousBar_ = false;
    double previousLow_ = 0.0;
    double previousHigh_ = 0.0;
};

}  // namespace

QVector<QLineF> thinCurveForPixels(const QVector<QLineF>& segments, double penWidth)
{
    QVector<QLineF> out;
    ChainThinner thinner(out, penWidth);
    QVector<QPointF> chain;
    for (const QLineF& s : segments) {
        if (chain.isEmpty() || s.p1() != chain.last()) {
            thinner.thin(chain);
            chain.clear();
            chain.append(s.p1());
        }
        chain.append(s.p2());
    }
    thinner.thin(chain);
    return out;
}
