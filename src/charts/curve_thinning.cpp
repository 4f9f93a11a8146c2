// Thinning of dense curves before painting.
#include "charts/curve_thinning.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

class ChainThinner {
public:
    ChainThinner(ThinCurve& out, double penWidth) : out_(out), penWidth_(penWidth) {}

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
        // A column where the curve turns back and spans more than a pen width
        // is drawn solid anyway: one column shows it. So is one the curve
        // crosses steeply, a slant under a pen width wide over four of
        // height (and an antialiased stroke of it costs per row). A column
        // crossed in one direction at a gentler slope keeps its slant
        // through its end points.
        const double span = highY - lowY;
        if ((span >= penWidth_ && turnsBack(points, count)) || span >= kSteepWidths * penWidth_) {
            // Joining from the previous column is needed unless that was a
            // bar overlapping this one.
            const bool covered = previousBar_ && lowY <= previousHigh_ && highY >= previousLow_;
            if (!covered)
                keep(points[0]);
            flushKept();
            out_.columns.append(QRectF(column + 0.5 - 0.5 * penWidth_, lowY, penWidth_, highY - lowY));
            keep(points[count - 1]);
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

    static bool turnsBack(const QPointF* points, qsizetype count)
    {
        bool rises = false;
        bool falls = false;
        for (qsizetype i = 1; i < count; ++i) {
            rises = rises || points[i].y() > points[i - 1].y();
            falls = falls || points[i].y() < points[i - 1].y();
        }
        return rises && falls;
    }

    // Extends the last segment to p while every point it has swallowed stays
    // within kTolerance of it vertically (a cone of slopes from the anchor),
    // otherwise starts a new segment. Fewer joints also means fewer places
    // where two antialiased butt ends share a pixel and leave it lighter.
    void keep(QPointF p)
    {
        const qsizetype n = kept_.size();
        if (n > 0 && kept_[n - 1] == p)
            return;
        if (n == 0) {
            kept_.append(p);
            return;
        }
        if (n > 1) {
            const double dx = p.x() - anchor_.x();
            if (dx > 0.0) {
                const double slope = (p.y() - anchor_.y()) / dx;
                if (slope >= slopeLow_ && slope <= slopeHigh_) {
                    kept_[n - 1] = p;
                    narrowCone(p);
                    return;
                }
            }
        }
        anchor_ = kept_[n - 1];
        slopeLow_ = -std::numeric_limits<double>::infinity();
        slopeHigh_ = std::numeric_limits<double>::infinity();
        narrowCone(p);
        kept_.append(p);
    }

    void narrowCone(QPointF p)
    {
        const double dx = p.x() - anchor_.x();
        if (!(dx > 0.0)) {
            // A vertical step: nothing may extend it.
            slopeLow_ = std::numeric_limits<double>::infinity();
            slopeHigh_ = -std::numeric_limits<double>::infinity();
            return;
        }
        slopeLow_ = std::max(slopeLow_, (p.y() - kTolerance - anchor_.y()) / dx);
        slopeHigh_ = std::min(slopeHigh_, (p.y() + kTolerance - anchor_.y()) / dx);
    }

    void flushKept()
    {
        for (qsizetype i = 1; i < kept_.size(); ++i) {
            const QPointF a = kept_[i - 1];
            const QPointF b = kept_[i];
            // A steep stroke about a pixel wide is a solid column too, off
            // its slant by at most a little over half a pixel.
            const double rise = std::abs(b.y() - a.y());
            if (std::abs(b.x() - a.x()) <= kSteepRun && rise >= kSteepWidths * penWidth_) {
                const double x = 0.5 * (a.x() + b.x());
                out_.columns.append(QRectF(x - 0.5 * penWidth_, std::min(a.y(), b.y()), penWidth_, rise));
            } else {
                out_.segments.append(QLineF(a, b));
            }
        }
        kept_.clear();
    }

    ThinCurve& out_;
    const double penWidth_;
    static constexpr double kTolerance = 0.25; // pixels
    static constexpr double kSteepWidths = 4.0;
    static constexpr double kSteepRun = 1.25; // pixels
    QVector<QPointF> kept_;
    QPointF anchor_;
    double slopeLow_ = 0.0;
    double slopeHigh_ = 0.0;
    bool previousBar_ = false;
    double previousLow_ = 0.0;
    double previousHigh_ = 0.0;
};

} // namespace

ThinCurve thinCurveForPixels(const QVector<QLineF>& segments, double penWidth)
{
    ThinCurve out;
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
