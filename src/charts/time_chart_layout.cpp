// Layout of the time-domain charts.
#include "charts/time_chart_layout.h"

#include <cmath>

#include "charts/chart_colors.h"
#include "charts/chart_segments.h"

namespace {

constexpr float kRecordLength = 16384.0f;

} // namespace

ChartScene layoutTimeChart(std::span<const double> array, int headerBase, int sampleBase, float zoom,
                           float width, float height)
{
    ChartScene scene;
    if (array.empty())
        return scene;
    scene.hasData = true;
    scene.curveColor = chartcolors::timeGraph();

    const QStringList voltUnits = {QStringLiteral("V"), QStringLiteral("mV")};
    const QStringList timeUnits = {QStringLiteral("\u03bcS"), QStringLiteral("mS")};

    const float fs = elementAt(array, headerBase);
    const int voltIndex = unitIndexAt(array, headerBase + 2, 2);
    // Any frequency unit other than MHz counts as KHz.
    const bool kiloHertz = unitIndexAt(array, headerBase + 3, 2) != 0;
    float largest = elementAt(array, headerBase + 4);
    float smallest = elementAt(array, headerBase + 5);
    // An all-zero record still gets one small division each side of zero.
    if (largest == 0.0f && smallest == 0.0f) {
        largest = 0.000001f;
        smallest = -0.000001f;
    }

    // Visible span: μs for fs in MHz, ms for fs in KHz, changed to the other
    // unit when the number would be awkward.
    float span = kRecordLength / (fs * zoom);
    QString timeCaption;
    if (!kiloHertz) {
        if (span > 1000.0f) {
            span /= 1000.0f;
            timeCaption = timeUnits[1];
        } else {
            timeCaption = timeUnits[0];
        }
    } else if (span < 1.0f) {
        span *= 1000.0f;
        timeCaption = timeUnits[0];
    } else {
        timeCaption = timeUnits[1];
    }

    const float amplitude = std::fmax(std::fabs(largest), std::fabs(smallest));
    scene.verticalStep = chooseGridStep(amplitude, gridsteps::kGeneral, 3);
    // Without a fitting step (absurd amplitudes) the extremes still set the scale.
    float halfSpan =
        scene.verticalStep ? float(scene.verticalStep->count) * scene.verticalStep->step : amplitude;
    if (!(halfSpan > 0.0f) || !std::isfinite(halfSpan))
        halfSpan = 1.0f;

    const float xSpacing = zoom * width / kRecordLength;
    const float midY = 0.5f * height;
    const float yScale = (0.5f * height - 0.1f * height) / halfSpan;

    scene.viewRange = {0.0, double(span), double(-midY / yScale), double((height - midY) / yScale)};

    const long long segments = zoom == 1.0f ? 16383 : loopCount(kRecordLength / zoom);
    appendCurve(scene.curve, array, sampleBase, segments, xSpacing, yScale, midY,
                curveClipRect(width, height));

    if (scene.verticalStep) {
        const GridStep step = *scene.verticalStep;
        for (int j = -step.count; j <= step.count; ++j) {
            const float y = float(j) * (step.step * yScale) + midY;
            scene.gridLines.append(QLineF(0.0, y, width, y));
            const QString label = j == 0 ? QStringLiteral("0 ") + nameAt(voltUnits, voltIndex)
                                         : formatTwoDecimals(float(j) * step.step);
            scene.labels.append({QPointF(5.0, y), label});
        }
    }

    scene.horizontalStep = chooseGridStep(span, gridsteps::kGeneral, 15);
    if (scene.horizontalStep) {
        for (int j = 1; j <= scene.horizontalStep->count; ++j) {
            const float t = float(j) * scene.horizontalStep->step;
            appendVerticalGridLine(scene, width * t / span, formatTwoDecimals(t), width, height);
        }
    }
    scene.labels.append({QPointF(5.0, 5.0), QStringLiteral("0 ") + timeCaption});
    return scene;
}
