// Compared designs on a magnitude chart.
#include "charts/compare_overlay.h"

#include <algorithm>
#include <cmath>

#include "charts/chart_colors.h"
#include "charts/chart_segments.h"
#include "charts/chart_zoom.h"
#include "charts/filter_chart_layout.h"

namespace comparechart {

QColor curveColor(int i)
{
    static const QColor colors[] = {chartcolors::dBMagGraph(), QColor::fromRgbF(0.9f, 0.45f, 0.0f),
                                    QColor::fromRgbF(0.1f, 0.6f, 0.2f), QColor::fromRgbF(0.7f, 0.1f, 0.55f)};
    return colors[std::clamp(i, 0, 3)];
}

void addTraces(ChartScene& scene, const QString& ownName, const std::vector<ComparedCurve>& curves,
               float width, float height)
{
    scene.curveName = ownName;
    const QRectF clip = curveClipRect(width, height);
    for (std::size_t c = 0; c < curves.size(); ++c) {
        const ComparedCurve& curve = curves[c];
        ChartTrace trace{curve.name, curveColor(int(c) + 1), {}};
        const std::size_t n = std::min(curve.xs.size(), curve.dB.size());
        for (std::size_t i = 0; i + 1 < n; ++i)
            appendClippedSegment(
                trace.lines, chartzoom::toView(scene.viewRange, curve.xs[i], curve.dB[i], width, height),
                chartzoom::toView(scene.viewRange, curve.xs[i + 1], curve.dB[i + 1], width, height), clip);
        scene.traces.append(std::move(trace));
    }
}

ChartSeries compareSeries(const std::vector<ComparedCurve>& curves)
{
    ChartSeries s;
    s.x = {QStringLiteral("normalised frequency"), QString(), gridsteps::kFrequency, 10, 2};
    s.color = curveColor(0);
    for (std::size_t c = 0; c < curves.size(); ++c) {
        const ChartAxis axis{curves[c].name, QStringLiteral("dB"), gridsteps::kDecibel, 10, 0};
        if (c == 0) {
            s.y = axis;
            s.xs = curves[c].xs;
            s.ys = curves[c].dB;
        } else {
            // Written to CSV only; the chart draws them as traces.
            s.extra.push_back({axis, curves[c].dB, QColor()});
        }
    }
    return s;
}

ChartScene layoutCompareChart(const std::vector<ComparedCurve>& curves, float width, float height)
{
    if (curves.empty())
        return ChartScene{};
    // A response array for the first curve whose scale holds every curve.
    double largest = -INFINITY;
    double smallest = INFINITY;
    for (const ComparedCurve& curve : curves)
        for (const double v : curve.dB)
            if (std::isfinite(v)) {
                largest = std::max(largest, v);
                smallest = std::min(smallest, v);
            }
    std::vector<double> array{double(curves[0].dB.size()), largest, smallest, 1.0, 0.0, 0.0, 0.0, 0.0};
    array.insert(array.end(), curves[0].dB.begin(), curves[0].dB.end());
    ChartScene scene =
        layoutFilterChart(array, filterchart::kMagnitude, QStringLiteral("Norm"), width, height);
    addTraces(scene, curves[0].name, std::vector<ComparedCurve>(curves.begin() + 1, curves.end()), width,
              height);
    return scene;
}

} // namespace comparechart
