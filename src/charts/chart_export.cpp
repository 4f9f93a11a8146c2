// Chart files: PNG, SVG, PDF and CSV.
#include "charts/chart_export.h"

#include <cmath>

#include <QBuffer>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "archive/atomic_write.h"
#include "charts/chart_painting.h"
#include "charts/chart_scene.h"
#include "charts/chart_series.h"

namespace chartexport {

namespace {

QByteArray number(double value)
{
    // Full precision, and the same spelling of NaN on every platform.
    if (std::isnan(value))
        return QByteArrayLiteral("nan");
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return QByteArray(text);
}

QString column(const ChartAxis& axis)
{
    return axis.unit.isEmpty() ? axis.name : QStringLiteral("%1 (%2)").arg(axis.name, axis.unit);
}

} // namespace

Format formatForPath(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png"))
        return Format::Png;
    if (suffix == QLatin1String("svg"))
        return Format::Svg;
    if (suffix == QLatin1String("pdf"))
        return Format::Pdf;
    if (suffix == QLatin1String("csv"))
        return Format::Csv;
    return Format::Unknown;
}

QImage renderImage(const ChartScene& scene, QSize size, qreal devicePixelRatio, const QFont& font)
{
    QImage image(size * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::white);
    QPainter painter(&image);
    chartpaint::paintChartScene(painter, scene, QSizeF(size), font);
    return image;
}

QByteArray pngBytes(const ChartScene& scene, QSize size, qreal devicePixelRatio, const QFont& font)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    renderImage(scene, size, devicePixelRatio, font).save(&buffer, "PNG");
    return bytes;
}

QByteArray svgBytes(const ChartScene& scene, QSize size, const QFont& font, const QString& title)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(0, 0), size));
    svg.setTitle(title);
    QPainter painter(&svg);
    chartpaint::paintChartScene(painter, scene, QSizeF(size), font, chartpaint::ChartPaintMode::Vector);
    painter.end();
    return bytes;
}

QByteArray pdfBytes(const ChartScene& scene, QSize size, const QFont& font, const QString& title)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setTitle(title);
    pdf.setCreator(QStringLiteral("Orvana"));
    // One view unit per point, the page exactly the chart's size.
    pdf.setResolution(72);
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setPageSize(QPageSize(QSizeF(size), QPageSize::Point, QString(), QPageSize::ExactMatch));
    QPainter painter(&pdf);
    chartpaint::paintChartScene(painter, scene, QSizeF(size), font, chartpaint::ChartPaintMode::Vector);
    painter.end();
    return bytes;
}

QByteArray csvBytes(const ChartSeries& series)
{
    QString header = column(series.x) + QLatin1Char(',') + column(series.y);
    for (const ChartColumn& extra : series.extra)
        header += QLatin1Char(',') + column(extra.axis);
    QByteArray out = header.toUtf8() + '\n';
    out.reserve(out.size() + qsizetype(series.xs.size()) * 42 * qsizetype(2 + series.extra.size()));
    for (size_t i = 0; i < series.xs.size(); ++i) {
        const bool spelled = i < series.xTexts.size() && !series.xTexts[i].isEmpty();
        out += (spelled ? series.xTexts[i].toUtf8() : number(series.xs[i])) + ',' + number(series.ys[i]);
        for (const ChartColumn& extra : series.extra)
            out += ',' + number(i < extra.values.size() ? extra.values[i] : std::nan(""));
        out += '\n';
    }
    return out;
}

bool writeChartFile(const QString& path, const ChartScene& scene, const ChartSeries& series, QSize size,
                    qreal devicePixelRatio, const QFont& font, const QString& title, QString* error)
{
    QByteArray bytes;
    switch (formatForPath(path)) {
    case Format::Png:
        bytes = pngBytes(scene, size, devicePixelRatio, font);
        break;
    case Format::Svg:
        bytes = svgBytes(scene, size, font, title);
        break;
    case Format::Pdf:
        bytes = pdfBytes(scene, size, font, title);
        break;
    case Format::Csv:
        bytes = csvBytes(series);
        break;
    case Format::Unknown:
        if (error)
            *error = QStringLiteral("\"%1\" does not end in .png, .svg, .pdf or .csv.").arg(path);
        return false;
    }
    return writeFileAtomically(path, bytes, error);
}

} // namespace chartexport
