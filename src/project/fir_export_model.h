// GVRFirExportModel: lists the library's filter designs for the coefficient
// export and writes the integer coefficients of one of them as a single line
// of comma-separated text.
#pragma once

#include <cstdint>
#include <vector>

#include <QByteArray>
#include <QList>
#include <QString>

#include "filter/inspect_filt.h"
#include "project/coefficient_formats.h"

class DesignLibrary;

class GVRFirExportModel {
public:
    // `library` must outlive the model.
    explicit GVRFirExportModel(const DesignLibrary& library);

    // One row per ".filt" file (filename with ".filt", filter, length, width),
    // in the order the folder lists them.
    QList<GVRInspectFilt> getFirExportFileArray();
    // The row of one ".filt" file (safe to call from worker threads).
    static GVRInspectFilt rowForFile(const QString& path, const QString& fileName);

    // Writes the one-line CSV (or another format) of the named ".filt" file
    // (file name with its extension) to csvPath atomically. False, with the
    // reason in `error`, when the file cannot be read, holds no integer
    // coefficients, was designed with the "Double" width (integerWidthAlert()),
    // does not suit the format, or the write fails; nothing is written then.
    bool openFilterFileAndSaveCoefficientsToFile(const QString& fileName, const QString& csvPath,
                                                 QString* error = nullptr,
                                                 CoefficientFormat format = CoefficientFormat::Csv,
                                                 const CoefficientExportOptions& options = {});

    // "Filter Coefficient Width must be an Integer Value\n(Not Floating Point)"
    static QString integerWidthAlert();
    // "A Row must first be selected"
    static QString invalidSelectionAlert();

    // The export text of a coefficient list: "12,-40,127,-40,12", no line break.
    static QByteArray coefficientText(const std::vector<std::int64_t>& coefficients);

private:
    const DesignLibrary& library_;
};
