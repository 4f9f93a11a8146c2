// The filter results panel of the filter design window: 3 dB points,
// bandwidth and passband ripple of the filter last designed.
#pragma once

#include <QFont>
#include <QStringList>
#include <QVariantMap>
#include <QWidget>

#include "charts/results_panel_text.h"

class GVRViewResults : public QWidget {
    Q_OBJECT
public:
    explicit GVRViewResults(QWidget* parent = nullptr);

    QSize sizeHint() const override;

    bool hasResults() const { return validResultsFlag_; }
    // The rows the next pass draws (empty without results).
    QVector<ResultsPanelRow> rows() const;

public slots:
    // Takes a results dictionary of exactly six KEYFDR_ entries; any other
    // size changes nothing. Redraws either way.
    void displayFilterDesignResults(const QVariantMap& results);
    // Back to the empty panel. Redraws.
    void clearDisplay();
    // 0 low pass, 1 band pass, 2 high pass. Redraws.
    void setFilterType(int type);
    // 0 "Norm", 1 "KHz", 2 "MHz". Redraws.
    void setFreqUnits(int units);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QStringList freqUnitsTitle_;
    int freqUnits_ = 0;
    int filterType_ = 0;
    bool validResultsFlag_ = false;
    FilterResultValues values_;
    float dynamicRange_ = 0.0f;
    float dynamicRangeError_ = 0.0f;
    QFont textFont_;
};
