// Small numeric helpers of the chart layouts.
#include "charts/chart_segments.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// Liang–Barsky update of the entry and exit parameters for one boundary.
bool clipTest(double p, double q, double& t0, double& t1)
{
    if (p == 0.0)
        return q >= 0.0;
    const double r = q / p;
    if (p < 0.0) {
        if (r > t1)
            return false;
        if (r > t0)
            t0 = r;
    } else {
        if (r < t0)
            return false;
        if (r < t1)
            t1 = r;
    }
    return true;
}

} // namespace

void appendClippedSegment(QVector<QLineF>& segments, QPointF a, QPointF b, const QRectF& clip)
{
    if (!std::isfinite(a.x()) || !std::isfinite(a.y()) || !std::isfinite(b.x()) || !std::isfinite(b.y()))
        return;
    // Most segments lie inside: keep them exactly as computed.
    if (clip.contains(a) && clip.contains(b)) {
        segments.append(QLineF(a, b));
        return;
    }
    const double dx = b.x() - a.x();
    const double dy = b.y() - a.y();
    double t0 = 0.0;
    double t1 = 1.0;
    if (!clipTest(-dx, a.x() - clip.left(), t0, t1) || !clipTest(dx, clip.right() - a.x(), t0, t1) ||
        !clipTest(-dy, a.y() - clip.top(), t0, t1) || !clipTest(dy, clip.bottom() - a.y(), t0, t1))
        return;
    const QPointF start(a.x() + t0 * dx, a.y() + t0 * dy);
    const QPointF end(a.x() + t1 * dx, a.y() + t1 * dy);
    segments.append(QLineF(start, end));
}

QRectF curveClipRect(float width, float height)
{
    constexpr double margin = 4.0;
    return QRectF(-margin, -margin, double(width) + 2 * margin, double(height) + 2 * margin);
}

float elementAt(std::span<const double> array, long long index)
{
    if (index < 0 || index >= static_cast<long long>(array.size()))
        return std::numeric_limits<float>::quiet_NaN();
    return static_cast<float>(array[static_cast<std::size_t>(index)]);
}

int unitIndex(double value, int count)
{
    if (!std::isfinite(value) || value <= -1.0 || value >= double(count))
        return -1;
    return static_cast<int>(value);
}

int unitIndexAt(std::span<const double> array, long long index, int count)
{
    if (index < 0 || index >= static_cast<long long>(array.size()))
        return -1;
    return unitIndex(array[static_cast<std::size_t>(index)], count);
}

QString nameAt(const QStringList& names, int index)
{
    return index >= 0 && index < names.size() ? names.at(index) : QString();
}

QString formatTwoDecimals(float value)
{
    return QString::asprintf("%1.2f", double(value));
}

QString formatNoDecimals(float value)
{
    return QString::asprintf("%1.0f", double(value));
}

long long loopCount(float limit)
{
    constexpr float kCap = 1.0e9f;
    if (!(limit > 0.0f))
        return 0;
    if (limit > kCap)
        return static_cast<long long>(kCap);
    return static_cast<long long>(std::ceil(limit));
}

void appendCurve(QVector<QLineF>& segments, std::span<const double> array, long long first, long long count,
                 float xSpacing, float yScale, float yOffset, const QRectF& clip)
{
    const long long size = static_cast<long long>(array.size());
    if (first < 0 || first >= size)
        return;
    count = std::min(count, size - 1 - first);
    if (count <= 0)
        return;
    segments.reserve(segments.size() + static_cast<qsizetype>(count));
    float previous = elementAt(array, first) * yScale + yOffset;
    for (long long i = 0; i < count; ++i) {
        const float next = elementAt(array, first + i + 1) * yScale + yOffset;
        appendClippedSegment(segments, QPointF(float(i) * xSpacing, previous),
                             QPointF(float(i + 1) * xSpacing, next), clip);
        previous = next;
    }
}

void appendVerticalGridLine(ChartScene& scene, float x, const QString& label, float width, float height)
{
    const QRectF clip = curveClipRect(width, height);
    if (!std::isfinite(x) || x < clip.left() || x > clip.right())
        return;
    scene.gridLines.append(QLineF(x, 0.0, x, height));
    scene.labels.append({QPointF(x + 5.0f, 5.0), label, true});
}
