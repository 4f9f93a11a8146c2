// Layout of the spectrum charts.
#include "charts/spectrum_chart_layout.h"

#include <cmath>

#include "archive/design_titles.h"
#include "charts/chart_colors.h"
#include "charts/chart_segments.h"

namespace {

constexpr float kBins = 8192.0f;

} // namespace

ChartScene layoutSpectrumChart(std::span<const double> array, int headerBase, int binBase, float width,
                               float height)
{
    ChartScene scene;
    if (array.empty())
        return scene;
    scene.hasData = true;
    scene.curveColor = chartcolors::magSpectrum();

    const QStringList& freqUnits = titles::signalFreqUnits();
    const QStringList voltUnits = {QStringLiteral("V"), QStringLiteral("mV")};

    const float fs = elementAt(array, headerBase);
    const float maxFreq = elementAt(array, headerBase + 1);
    const int voltIndex = unitIndexAt(array, headerBase + 2, 2);
    const int freqIndex = unitIndexAt(array, headerBase + 3, 2);
    float largest = elementAt(array, headerBase + 4);
    float smallest = elementAt(array, headerBase + 5);
    if (largest == 0.0f && smallest == 0.0f) {
        largest = 0.000001f;
        smallest = -0.000001f;
    }

    // Zoom in to twice the highest significant frequency, never out beyond fs/2
    // (a NaN zoom fails the test too and shows the whole half band).
    const float halfFs = 0.5f * fs;
    float zoom = halfFs / (2.0f * maxFreq);
    if (!(zoom > 1.0f))
        zoom = 1.0f;

    const float magnitude = std::fmax(std::fabs(largest), std::fabs(smallest));
    scene.verticalStep = chooseGridStep(magnitude, gridsteps::kGeneral, 6);
    float fullSpan =
        scene.verticalStep ? float(scene.verticalStep->count) * scene.verticalStep->step : magnitude;
    if (!(fullSpan > 0.0f) || !std::isfinite(fullSpan))
        fullSpan = 1.0f;

    const float xSpacing = zoom * width / kBins;
    const float bottom = 0.1f * height;
    const float yScale = (0.9f * height - 0.1f * height) / fullSpan;

    scene.viewRange = {0.0, double(halfFs / zoom), double(-bottom / yScale),
                       double((height - bottom) / yScale)};

    appendCurve(scene.curve, array, binBase, loopCount(kBins / zoom - 1.0f), xSpacing, yScale, bottom,
                curveClipRect(width, height));

    if (scene.verticalStep) {
        const GridStep step = *scene.verticalStep;
        for (int j = 0; j <= step.count; ++j) {
            const float y = float(j) * (step.step * yScale) + bottom;
            scene.gridLines.append(QLineF(0.0, y, width, y));
            const QString label = j == 0 ? QStringLiteral("0 ") + nameAt(voltUnits, voltIndex)
                                         : formatTwoDecimals(float(j) * step.step);
            scene.labels.append({QPointF(5.0, y), label});
        }
    }

    scene.horizontalStep = chooseGridStep(halfFs / zoom, gridsteps::kGeneral, 15);
    if (scene.horizontalStep) {
        for (int j = 1; j <= scene.horizontalStep->count; ++j) {
            const float f = float(j) * scene.horizontalStep->step;
            appendVerticalGridLine(scene, width * f * zoom / halfFs, formatTwoDecimals(f), width, height);
        }
    }
    scene.labels.append({QPointF(5.0, 5.0), QStringLiteral("0 ") + nameAt(freqUnits, freqIndex)});
    return scene;
}
