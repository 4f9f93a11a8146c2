// The points a chart plots, in the chart's own units.
#include "charts/chart_series.h"

#include <algorithm>
#include <cmath>

#include "charts/chart_colors.h"
#include "charts/chart_segments.h"

namespace {

constexpr int kFilterPoints = 2048;
constexpr int kSamples = 16384;
constexpr int kBins = 8192;

double at(std::span<const double> array, long long index)
{
    return index >= 0 && index < static_cast<long long>(array.size()) ? array[size_t(index)] : std::nan("");
}

// Fills xs with i × step and ys with array[first + i] for `count` points.
void fillPoints(ChartSeries& series, std::span<const double> array, long long first, int count, double step)
{
    series.xs.resize(size_t(count));
    series.ys.resize(size_t(count));
    for (int i = 0; i < count; ++i) {
        series.xs[size_t(i)] = double(i) * step;
        series.ys[size_t(i)] = at(array, first + i);
    }
}

} // namespace

namespace chartseries {

ChartSeries filterSeries(std::span<const double> array, int chartType, const QString& freqUnits)
{
    ChartSeries series;
    series.x = {QStringLiteral("frequency"), freqUnits, gridsteps::kFrequency, 10, 2};
    if (chartType == 1) {
        series.y = {QStringLiteral("phase"), QStringLiteral("Rad"), gridsteps::kPhase, 10, 0};
        series.color = chartcolors::phaseGraph();
    } else {
        series.y = {QStringLiteral("magnitude"), QStringLiteral("dB"), gridsteps::kDecibel, 10, 0};
        series.color = chartcolors::dBMagGraph();
    }
    if (array.empty())
        return series;
    const double fsOver2 = at(array, 3);
    fillPoints(series, array, chartType == 1 ? 8 + kFilterPoints : 8, kFilterPoints, fsOver2 / kFilterPoints);
    return series;
}

ChartSeries timeSeries(std::span<const double> array, int headerBase, int sampleBase, float zoom)
{
    ChartSeries series;
    const QStringList voltUnits = {QStringLiteral("V"), QStringLiteral("mV")};
    series.y = {QStringLiteral("amplitude"), nameAt(voltUnits, unitIndexAt(array, headerBase + 2, 2)),
                gridsteps::kGeneral, 6, 2};
    series.color = chartcolors::timeGraph();
    // The same unit choice as the time chart layout, in the same precision.
    const float fs = elementAt(array, headerBase);
    const bool kiloHertz = unitIndexAt(array, headerBase + 3, 2) != 0;
    float span = float(kSamples) / (fs * zoom);
    QString unit;
    if (!kiloHertz) {
        if (span > 1000.0f) {
            span /= 1000.0f;
            unit = QStringLiteral("mS");
        } else {
            unit = QStringLiteral("\u03bcS");
        }
    } else if (span < 1.0f) {
        span *= 1000.0f;
        unit = QStringLiteral("\u03bcS");
    } else {
        unit = QStringLiteral("mS");
    }
    series.x = {QStringLiteral("time"), unit, gridsteps::kGeneral, 15, 2};
    if (array.empty())
        return series;
    fillPoints(series, array, sampleBase, kSamples, double(span) * double(zoom) / kSamples);
    return series;
}

ChartSeries spectrumSeries(std::span<const double> array, int headerBase, int binBase)
{
    ChartSeries series;
    const QStringList freqUnits = {QStringLiteral("MHz"), QStringLiteral("KHz")};
    const QStringList voltUnits = {QStringLiteral("V"), QStringLiteral("mV")};
    series.x = {QStringLiteral("frequency"), nameAt(freqUnits, unitIndexAt(array, headerBase + 3, 2)),
                gridsteps::kGeneral, 15, 2};
    series.y = {QStringLiteral("magnitude"), nameAt(voltUnits, unitIndexAt(array, headerBase + 2, 2)),
                gridsteps::kGeneral, 6, 2};
    series.color = chartcolors::magSpectrum();
    if (array.empty())
        return series;
    fillPoints(series, array, binBase, kBins, 0.5 * at(array, headerBase) / kBins);
    return series;
}

int nearestIndex(const ChartSeries& series, double x)
{
    const auto& xs = series.xs;
    if (xs.empty())
        return -1;
    if (!std::isfinite(x))
        return 0;
    const auto it = std::lower_bound(xs.begin(), xs.end(), x);
    if (it == xs.begin())
        return 0;
    if (it == xs.end())
        return int(xs.size()) - 1;
    const auto before = it - 1;
    return int((x - *before <= *it - x) ? before - xs.begin() : it - xs.begin());
}

} // namespace chartseries
