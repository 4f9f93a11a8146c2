// The --plot option shared by the filter, signal and project verbs.
#include "cli/plot_output.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QRegularExpression>

#include "charts/chart_export.h"
#include "charts/chart_scene.h"
#include "charts/chart_series.h"
#include "cli/cli_options.h"

namespace cli {

namespace {

constexpr QSize kSmallest{200, 100};
constexpr QSize kLargest{8000, 8000};

} // namespace

PlotRequest::PlotRequest(QStringList charts, bool withZoom)
    : charts_(std::move(charts)), withZoom_(withZoom),
      plot_(QStringLiteral("plot"), QStringLiteral("Write a chart to FILE: .png, .svg, .pdf or .csv."),
            QStringLiteral("file")),
      chartOption_(QStringLiteral("chart"),
                   QStringLiteral("The chart --plot writes: %1 (default %2).")
                       .arg(charts_.join(QLatin1Char('|')), charts_.value(0)),
                   QStringLiteral("chart"), charts_.value(0)),
      zoomOption_(QStringLiteral("zoom"), QStringLiteral("Time chart zoom, 1|2|4|...|256 (default 16)."),
                  QStringLiteral("Z"), QStringLiteral("16")),
      sizeOption_(QStringLiteral("size"), QStringLiteral("Chart size in pixels (default 1200x400)."),
                  QStringLiteral("WxH"), QStringLiteral("1200x400"))
{
}

void PlotRequest::addOptionsTo(QCommandLineParser& parser) const
{
    // A verb with one chart needs no --chart.
    parser.addOptions({plot_, sizeOption_});
    if (charts_.size() > 1)
        parser.addOption(chartOption_);
    if (withZoom_)
        parser.addOption(zoomOption_);
}

std::optional<int> PlotRequest::read(const QCommandLineParser& parser, const QString& verb)
{
    if (!parser.isSet(plot_))
        return std::nullopt;
    const QString prefix = QStringLiteral("orvana-cli %1: ").arg(verb);
    chart_ = charts_.size() > 1 ? parser.value(chartOption_).trimmed().toLower() : charts_.value(0);
    if (!charts_.contains(chart_)) {
        printErr(prefix + QStringLiteral("--chart takes %1.").arg(charts_.join(QStringLiteral(", "))));
        return Usage;
    }
    if (withZoom_) {
        bool ok = false;
        const int z = parser.value(zoomOption_).trimmed().toInt(&ok);
        if (!ok || z < 1 || z > 256 || (z & (z - 1)) != 0) {
            printErr(prefix + QStringLiteral("--zoom takes 1, 2, 4, 8, 16, 32, 64, 128 or 256."));
            return Usage;
        }
        zoom_ = float(z);
    }
    const QString path = parser.value(plot_);
    if (chartexport::formatForPath(path) == chartexport::Format::Unknown) {
        printErr(prefix + QStringLiteral("the chart was not written. \"%1\" does not end in .png, .svg, .pdf "
                                         "or .csv.")
                              .arg(path));
        return Refused;
    }
    static const QRegularExpression sizePattern(QStringLiteral("^\\s*(\\d{1,6})\\s*[xX]\\s*(\\d{1,6})\\s*$"));
    const auto match = sizePattern.match(parser.value(sizeOption_));
    const QSize size =
        match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
    if (!match.hasMatch() || size.width() < kSmallest.width() || size.height() < kSmallest.height() ||
        size.width() > kLargest.width() || size.height() > kLargest.height()) {
        printErr(prefix + QStringLiteral("the chart was not written. --size takes WxH from 200x100 to "
                                         "8000x8000, not \"%1\".")
                              .arg(parser.value(sizeOption_)));
        return Refused;
    }
    size_ = size;
    path_ = path;
    return std::nullopt;
}

int PlotRequest::write(const std::function<ChartScene(float, float)>& layout, const ChartSeries& series,
                       const QString& title, const QString& verb) const
{
    const ChartScene scene = layout(float(size_.width()), float(size_.height()));
    QString error;
    if (!chartexport::writeChartFile(path_, scene, series, size_, 1.0, QGuiApplication::font(), title,
                                     &error)) {
        printErr(QStringLiteral("orvana-cli %1: the chart was not written. %2").arg(verb, error));
        return Refused;
    }
    return Designed;
}

bool argumentsAskForPlot(const QStringList& args)
{
    for (const QString& a : args)
        if (a == QLatin1String("--plot") || a.startsWith(QLatin1String("--plot=")))
            return true;
    return false;
}

} // namespace cli
