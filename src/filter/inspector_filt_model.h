// GVRInspectorFiltModel: reads every ".filt" file of the library's filter
// folder and turns each into one text row of the filter inspector.
#pragma once

#include <QList>
#include <QStringList>

#include "filter/inspect_filt.h"

class DesignLibrary;
struct GVRFilter;

class GVRInspectorFiltModel {
public:
    // `library` must outlive the model.
    explicit GVRInspectorFiltModel(const DesignLibrary& library);

    // One row per ".filt" file, in the order the folder lists them; empty when
    // the folder is missing. A file that cannot be read gives a row holding
    // only its name.
    QList<GVRInspectFilt> getFiltInspectorArray();

    // The row of the ".filt" file at `path`, shown as `displayName`; a file
    // that cannot be read gives a row holding only the name. Each version of
    // a file is decoded once per process, so the inspector and the export
    // list share the work. Safe to call from worker threads.
    static GVRInspectFilt rowForFile(const QString& path, const QString& displayName);

    // The row of one record (exposed for the export list and for tests).
    static GVRInspectFilt rowForRecord(const QString& displayName, const GVRFilter& record);

    // The title lists of the designer window, split at ",".
    static const QStringList& filterTypeTitle();
    static const QStringList& windowTypeTitle();
    static const QStringList& bitWidthTitle();
    static const QStringList& unitsFieldTitle();

private:
    const DesignLibrary& library_;
};
