// Curve thinning: the thinned curve must light the same pixels as the full
// one (rendered without antialiasing, so coverage is exact), with far fewer
// segments where the curve is dense.
#include "charts/curve_thinning.h"

#include <cmath>
#include <random>

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

constexpr int kW = 600;
constexpr int kH = 200;

QVector<QLineF> curveOf(const std::vector<double>& ys, double xSpacing)
{
    QVector<QLineF> segments;
    for (std::size_t i = 0; i + 1 < ys.size(); ++i)
        segments.append(QLineF(double(i) * xSpacing, ys[i], double(i + 1) * xSpacing, ys[i + 1]));
    return segments;
}

QImage paint(const QVector<QLineF>& segments, const QVector<QRectF>& columns = {})
{
    QImage image(kW, kH, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(QPen(Qt::black, 2.0, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(segments);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRects(columns);
    return image;
}

QImage paint(const ThinCurve& curve)
{
    return paint(curve.segments, curve.columns);
}

// Pixels dark in one image and not within one pixel of a dark pixel in the other.
int strayPixels(const QImage& a, const QImage& b)
{
    int stray = 0;
    for (int y = 0; y < kH; ++y) {
        for (int x = 0; x < kW; ++x) {
            if (qGray(a.pixel(x, y)) >= 128)
                continue;
            bool near = false;
            for (int dy = -1; dy <= 1 && !near; ++dy)
                for (int dx = -1; dx <= 1 && !near; ++dx) {
                    const QPoint q(x + dx, y + dy);
                    near = b.rect().contains(q) && qGray(b.pixel(q)) < 128;
                }
            stray += near ? 0 : 1;
        }
    }
    return stray;
}

int darkPixels(const QImage& image)
{
    int n = 0;
    for (int y = 0; y < kH; ++y)
        for (int x = 0; x < kW; ++x)
            n += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    return n;
}

} // namespace

TEST(CurveThinning, DenseNoisyCurveKeepsItsPixels)
{
    // 8192 points over 600 pixels: a tone plus noise, every column a band.
    std::mt19937 random(3);
    std::normal_distribution<double> noise(0.0, 8.0);
    std::vector<double> ys(8192);
    for (std::size_t i = 0; i < ys.size(); ++i)
        ys[i] = 100.0 + 60.0 * std::sin(double(i) * 0.011) + noise(random);
    const QVector<QLineF> full = curveOf(ys, double(kW) / 8192.0);
    const ThinCurve thin = thinCurveForPixels(full, 2.0);
    EXPECT_LT(thin.segments.size() + thin.columns.size(), 3 * kW);
    EXPECT_GT(thin.columns.size(), kW / 2);
    const QImage a = paint(full);
    const QImage b = paint(thin);
    EXPECT_GT(darkPixels(a), 10000);
    EXPECT_LT(strayPixels(a, b), darkPixels(a) / 200);
    EXPECT_LT(strayPixels(b, a), darkPixels(a) / 200);
    // Every column's vertical extent is reached by the other image within
    // one pixel column (strokes 2 wide spill into the neighbours).
    auto extent = [](const QImage& image, int x0, int x1) {
        int top = kH, bottom = -1;
        for (int x = x0; x <= x1; ++x)
            for (int y = 0; y < kH; ++y)
                if (qGray(image.pixel(x, y)) < 128)
                    top = std::min(top, y), bottom = std::max(bottom, y);
        return std::pair{top, bottom};
    };
    for (int x = 5; x < kW - 5; x += 7) {
        const auto [topA, bottomA] = extent(a, x, x);
        const auto [topB, bottomB] = extent(b, x, x);
        const auto [topA3, bottomA3] = extent(a, x - 1, x + 1);
        const auto [topB3, bottomB3] = extent(b, x - 1, x + 1);
        EXPECT_LE(topB3, topA + 1) << x;
        EXPECT_GE(bottomB3, bottomA - 1) << x;
        EXPECT_LE(topA3, topB + 1) << x;
        EXPECT_GE(bottomA3, bottomB - 1) << x;
    }
}

TEST(CurveThinning, GapsStayGaps)
{
    QVector<QLineF> segments = curveOf({10, 20, 30, 40}, 10.0);
    segments.removeAt(1); // a skipped point leaves a gap between x 10 and 20
    const QVector<QLineF> thin = thinCurveForPixels(segments, 2.0).segments;
    ASSERT_EQ(thin.size(), 2);
    EXPECT_EQ(thin[0], QLineF(0, 10, 10, 20));
    EXPECT_EQ(thin[1], QLineF(20, 30, 30, 40));
    EXPECT_TRUE(thinCurveForPixels({}, 2.0).segments.isEmpty());
}
