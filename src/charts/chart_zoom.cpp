// Zoom and pan arithmetic of the chart views, and the zoomed chart layout.
#include "charts/chart_zoom.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "charts/chart_segments.h"

namespace {

// Narrower views than this (as a fraction of the default) would only show
// rounding noise.
constexpr double kNarrowest = 1e-7;

void zoomSpan(double& a, double& b, double anchor, double factor)
{
    if (!(factor > 0.0) || !std::isfinite(factor))
        return;
    const double at = a + anchor * (b - a);
    const double na = at - (at - a) / factor;
    const double nb = at + (b - at) / factor;
    if (nb - na < kNarrowest || !std::isfinite(na) || !std::isfinite(nb))
        return;
    a = na;
    b = nb;
}

// 1, 2, 2.5 and 5 times powers of ten from 1e-9 to 1e9, ascending.
const std::array<double, 76>& fineSteps()
{
    static const std::array<double, 76> steps = [] {
        std::array<double, 76> s{};
        size_t i = 0;
        for (int e = -9; e <= 9; ++e)
            for (const double m : {1.0, 2.0, 2.5, 5.0})
                s[i++] = m * std::pow(10.0, e);
        return s;
    }();
    return steps;
}

QString formatValue(double value, int decimals)
{
    // No "-0.00" for a line that sits at zero up to rounding.
    if (std::fabs(value) < 0.5 * std::pow(10.0, -decimals))
        value = 0.0;
    return QString::number(value, 'f', decimals);
}

} // namespace

namespace chartzoom {

ChartRange visibleRange(const ChartRange& base, const ChartZoom& zoom)
{
    const double w = base.x1 - base.x0;
    const double h = base.y1 - base.y0;
    return {base.x0 + zoom.u0 * w, base.x0 + zoom.u1 * w, base.y0 + zoom.v0 * h, base.y0 + zoom.v1 * h};
}

ChartZoom zoomX(const ChartZoom& zoom, double anchor, double factor)
{
    ChartZoom z = zoom;
    zoomSpan(z.u0, z.u1, anchor, factor);
    return z;
}

ChartZoom zoomY(const ChartZoom& zoom, double anchor, double factor)
{
    ChartZoom z = zoom;
    zoomSpan(z.v0, z.v1, anchor, factor);
    return z;
}

ChartZoom pan(const ChartZoom& zoom, double dxFraction, double dyFraction)
{
    if (!std::isfinite(dxFraction) || !std::isfinite(dyFraction))
        return zoom;
    const double du = -dxFraction * (zoom.u1 - zoom.u0);
    const double dv = -dyFraction * (zoom.v1 - zoom.v0);
    return {zoom.u0 + du, zoom.u1 + du, zoom.v0 + dv, zoom.v1 + dv};
}

std::optional<ChartZoom> zoomToRect(const ChartZoom& zoom, const QRectF& rect, double width, double height)
{
    const QRectF r = rect.normalized();
    if (r.width() < 3.0 || r.height() < 3.0 || !(width > 0.0) || !(height > 0.0))
        return std::nullopt;
    const double du = zoom.u1 - zoom.u0;
    const double dv = zoom.v1 - zoom.v0;
    ChartZoom z{zoom.u0 + du * r.left() / width, zoom.u0 + du * r.right() / width,
                zoom.v0 + dv * r.top() / height, zoom.v0 + dv * r.bottom() / height};
    if (z.u1 - z.u0 < kNarrowest || z.v1 - z.v0 < kNarrowest)
        return std::nullopt;
    return z;
}

QPointF toView(const ChartRange& range, double x, double y, double width, double height)
{
    return {(x - range.x0) / (range.x1 - range.x0) * width, (y - range.y0) / (range.y1 - range.y0) * height};
}

double xAtView(const ChartRange& range, double viewX, double width)
{
    return range.x0 + viewX / width * (range.x1 - range.x0);
}

std::optional<GridStep> zoomedGridStep(double span, const ChartAxis& axis)
{
    span = std::fabs(span);
    if (!std::isfinite(span) || span <= 0.0)
        return std::nullopt;
    const std::optional<GridStep> own = chooseGridStep(float(span), axis.steps, axis.maxCount);
    if (own && own->count >= 3)
        return own;
    for (const double step : fineSteps()) {
        // A hair below a whole count is that count, not one more.
        const double k = std::ceil(span / step * (1.0 - 1e-12));
        if (k <= axis.maxCount)
            return GridStep{float(step), int(k)};
    }
    return own;
}

int labelDecimals(double step, int atLeast)
{
    int decimals = std::max(atLeast, 0);
    while (decimals < 9) {
        const double scaled = step * std::pow(10.0, decimals);
        if (std::fabs(scaled - std::round(scaled)) < 1e-6 * std::max(1.0, std::fabs(scaled)))
            break;
        ++decimals;
    }
    return decimals;
}

} // namespace chartzoom

ChartScene layoutZoomedChart(const ChartSeries& series, const ChartRange& range, float width, float height)
{
    ChartScene scene;
    scene.viewRange = range;
    if (series.empty() || !(range.x1 > range.x0) || !(range.y1 > range.y0))
        return scene;
    scene.hasData = true;
    scene.curveColor = series.color;

    // Only the points inside the visible x range, plus one either side.
    const auto& xs = series.xs;
    const auto& ys = series.ys;
    const long long first =
        std::max<long long>(0, std::lower_bound(xs.begin(), xs.end(), range.x0) - xs.begin() - 1);
    const long long last = std::min<long long>(static_cast<long long>(xs.size()) - 1,
                                               std::upper_bound(xs.begin(), xs.end(), range.x1) - xs.begin());
    const QRectF clip = curveClipRect(width, height);
    const double sx = width / (range.x1 - range.x0);
    const double sy = height / (range.y1 - range.y0);
    auto at = [&](double x, double y) { return QPointF((x - range.x0) * sx, (y - range.y0) * sy); };
    auto cross = [&](QVector<QLineF>& out, QPointF p) {
        appendClippedSegment(out, p + QPointF(-4, -4), p + QPointF(4, 4), clip);
        appendClippedSegment(out, p + QPointF(-4, 4), p + QPointF(4, -4), clip);
    };
    scene.curve.reserve(int(std::max<long long>(0, last - first)));
    switch (series.style) {
    case ChartStyle::Line:
        for (long long i = first; i < last; ++i)
            appendClippedSegment(scene.curve, at(xs[size_t(i)], ys[size_t(i)]),
                                 at(xs[size_t(i + 1)], ys[size_t(i + 1)]), clip);
        break;
    case ChartStyle::Stems:
        for (long long i = first; i <= last; ++i)
            appendClippedSegment(scene.curve, at(xs[size_t(i)], 0.0), at(xs[size_t(i)], ys[size_t(i)]), clip);
        break;
    case ChartStyle::Points:
        for (long long i = first; i <= last; ++i)
            cross(scene.curve, at(xs[size_t(i)], ys[size_t(i)]));
        break;
    }
    for (const ChartColumn& extra : series.extra) {
        if (!extra.color.isValid())
            continue;
        scene.overlayColor = extra.color;
        for (long long i = first; i <= last && size_t(i) < extra.values.size(); ++i)
            cross(scene.overlay, at(xs[size_t(i)], extra.values[size_t(i)]));
    }
    if (series.unitCircle) {
        scene.overlayColor = QColor(0, 0, 0);
        constexpr int kSides = 256;
        for (int i = 0; i < kSides; ++i) {
            const double a = 2.0 * M_PI * i / kSides;
            const double b = 2.0 * M_PI * (i + 1) / kSides;
            appendClippedSegment(scene.overlay, at(std::cos(a), std::sin(a)), at(std::cos(b), std::sin(b)),
                                 clip);
        }
    }

    scene.verticalStep = chartzoom::zoomedGridStep(range.y1 - range.y0, series.y);
    if (scene.verticalStep) {
        const double step = scene.verticalStep->step;
        const int decimals = chartzoom::labelDecimals(step, series.y.decimals);
        bool first = true;
        const double k0 = std::ceil(range.y0 / step);
        for (int j = 0; j <= scene.verticalStep->count + 1 && (k0 + j) * step <= range.y1; ++j) {
            const double k = k0 + j;
            const double y = (k * step - range.y0) * sy;
            if (y < 18.0) // leaves the bottom row to the frequency or time labels
                continue;
            scene.gridLines.append(QLineF(0.0, y, width, y));
            QString label = formatValue(k * step, decimals);
            if (first)
                label += QLatin1Char(' ') + series.y.unit;
            first = false;
            scene.labels.append({QPointF(5.0, y), label});
        }
    }

    scene.horizontalStep = chartzoom::zoomedGridStep(range.x1 - range.x0, series.x);
    QString corner = formatValue(range.x0, chartzoom::labelDecimals(range.x1 - range.x0, 2));
    if (scene.horizontalStep) {
        const double step = scene.horizontalStep->step;
        const int decimals = chartzoom::labelDecimals(step, series.x.decimals);
        corner = formatValue(range.x0, decimals);
        const double k0 = std::floor(range.x0 / step) + 1.0;
        for (int j = 0; j <= scene.horizontalStep->count + 1 && (k0 + j) * step <= range.x1; ++j)
            appendVerticalGridLine(scene, float(((k0 + j) * step - range.x0) * sx),
                                   formatValue((k0 + j) * step, decimals), width, height);
    }
    scene.labels.append({QPointF(5.0, 5.0), corner + QLatin1Char(' ') + series.x.unit});
    return scene;
}
