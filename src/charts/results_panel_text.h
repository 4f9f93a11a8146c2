// Rows of the filter results panel: captions, value texts and heights for a
// filter type and frequency unit.
#pragma once

#include <QString>
#include <QVector>

struct FilterResultValues {
    float db3Low = 0.0f;
    float db3High = 0.0f;
    float db3Bandwidth = 0.0f;
    float passbandRipple = 0.0f;
};

struct ResultsPanelRow {
    float y = 0.0f;  // lower-left coordinates
    QString caption; // drawn at x = 20
    QString value;   // drawn at x = 180
};

inline constexpr float kResultsCaptionX = 20.0f;
inline constexpr float kResultsValueX = 180.0f;

// filterType: 0 low pass, 1 band pass (four rows), 2 high pass (three rows);
// unit: caption after each frequency; height: panel height.
QVector<ResultsPanelRow> resultsPanelRows(int filterType, const QString& unit,
                                          const FilterResultValues& values, float height);
