// The regions of the magnitude chart a tolerance mask forbids.
#include "charts/mask_shading.h"

#include <cmath>

#include "charts/chart_zoom.h"

QVector<QRectF> maskShading(const ToleranceMask& mask, double fsOver2, const ChartRange& range, float width,
                            float height)
{
    QVector<QRectF> regions;
    if (!(range.x1 > range.x0) || !(range.y1 > range.y0) || !std::isfinite(fsOver2))
        return regions;
    // The ripple band around 0 dB: 20·log10(1 ± δp), Rp from top to bottom.
    const double dp = passbandDeviation(mask.rippleDb);
    const double upper = 20.0 * std::log10(1.0 + dp);
    const double lower = 20.0 * std::log10(std::max(1.0 - dp, 1e-12));
    const double stop = -mask.attenuationDb;
    auto add = [&](double f0, double f1, double db0, double db1) {
        const QPointF a = chartzoom::toView(range, f0 * fsOver2, db0, width, height);
        const QPointF b = chartzoom::toView(range, f1 * fsOver2, db1, width, height);
        const QRectF r = QRectF(a, b).normalized().intersected(QRectF(0.0, 0.0, width, height));
        if (r.isValid() && !r.isEmpty())
            regions.append(r);
    };
    const double bottom = range.y0 - 1.0;
    const double top = range.y1 + 1.0;
    auto passband = [&](double f0, double f1) {
        add(f0, f1, upper, std::max(top, upper));
        add(f0, f1, std::min(bottom, lower), lower);
    };
    auto stopband = [&](double f0, double f1) { add(f0, f1, stop, std::max(top, stop)); };
    switch (mask.type) {
    case 0:
        passband(0.0, mask.passband[0]);
        stopband(mask.stopband[0], 1.0);
        break;
    case 1:
        stopband(0.0, mask.stopband[0]);
        passband(mask.passband[0], mask.passband[1]);
        stopband(mask.stopband[1], 1.0);
        break;
    default:
        stopband(0.0, mask.stopband[0]);
        passband(mask.passband[0], 1.0);
        break;
    }
    return regions;
}
