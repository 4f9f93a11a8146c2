// Base of the chart views: paints the ChartScene its subclass lays out for the
// current size, and gives every chart the same interaction (chart_interaction.cpp):
// wheel and rubber-band zoom, panning, a cursor read-out that snaps to the
// data, a focus ring, and a context menu that copies or saves the chart.
// Without zoom the chart is exactly its subclass's default layout.
#pragma once

#include <functional>

#include <QPixmap>
#include <QPoint>
#include <QWidget>

#include "charts/chart_scene.h"
#include "charts/chart_series.h"
#include "charts/chart_zoom.h"

class QMenu;

class GVRChartView : public QWidget {
    Q_OBJECT
public:
    explicit GVRChartView(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    // The zoom as fractions of the default view; the default is no zoom.
    ChartZoom chartZoom() const { return zoom_; }
    void setChartZoom(const ChartZoom& zoom);
    // Back to the default view (double-click, Escape).
    void resetZoom();

    // The scene a pass at `size` draws, zoom included; refreshes the data.
    ChartScene currentScene(QSizeF size);
    // The points of the chart as it was last laid out (CSV, read-out).
    const ChartSeries& currentSeries();
    // The data range the view shows.
    ChartRange visibleRange() const;

    // The point the cursor read-out shows (-1 for none) and its text, e.g.
    // "0.2734 Norm, −3.02 dB".
    int cursorIndex() const { return cursorIndex_; }
    void setCursorIndex(int index);
    QString readoutText();

    // Writes the chart to `path` (.png, .svg, .pdf or .csv) at `size`; false
    // with a message in `error` when refused or not written.
    bool exportChart(const QString& path, QSize size, qreal devicePixelRatio, QString* error);

    // The context menu: Copy Image, Save Image As…, Save Data As….
    QMenu* createContextMenu(QWidget* parent);
    void copyImage();
    void saveImageAs();
    void saveDataAs();
    // File ▸ Export Chart…: image or data, chosen by the extension.
    void exportChartAs();

    // The chart in front of `window`: its focused chart, else its first visible one.
    static GVRChartView* chartIn(QWidget* window);

    // Asks for a file name to save to (parent, caption, name filters); a test
    // replaces the file dialog with its own answer. Empty for none.
    using FileChooser = std::function<QString(QWidget*, const QString&, const QString&)>;
    static void setFileChooser(FileChooser chooser);

protected:
    // Pulls a fresh copy of the array and lays out the chart for a view of
    // width × height (lower-left origin). An empty array gives a scene without data.
    virtual ChartScene layoutChart(float width, float height) = 0;
    // The points the last layoutChart() drew, in the chart's units.
    virtual ChartSeries chartSeries() const = 0;
    // Adds what the chart draws besides its curve, at default and zoomed views alike.
    virtual void decorateScene(ChartScene& scene, QSizeF size)
    {
        (void)scene;
        (void)size;
    }
    // Title of saved files ("Filter Response").
    virtual QString chartTitle() const;

    // The data or the way it is shown changed: redraws everything.
    void chartChanged();

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;

private:
    enum class Drag { None, Zoom, Pan };

    // Repaints only the cursor, the rubber band and the focus ring over the cached chart.
    void overlayChanged();
    void paintOverlay(QPainter& painter);
    void moveCursorToView(QPoint pos);
    QString askFileName(const QString& caption, const QString& filters);
    void saveTo(const QString& path);

    ChartZoom zoom_;
    ChartRange defaultRange_;
    bool hasData_ = false;
    ChartSeries series_;
    bool seriesValid_ = false;
    int cursorIndex_ = -1;
    bool cursorShown_ = false;

    Drag drag_ = Drag::None;
    QPoint dragStart_;
    QPoint dragLast_;

    QPixmap cache_;
    bool overlayOnly_ = false;
    bool fullPending_ = true;
};
