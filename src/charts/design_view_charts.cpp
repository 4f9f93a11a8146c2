// The further charts of a filter design.
#include "charts/design_view_charts.h"

#include <algorithm>
#include <cmath>

#include "charts/chart_colors.h"
#include "charts/chart_zoom.h"
#include "dsp/design_views.h"

namespace designcharts {

namespace {

std::vector<double> indices(size_t count)
{
    std::vector<double> n(count);
    for (size_t i = 0; i < count; ++i)
        n[i] = double(i);
    return n;
}

ChartAxis axis(const char* name, const char* unit, int decimals)
{
    return {QString::fromUtf8(name), QString::fromUtf8(unit), gridsteps::kGeneral, 10, decimals};
}

} // namespace

ChartSeries impulseSeries(std::span<const double> c, std::span<const double> cp)
{
    // Stems of c, a cross at each cp: the columns n, c[n], cp[n].
    ChartSeries s;
    s.x = axis("n", "", 0);
    s.y = axis("c[n]", "", 2);
    s.color = chartcolors::dBMagGraph();
    s.style = ChartStyle::Stems;
    s.xs = indices(c.size());
    s.ys.assign(c.begin(), c.end());
    std::vector<double> quantised(cp.begin(), cp.end());
    quantised.resize(c.size(), std::nan(""));
    s.extra.push_back({axis("cp[n]", "", 2), std::move(quantised), chartcolors::phaseGraph()});
    return s;
}

ChartSeries stepSeries(std::span<const double> cp)
{
    ChartSeries s;
    s.x = axis("n", "", 0);
    s.y = axis("step", "", 2);
    s.color = chartcolors::dBMagGraph();
    s.style = ChartStyle::Stems;
    s.xs = indices(cp.size());
    s.ys = designviews::stepResponse(cp);
    return s;
}

ChartSeries groupDelaySeries(std::span<const double> cp, double fsOver2, const QString& freqUnits)
{
    ChartSeries s;
    s.x = {QStringLiteral("frequency"), freqUnits, gridsteps::kFrequency, 10, 2};
    s.y = axis("delay", "samples", 1);
    s.color = chartcolors::dBMagGraph();
    s.ys = designviews::groupDelay(cp, 2048);
    s.xs.resize(s.ys.size());
    for (size_t k = 0; k < s.xs.size(); ++k)
        s.xs[k] = double(k) * fsOver2 / 2048.0;
    return s;
}

ChartSeries zerosSeries(std::span<const double> cp)
{
    ChartSeries s;
    s.x = axis("real", "", 2);
    s.y = axis("imaginary", "", 2);
    s.color = chartcolors::dBMagGraph();
    s.style = ChartStyle::Points;
    s.unitCircle = true;
    auto zeros = designviews::transferZeros(cp);
    std::sort(zeros.begin(), zeros.end(), [](auto a, auto b) {
        return a.real() < b.real() || (a.real() == b.real() && a.imag() < b.imag());
    });
    for (const auto& z : zeros) {
        s.xs.push_back(z.real());
        s.ys.push_back(z.imag());
    }
    return s;
}

ChartSeries wordLengthSeries(std::span<const SweepRow> rows)
{
    ChartSeries s;
    s.x = axis("bits", "", 0);
    s.y = axis("stopband attenuation", "dB", 1);
    s.color = chartcolors::dBMagGraph();
    std::vector<double> ripple;
    for (const SweepRow& row : rows) {
        s.xs.push_back(row.bits > 0 ? double(row.bits) : std::nan(""));
        s.xTexts.push_back(row.bits > 0 ? QString() : QStringLiteral("double"));
        s.ys.push_back(row.stopbandAttenuationDb);
        ripple.push_back(row.passbandRippleDb);
    }
    s.extra.push_back({axis("passband ripple", "dB", 3), std::move(ripple), QColor()});
    return s;
}

ChartRange defaultRange(const ChartSeries& series, float width, float height)
{
    double x0 = series.unitCircle ? -1.0 : 0.0;
    double x1 = series.unitCircle ? 1.0 : 0.0;
    double y0 = x0;
    double y1 = x1;
    auto take = [](double v, double& lo, double& hi) {
        // Far-off zeros of a coarsely quantised design would shrink the rest to a dot.
        if (std::isfinite(v) && std::fabs(v) < 1e3) {
            lo = std::min(lo, v);
            hi = std::max(hi, v);
        }
    };
    for (size_t i = 0; i < series.xs.size(); ++i) {
        take(series.xs[i], x0, x1);
        take(series.ys[i], y0, y1);
        for (const ChartColumn& extra : series.extra)
            if (i < extra.values.size())
                take(extra.values[i], y0, y1);
    }
    if (!series.unitCircle && !series.xs.empty())
        x0 = std::min(x0, series.xs.front());
    if (y1 - y0 < 1e-9) {
        y0 -= 1.0;
        y1 += 1.0;
    }
    if (x1 - x0 < 1e-9)
        x1 = x0 + 1.0;
    const double padX = 0.04 * (x1 - x0);
    const double padY = 0.1 * (y1 - y0);
    ChartRange r{x0 - padX, x1 + padX, y0 - padY, y1 + padY};
    if (series.unitCircle && width > 0.0f && height > 0.0f) {
        // One unit is as long across as up.
        const double perPixel = std::max((r.x1 - r.x0) / width, (r.y1 - r.y0) / height);
        const double cx = 0.5 * (r.x0 + r.x1);
        const double cy = 0.5 * (r.y0 + r.y1);
        r = {cx - 0.5 * perPixel * width, cx + 0.5 * perPixel * width, cy - 0.5 * perPixel * height,
             cy + 0.5 * perPixel * height};
    }
    return r;
}

ChartScene layoutDesignChart(const ChartSeries& series, float width, float height)
{
    if (series.empty()) {
        ChartScene empty;
        empty.viewRange = defaultRange(series, width, height);
        return empty;
    }
    return layoutZoomedChart(series, defaultRange(series, width, height), width, height);
}

ChartScene layoutWordLengthChart(const ChartSeries& series, float width, float height)
{
    double top = 10.0;
    double doubleDb = std::nan("");
    for (size_t i = 0; i < series.xs.size(); ++i) {
        if (std::isfinite(series.ys[i]))
            top = std::max(top, series.ys[i]);
        if (std::isnan(series.xs[i]))
            doubleDb = series.ys[i];
    }
    const ChartRange range{7.5, 20.5, 0.0, 1.1 * top};
    ChartScene scene = layoutZoomedChart(series, range, width, height);
    if (std::isfinite(doubleDb)) {
        // Points of the double design's level, so the quantised ones read against it.
        scene.overlayColor = chartcolors::phaseGraph();
        const QPointF left = chartzoom::toView(range, range.x0, doubleDb, width, height);
        const QPointF right = chartzoom::toView(range, range.x1, doubleDb, width, height);
        for (double x = left.x(); x < right.x(); x += 12.0)
            scene.overlay.append(
                QLineF(QPointF(x, left.y()), QPointF(std::min(x + 6.0, right.x()), left.y())));
    }
    return scene;
}

} // namespace designcharts
