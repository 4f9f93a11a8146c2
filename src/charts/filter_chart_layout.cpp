// Layout of the filter response chart.
#include "charts/filter_chart_layout.h"

#include <algorithm>
#include <cmath>

#include "charts/chart_colors.h"
#include "charts/chart_segments.h"

namespace {

constexpr int kPoints = 2048;
constexpr int kMagnitudeStart = 8;
constexpr int kPhaseStart = 8 + kPoints;
// More lines than this above zero on the phase axis would only paint a grey
// band; such a header draws the curve without horizontal grid lines.
constexpr float kMostLinesAboveZero = 1000.0f;

} // namespace

ChartScene layoutFilterChart(std::span<const double> array, int chartType, const QString& freqUnits,
                             float width, float height)
{
    ChartScene scene;
    if (array.empty())
        return scene;
    scene.hasData = true;

    const float dMin = elementAt(array, 2);
    const float fsOver2 = elementAt(array, 3);
    const float pMax = elementAt(array, 4);
    const float pMin = elementAt(array, 5);

    // The step s, the divisions k, and z0, the division of the value 0 counted from the top.
    GridStep step;
    float divisions = 1.0f;
    float zeroDivision = 0.0f;
    bool drawLevels = true;
    QString zeroLabel;
    int start = kMagnitudeStart;
    if (chartType == filterchart::kPhase) {
        step = chooseGridStep(pMin, gridsteps::kPhase, 10, GridStep{1.0f, 1});
        float above = std::ceil(std::fabs(pMax / step.step));
        if (!std::isfinite(above))
            above = 0.0f;
        drawLevels = above <= kMostLinesAboveZero;
        divisions = float(step.count) + above;
        zeroDivision = above;
        zeroLabel = QStringLiteral(" 0 Rad");
        scene.curveColor = chartcolors::phaseGraph();
        start = kPhaseStart;
    } else {
        step = chooseGridStep(dMin, gridsteps::kDecibel, 10, GridStep{1.0f, 1});
        divisions = float(step.count);
        zeroLabel = QStringLiteral(" 0 dB");
        scene.curveColor = chartcolors::dBMagGraph();
    }
    // A flat 0 dB (or 0 rad) response spans nothing: give it one division.
    if (divisions <= 0.0f) {
        divisions = 1.0f;
        step.count = std::max(step.count, 1);
    }
    scene.verticalStep = step;

    const float xSpacing = width * 0.00048828125f;
    const float top = 0.9f * height;
    const float yScale = (0.9f * height - 0.1f * height) / (divisions * step.step);
    const float y0 = top - zeroDivision * step.step * yScale;

    scene.viewRange = {0.0, double(fsOver2), double(-y0 / yScale), double((height - y0) / yScale)};

    const QRectF clip = curveClipRect(width, height);
    appendCurve(scene.curve, array, start, kPoints - 1, xSpacing, yScale, y0, clip);

    if (drawLevels) {
        const int lines = static_cast<int>(divisions);
        for (int i = 0; i <= lines; ++i) {
            const float y = top - float(i) * (step.step * yScale);
            scene.gridLines.append(QLineF(0.0, y, width, y));
            const QString label = float(i) == zeroDivision
                                      ? zeroLabel
                                      : formatNoDecimals((zeroDivision - float(i)) * step.step);
            scene.labels.append({QPointF(5.0, y), label});
        }
    }

    scene.horizontalStep = chooseGridStep(fsOver2, gridsteps::kFrequency, 10);
    if (scene.horizontalStep) {
        for (int j = 1; j <= scene.horizontalStep->count; ++j) {
            const float f = float(j) * scene.horizontalStep->step;
            appendVerticalGridLine(scene, width * f / fsOver2, formatTwoDecimals(f), width, height);
        }
    }
    scene.labels.append({QPointF(5.0, 5.0), QStringLiteral("0 ") + freqUnits});
    return scene;
}
