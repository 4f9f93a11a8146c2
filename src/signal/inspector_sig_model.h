// GVRInspectorSigModel: reads every ".signal" file of the library's signal
// folder and turns each into one row of the signal inspector, amplitudes in
// volts and analog frequencies in MHz.
#pragma once

#include <QList>
#include <QStringList>

#include "signal/inspect_sig.h"

class DesignLibrary;
struct GVRSignal;

class GVRInspectorSigModel {
public:
    // `library` must outlive the model.
    explicit GVRInspectorSigModel(const DesignLibrary& library);

    // One row per ".signal" file, in the order the folder lists them; empty
    // when the folder is missing.
    QList<GVRInspectSig> getSigInspectorArray();
    // The row of the ".signal" file at `path`, shown as `displayName`; an
    // unreadable file gives its name and the unreadable mark. Safe to call
    // from worker threads.
    static GVRInspectSig rowForFile(const QString& path, const QString& displayName);

    // The row of one record (exposed for tests).
    static GVRInspectSig rowForRecord(const QString& displayName, const GVRSignal& record);

    // Short function texts by signal function index 0..10.
    static const QStringList& abbrFuncStrings();
    // Function text of a file that cannot be read as a signal design.
    static QString unreadableFunctionText();

private:
    const DesignLibrary& library_;
};
