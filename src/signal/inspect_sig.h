// GVRInspectSig: one row of the signal inspector. The function and file
// name are text; every other cell is a double, or an invalid QVariant for a
// cell the signal function does not use.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

struct GVRInspectSig {
    QString filename;
    QString function;
    QVariant fs;
    QVariant a1;
    QVariant fa1;
    QVariant phi;
    QVariant a2;
    QVariant fa2;
    QVariant m;
    QVariant tau;
    QVariant beta;
    QVariant sigma;
    QVariant mu;

    // The cell of a column identifier; invalid for an unknown identifier.
    QVariant value(const QString& key) const;
    // Sets the cell of a column identifier; false for an unknown identifier.
    bool setValue(const QString& key, const QVariant& cell);
    // The thirteen column identifiers in table order.
    static const QStringList& keys();

    bool operator==(const GVRInspectSig&) const = default;
};
