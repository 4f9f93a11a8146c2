// Column access of a signal inspector row by identifier.
#include "signal/inspect_sig.h"

namespace {

struct Column {
    const char* key;
    QVariant GVRInspectSig::*field; // null for the two text columns
};

constexpr Column kColumns[] = {
    {"filename", nullptr},        {"function", nullptr},          {"fs", &GVRInspectSig::fs},
    {"a1", &GVRInspectSig::a1},   {"fa1", &GVRInspectSig::fa1},   {"phi", &GVRInspectSig::phi},
    {"a2", &GVRInspectSig::a2},   {"fa2", &GVRInspectSig::fa2},   {"m", &GVRInspectSig::m},
    {"tau", &GVRInspectSig::tau}, {"beta", &GVRInspectSig::beta}, {"sigma", &GVRInspectSig::sigma},
    {"mu", &GVRInspectSig::mu},
};

} // namespace

QVariant GVRInspectSig::value(const QString& key) const
{
    if (key == QLatin1String("filename"))
        return filename;
    if (key == QLatin1String("function"))
        return function;
    for (const Column& column : kColumns) {
        if (column.field && key == QLatin1String(column.key))
            return this->*column.field;
    }
    return {};
}

bool GVRInspectSig::setValue(const QString& key, const QVariant& cell)
{
    if (key == QLatin1String("filename")) {
        filename = cell.toString();
        return true;
    }
    if (key == QLatin1String("function")) {
        function = cell.toString();
        return true;
    }
    for (const Column& column : kColumns) {
        if (column.field && key == QLatin1String(column.key)) {
            this->*column.field = cell;
            return true;
        }
    }
    return false;
}

const QStringList& GVRInspectSig::keys()
{
    static const QStringList names = [] {
        QStringList list;
        for (const Column& column : kColumns)
            list << QString::fromLatin1(column.key);
        return list;
    }();
    return names;
}
