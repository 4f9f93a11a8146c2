// Checks and messages shared by the designer models' save and open.
#include "library/design_file_io.h"

#include "library/design_library.h"
#include "library/library_design_source.h"

QVariant recordValueAsVariant(std::int64_t value)
{
    return QVariant(static_cast<qlonglong>(value));
}

QVariant recordValueAsVariant(double value)
{
    return QVariant(value);
}

QString designSaveNameProblem(const QString& kind, const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral("A %1 design needs a name to be saved.").arg(kind);
    if (!LibraryDesignSource::isPlainName(name))
        return QStringLiteral("\"%1\" cannot be used as a design name: it must not contain \"/\".").arg(name);
    return QString();
}

QString designOpenNameProblem(const QString& kind, const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral("No %1 design was named.").arg(kind);
    if (!LibraryDesignSource::isPlainName(name))
        return QStringLiteral("\"%1\" is not the name of a %2 design.").arg(name, kind);
    return QString();
}

QString incompleteDesignMessage(const QString& kind, const QString& name)
{
    return QStringLiteral("The %1 design \"%2\" is incomplete and cannot be opened.").arg(kind, name);
}
