// Checks and messages shared by the designer models when they save or open a
// named design in the library (filter and signal designs alike).
#pragma once

#include <QString>
#include <QVariant>

#include <cstdint>

// A record's value as the parameter dictionaries hold it: integers as
// qlonglong, doubles as double, whatever the record's own types.
QVariant recordValueAsVariant(std::int64_t value);
QVariant recordValueAsVariant(double value);

// Why `name` cannot be saved as a `kind` ("filter", "signal") design, or an
// empty string when it can.
QString designSaveNameProblem(const QString& kind, const QString& name);
// Why `name` cannot be opened as a `kind` design, or an empty string.
QString designOpenNameProblem(const QString& kind, const QString& name);
// The refusal for a record that lacks some of its keys.
QString incompleteDesignMessage(const QString& kind, const QString& name);
