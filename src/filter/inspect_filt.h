// GVRInspectFilt: one row of the filter inspector and of the coefficient
// export list. Every cell is text; the field names are the table's column
// identifiers.
#pragma once

#include <QString>
#include <QStringList>

struct GVRInspectFilt {
    QString filename;
    QString filter;
    QString fs;
    QString window;
    QString parm;
    QString width;
    QString length;
    QString fcutoff;
    QString fcenter;
    QString db3band;
    QString db3low;
    QString db3high;
    QString ripple;
    QString units;

    // The cell of a column identifier; empty for an unknown identifier.
    QString value(const QString& key) const;
    // Sets the cell of a column identifier; false for an unknown identifier.
    bool setValue(const QString& key, const QString& text);
    // The fourteen column identifiers in table order.
    static const QStringList& keys();

    bool operator==(const GVRInspectFilt&) const = default;
};
