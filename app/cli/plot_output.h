// The --plot option shared by the filter, signal and project verbs: the same
// chart views as the windows, drawn offscreen to PNG, SVG or PDF, or their
// points written as CSV; the file's extension chooses.
#pragma once

#include <functional>
#include <optional>

#include <QCommandLineOption>
#include <QSize>
#include <QString>
#include <QStringList>

class QCommandLineParser;
struct ChartScene;
struct ChartSeries;

namespace cli {

class PlotRequest {
public:
    // charts: the --chart names, the first the default (one name: no --chart
    // option); withZoom: takes --zoom.
    PlotRequest(QStringList charts, bool withZoom);

    void addOptionsTo(QCommandLineParser& parser) const;

    // After parsing: checks the options; an exit code (message printed) when
    // refused (1: extension or size) or wrong (2: chart or zoom name).
    std::optional<int> read(const QCommandLineParser& parser, const QString& verb);

    bool wanted() const { return !path_.isEmpty(); }
    const QString& chart() const { return chart_; }
    float zoom() const { return zoom_; }

    // Lays the chart out at the requested size and writes it; an exit code
    // of 0, or 1 with the message printed.
    int write(const std::function<ChartScene(float, float)>& layout, const ChartSeries& series,
              const QString& title, const QString& verb) const;

private:
    QStringList charts_;
    bool withZoom_;
    QCommandLineOption plot_;
    QCommandLineOption chartOption_;
    QCommandLineOption zoomOption_;
    QCommandLineOption sizeOption_;
    QString path_;
    QString chart_;
    float zoom_ = 16.0f;
    QSize size_{1200, 400};
};

// Whether the arguments ask for a plot (the command line then needs fonts).
bool argumentsAskForPlot(const QStringList& args);

} // namespace cli
