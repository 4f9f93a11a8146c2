// The coefficient export: the filter list and the one-line CSV writer.
#include "project/fir_export_model.h"

#include "archive/atomic_write.h"
#include "archive/filter_archive.h"
#include "filter/inspector_filt_model.h"
#include "library/design_library.h"
#include "library/library_design_source.h"

GVRFirExportModel::GVRFirExportModel(const DesignLibrary& library) : library_(library) {}

QList<GVRInspectFilt> GVRFirExportModel::getFirExportFileArray()
{
    QList<GVRInspectFilt> rows;
    for (const DesignFileEntry& entry : library_.files(DesignLibrary::Folder::Filter))
        rows << rowForFile(library_.filterFolder() + u'/' + entry.fileName, entry.fileName);
    return rows;
}

GVRInspectFilt GVRFirExportModel::rowForFile(const QString& path, const QString& fileName)
{
    // An unreadable file is listed by name only; exporting it is refused later.
    const GVRInspectFilt full = GVRInspectorFiltModel::rowForFile(path, fileName);
    GVRInspectFilt row;
    row.filename = fileName;
    row.filter = full.filter;
    row.length = full.length;
    row.width = full.width;
    return row;
}

QString GVRFirExportModel::integerWidthAlert()
{
    return QStringLiteral("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)");
}

QString GVRFirExportModel::invalidSelectionAlert()
{
    return QStringLiteral("A Row must first be selected");
}

QByteArray GVRFirExportModel::coefficientText(const std::vector<std::int64_t>& coefficients)
{
    QByteArray text;
    text.reserve(static_cast<qsizetype>(coefficients.size() * 8));
    for (std::size_t i = 0; i < coefficients.size(); ++i) {
        text += QByteArray::number(static_cast<qlonglong>(coefficients[i]));
        if (i + 1 < coefficients.size())
            text += ',';
    }
    return text;
}

bool GVRFirExportModel::openFilterFileAndSaveCoefficientsToFile(const QString& fileName,
                                                                const QString& csvPath, QString* error,
                                                                CoefficientFormat format,
                                                                const CoefficientExportOptions& options)
{
    auto fail = [&](const QString& message) {
        if (error)
            *error = message;
        return false;
    };
    if (!LibraryDesignSource::isPlainName(fileName))
        return fail(QStringLiteral("\"%1\" is not the name of a filter design file.").arg(fileName));
    if (csvPath.isEmpty())
        return fail(QStringLiteral("No file was chosen to export to."));
    QString readError;
    const std::optional<GVRFilter> record =
        readFilterFile(library_.filterFolder() + u'/' + fileName, &readError);
    if (!record)
        return fail(readError);
    QString designName = fileName;
    const QString extension = DesignLibrary::extension(DesignLibrary::Folder::Filter);
    if (designName.endsWith(extension))
        designName.chop(extension.size());
    QString formatError;
    const std::optional<QByteArray> text =
        coefficientFileText(format, designName, *record, options, &formatError);
    if (!text)
        return fail(formatError);
    return writeFileAtomically(csvPath, *text, error);
}
