// Column access of a filter inspector row by identifier.
#include "filter/inspect_filt.h"

namespace {

using Field = QString GVRInspectFilt::*;

struct Column {
    const char* key;
    Field field;
};

constexpr Column kColumns[] = {
    {"filename", &GVRInspectFilt::filename},
    {"filter", &GVRInspectFilt::filter},
    {"fs", &GVRInspectFilt::fs},
    {"window", &GVRInspectFilt::window},
    {"parm", &GVRInspectFilt::parm},
    {"width", &GVRInspectFilt::width},
    {"length", &GVRInspectFilt::length},
    {"fcutoff", &GVRInspectFilt::fcutoff},
    {"fcenter", &GVRInspectFilt::fcenter},
    {"db3band", &GVRInspectFilt::db3band},
    {"db3low", &GVRInspectFilt::db3low},
    {"db3high", &GVRInspectFilt::db3high},
    {"ripple", &GVRInspectFilt::ripple},
    {"units", &GVRInspectFilt::units},
};

Field fieldOf(const QString& key)
{
    for (const Column& column : kColumns) {
        if (key == QLatin1String(column.key))
            return column.field;
    }
    return nullptr;
}

} // namespace

QString GVRInspectFilt::value(const QString& key) const
{
    const Field field = fieldOf(key);
    return field ? this->*field : QString();
}

bool GVRInspectFilt::setValue(const QString& key, const QString& text)
{
    const Field field = fieldOf(key);
    if (!field)
        return false;
    this->*field = text;
    return true;
}

const QStringList& GVRInspectFilt::keys()
{
    static const QStringList names = [] {
        QStringList list;
        for (const Column& column : kColumns)
            list << QString::fromLatin1(column.key);
        return list;
    }();
    return names;
}
