// Shared painting: lower-left origin, upright text anchored by its lower-left
// corner, the frame, the dashed grid and the panel font.
#include "charts/chart_painting.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include "charts/chart_colors.h"
#include "charts/chart_scene.h"

namespace {

QRect darkBounds(const QImage& image, int threshold = 128)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < threshold)
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

} // namespace

TEST(ChartPainting, TextIsUprightWithItsBoxCornerAtThePoint)
{
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    const QFont font = chartpaint::palatinoFont(20);
    {
        QPainter painter(&image);
        chartpaint::useLowerLeftOrigin(painter, image.size());
        chartpaint::drawTextAt(painter, QPointF(30.0, 20.0), QStringLiteral("V"), font);
    }
    const QRect ink = darkBounds(image);
    ASSERT_FALSE(ink.isNull());
    const QFontMetricsF metrics(font, &image);
    // The box's bottom edge is at device row 100 - 20 = 80; "V" sits on the
    // baseline one descent above it.
    const double baseline = 80.0 - metrics.descent();
    EXPECT_NEAR(ink.bottom() + 1, baseline, 1.5);
    EXPECT_GE(ink.left(), 30);
    EXPECT_LT(ink.left(), 34);
    EXPECT_NEAR(ink.height(), metrics.capHeight(), 2.0);
    // Upright: the V is wide at the top and pointed at the bottom.
    auto rowInk = [&](int y) {
        int n = 0;
        for (int x = ink.left(); x <= ink.right(); ++x)
            n += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        return n;
    };
    EXPECT_GT(rowInk(ink.top()), 2 * rowInk(ink.bottom()));
}

TEST(ChartPainting, PanelFontIsPalatinoOrItsTwin)
{
    const QFont font = chartpaint::palatinoFont(18);
    EXPECT_EQ(font.pixelSize(), 18);
    const QString family = QFontInfo(font).family();
    if (!QFontDatabase::hasFamily(QStringLiteral("Palatino")) &&
        !QFontDatabase::hasFamily(QStringLiteral("P052")))
        GTEST_SKIP() << "neither Palatino nor P052 is installed";
    EXPECT_TRUE(family.startsWith(QStringLiteral("Palatino")) || family.startsWith(QStringLiteral("P052")))
        << family.toStdString();
}

TEST(ChartPainting, GridIsDashedFourOnSixOff)
{
    ChartScene scene;
    scene.hasData = true;
    scene.curveColor = Qt::red;
    scene.gridLines = {QLineF(0.0, 50.0, 200.0, 50.0)};
    QImage image(200, 100, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        chartpaint::paintChartScene(painter, scene, image.size(), QFont());
    }
    // Lower-left y 50 is device row 50: the 0.375-wide line tints rows 49 and 50.
    QString pattern;
    for (int x = 2; x < 40; ++x)
        pattern += qRed(image.pixel(x, 49)) < 250 || qRed(image.pixel(x, 50)) < 250 ? QLatin1Char('-')
                                                                                    : QLatin1Char(' ');
    EXPECT_EQ(pattern, QStringLiteral("--      ----      ----      ----      "));
    // Grey, never black: the hairline only tints.
    const QRgb p = image.pixel(11, 50);
    EXPECT_EQ(qRed(p), qGreen(p));
    EXPECT_GT(qRed(p), 150);
}

TEST(ChartPainting, FrameIsBlackOnWhite)
{
    QImage image(50, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    {
        QPainter painter(&image);
        chartpaint::drawFrame(painter, image.size(), chartpaint::kChartLineWidth);
    }
    // A 2-wide stroke centred on the bounds shows its inner half: one pixel.
    for (const QPoint p : {QPoint(0, 0), QPoint(49, 29), QPoint(25, 0), QPoint(0, 15), QPoint(49, 15)})
        EXPECT_EQ(image.pixel(p), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(1, 1), qRgb(255, 255, 255));
    EXPECT_EQ(image.pixel(25, 15), qRgb(255, 255, 255));
}
