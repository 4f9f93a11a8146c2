// Chart files: SVG read back with QXmlStreamReader, PDF page shape, PNG size,
// colour and line width at device pixel ratio 2, CSV rows against the arrays.
#include "charts/chart_export.h"

#include <QImage>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include "chart_arrays.h"
#include "charts/chart_colors.h"
#include "charts/chart_painting.h"
#include "charts/chart_scene.h"
#include "charts/chart_series.h"
#include "charts/filter_chart_layout.h"

namespace {

const QFont& labelFont()
{
    static const QFont font = chartpaint::palatinoFont(12);
    return font;
}

// A scene with one flat curve across the view at y = `level`.
ChartScene flatScene(double level, QColor color)
{
    ChartScene scene;
    scene.hasData = true;
    scene.curveColor = color;
    for (int x = 0; x < 400; x += 10)
        scene.curve.append(QLineF(x, level, x + 10, level));
    return scene;
}

QList<QByteArray> csvRows(const ChartSeries& series)
{
    QList<QByteArray> rows = chartexport::csvBytes(series).split('\n');
    if (!rows.isEmpty() && rows.last().isEmpty())
        rows.removeLast();
    return rows;
}

} // namespace

TEST(ChartExport, SvgParsesAndHoldsOnePathPerCurve)
{
    const auto response = chartarrays::filterResponse(600, -60.0, -25.0, 0.5);
    for (const int type : {filterchart::kMagnitude, filterchart::kPhase}) {
        const ChartScene scene = layoutFilterChart(response, type, QStringLiteral("Norm"), 1200.0f, 400.0f);
        QXmlStreamReader xml(
            chartexport::svgBytes(scene, QSize(1200, 400), labelFont(), QStringLiteral("t")));
        int curvePaths = 0;
        int texts = 0;
        // Qt Svg puts the pen on the group around each path.
        QStringList strokes{QString()};
        while (!xml.atEnd()) {
            const auto token = xml.readNext();
            if (token == QXmlStreamReader::EndElement && xml.name() == QLatin1String("g"))
                strokes.removeLast();
            if (token != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("g"))
                strokes << xml.attributes().value(QLatin1String("stroke")).toString();
            curvePaths += xml.name() == QLatin1String("path") &&
                          strokes.last().compare(scene.curveColor.name(), Qt::CaseInsensitive) == 0;
            texts += xml.name() == QLatin1String("text");
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        EXPECT_EQ(curvePaths, 1) << type;
        EXPECT_GE(texts, scene.labels.size()) << type; // text stays text
    }
}

TEST(ChartExport, PdfPageHasTheChartsAspectRatio)
{
    const QByteArray pdf =
        chartexport::pdfBytes(flatScene(100, Qt::blue), QSize(1200, 400), labelFont(), "t");
    ASSERT_TRUE(pdf.startsWith("%PDF"));
    const auto box =
        QRegularExpression(QStringLiteral("/MediaBox \\[\\s*([\\d.]+) ([\\d.]+) ([\\d.]+) ([\\d.]+)"))
            .match(QString::fromLatin1(pdf));
    ASSERT_TRUE(box.hasMatch());
    const double w = box.captured(3).toDouble() - box.captured(1).toDouble();
    const double h = box.captured(4).toDouble() - box.captured(2).toDouble();
    EXPECT_NEAR(w / h, 3.0, 0.01);
}

TEST(ChartExport, PngSizeColourAndLineWidthAtRatioTwo)
{
    const QColor blue = chartcolors::dBMagGraph();
    QImage one;
    ASSERT_TRUE(
        one.loadFromData(chartexport::pngBytes(flatScene(100.0, blue), QSize(400, 300), 1.0, labelFont())));
    EXPECT_EQ(one.size(), QSize(400, 300));
    // y = 100 from the bottom is row 200 from the top.
    EXPECT_EQ(one.pixelColor(200, 199).rgb(), blue.rgb());
    EXPECT_EQ(one.pixelColor(200, 150).rgb(), chartcolors::background().rgb());

    const QImage two = chartexport::renderImage(flatScene(100.0, blue), QSize(400, 300), 2.0, labelFont());
    ASSERT_EQ(two.size(), QSize(800, 600));
    int rows = 0;
    for (int y = 0; y < two.height(); ++y)
        rows += two.pixelColor(400, y).rgb() == blue.rgb() ? 1 : 0;
    EXPECT_EQ(rows, 4); // 2 px per logical pixel
}

TEST(ChartExport, CsvRowsEqualTheArrays)
{
    const auto response = chartarrays::filterResponse(600, -60.0, -25.0, 22.05);
    const auto time = chartarrays::signalTime(44.1, 1.5, 37.0, 0, 1);
    const auto freq = chartarrays::signalSpectrum(44.1, 3.0, 300, 0.75, 1, 1);
    const struct {
        ChartSeries series;
        QByteArray header;
        int rows;
        const std::vector<double>* array;
        int first;
    } cases[] = {
        {chartseries::filterSeries(response, 0, "KHz"), "frequency (KHz),magnitude (dB)", 2048, &response, 8},
        {chartseries::filterSeries(response, 1, "KHz"), "frequency (KHz),phase (Rad)", 2048, &response, 2056},
        {chartseries::timeSeries(time, 0, 8, 1.0f), "time (mS),amplitude (V)", 16384, &time, 8},
        {chartseries::spectrumSeries(freq, 0, 8), "frequency (KHz),magnitude (mV)", 8192, &freq, 8},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.header.toStdString());
        const QList<QByteArray> rows = csvRows(c.series);
        ASSERT_EQ(rows.size(), c.rows + 1);
        EXPECT_EQ(rows.first(), c.header);
        for (const int i : {0, 1, 299, 300, c.rows - 1}) {
            const QList<QByteArray> cells = rows[i + 1].split(',');
            ASSERT_EQ(cells.size(), 2);
            // Full precision: the text reads back to the very same double.
            EXPECT_EQ(cells[1].toDouble(), (*c.array)[size_t(c.first + i)]) << i;
        }
    }
    // x: the frequency of point k is k × fs/2 / 2048; the time of sample k is k / fs (here in mS).
    EXPECT_EQ(csvRows(cases[0].series)[1025].split(',')[0].toDouble(), 1024 * 22.05 / 2048);
    EXPECT_NEAR(csvRows(cases[2].series)[101].split(',')[0].toDouble(), 100 / 44.1, 1e-5);
}
