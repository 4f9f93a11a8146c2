// Chart files: a chart scene as PNG (at a device pixel ratio), SVG (Qt Svg,
// curves as paths and text as text) or PDF (QPdfWriter), and a chart series
// as CSV, every point in full double precision. Shared by the chart views and
// the command line; files are written atomically.
#pragma once

#include <QByteArray>
#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>

struct ChartScene;
struct ChartSeries;

namespace chartexport {

enum class Format { Png, Svg, Pdf, Csv, Unknown };

// By the file name's extension, case-insensitive.
Format formatForPath(const QString& path);

// The chart drawn into an image of size × devicePixelRatio pixels.
QImage renderImage(const ChartScene& scene, QSize size, qreal devicePixelRatio, const QFont& font);

QByteArray pngBytes(const ChartScene& scene, QSize size, qreal devicePixelRatio, const QFont& font);
QByteArray svgBytes(const ChartScene& scene, QSize size, const QFont& font, const QString& title);
QByteArray pdfBytes(const ChartScene& scene, QSize size, const QFont& font, const QString& title);

// Header "x name (unit),y name (unit)", then one "%.17g,%.17g" row per point.
QByteArray csvBytes(const ChartSeries& series);

// Writes the file the extension of `path` names. False with a message in
// `error` for an unknown extension or a failed write (nothing is written).
bool writeChartFile(const QString& path, const ChartScene& scene, const ChartSeries& series, QSize size,
                    qreal devicePixelRatio, const QFont& font, const QString& title, QString* error);

} // namespace chartexport
