// Rows of the signal inspector, read straight from the library's ".signal" files.
#include "signal/inspector_sig_model.h"

#include <cmath>

#include "archive/signal_archive.h"
#include "library/design_library.h"

namespace {

// A stored parameter divided by a unit factor; an empty cell when it is absent.
QVariant cell(const std::optional<double>& value, double factor = 1.0)
{
    if (!value)
        return {};
    return QVariant(*value / factor);
}

} // namespace

GVRInspectorSigModel::GVRInspectorSigModel(const DesignLibrary& library) : library_(library) {}

const QStringList& GVRInspectorSigModel::abbrFuncStrings()
{
    static const QStringList texts{
        QStringLiteral("Acos(fₐ,Φ)+AGN(σ,μ)"),
        QStringLiteral("A₁cos(fₐ₁)+A₂cos(fₐ₂)+AGN(σ,μ)"),
        QStringLiteral("A∑cos(n,fₐ,Φ)+AGN(σ,μ)"),
        QStringLiteral("Asin(fₐ,Φ)+AGN(σ,μ)"),
        QStringLiteral("A₁sin(fₐ₁)+A₂sin(fₐ₂)+AGN(σ,μ)"),
        QStringLiteral("A∑sin(n,fₐ,Φ)+AGN(σ,μ)"),
        QStringLiteral("μ+Rayleigh(σ)cos()"),
        QStringLiteral("A₁sin(fₐ₁)*A₂sin(fₐ₂)+AGN(σ,μ)"),
        QStringLiteral("Arect(τ)+AGN(σ,μ)"),
        QStringLiteral("sinc(β)+AGN(σ,μ)"),
        QStringLiteral("sinc²(β)+AGN(σ,μ)"),
    };
    return texts;
}

QString GVRInspectorSigModel::unreadableFunctionText()
{
    return QStringLiteral("(unreadable)");
}

GVRInspectSig GVRInspectorSigModel::rowForRecord(const QString& displayName, const GVRSignal& record)
{
    GVRInspectSig row;
    row.filename = displayName;
    // The function index is a whole number stored as a double; anything else
    // is not a design this program wrote.
    const double step = record.yStepIndex.value_or(std::nan(""));
    if (!(step >= 0.0 && step <= 10.0) || step != std::floor(step)) {
        row.function = unreadableFunctionText();
        return row;
    }
    const int index = static_cast<int>(step);
    row.function = abbrFuncStrings().at(index);
    const double vf = record.voltUnits.value_or(0) == 1 ? 1000.0 : 1.0;
    const double ff = record.freqUnits.value_or(0) == 1 ? 1000.0 : 1.0;
    // In MHz like the other frequency columns, whatever unit the design used.
    row.fs = cell(record.samplingFreq, ff);
    const auto& p1 = record.parm1;
    const auto& p2 = record.parm2;
    const auto& p3 = record.parm3;
    const auto& p4 = record.parm4;
    const auto& p5 = record.parm5;
    const auto& p6 = record.parm6;
    switch (index) {
    case 0:
    case 3:
        row.a1 = cell(p1, vf);
        row.fa1 = cell(p2, ff);
        row.phi = cell(p3);
        row.sigma = cell(p4);
        row.mu = cell(p5, vf);
        break;
    case 1:
    case 4:
    case 7:
        row.a1 = cell(p1, vf);
        row.fa1 = cell(p2, ff);
        row.a2 = cell(p3, vf);
        row.fa2 = cell(p4, ff);
        row.sigma = cell(p5);
        row.mu = cell(p6, vf);
        break;
    case 2:
    case 5:
        row.a1 = cell(p1, vf);
        row.fa1 = cell(p2, ff);
        row.phi = cell(p3);
        row.m = cell(p4);
        row.sigma = cell(p5);
        row.mu = cell(p6, vf);
        break;
    case 6:
        row.sigma = cell(p1);
        row.mu = cell(p2, vf);
        break;
    case 8:
        row.a1 = cell(p1, vf);
        row.tau = cell(p2);
        row.sigma = cell(p3);
        row.mu = cell(p4, vf);
        break;
    default: // 9, 10
        row.beta = cell(p1);
        row.sigma = cell(p2);
        row.mu = cell(p3, vf);
        break;
    }
    return row;
}

GVRInspectSig GVRInspectorSigModel::rowForFile(const QString& path, const QString& displayName)
{
    if (const std::optional<GVRSignal> record = readSignalFileScalars(path))
        return rowForRecord(displayName, *record);
    GVRInspectSig row;
    row.filename = displayName;
    row.function = unreadableFunctionText();
    return row;
}

QList<GVRInspectSig> GVRInspectorSigModel::getSigInspectorArray()
{
    QList<GVRInspectSig> rows;
    const QString extension = DesignLibrary::extension(DesignLibrary::Folder::Signal);
    for (const DesignFileEntry& entry : library_.files(DesignLibrary::Folder::Signal))
        rows << rowForFile(library_.signalFolder() + u'/' + entry.fileName,
                           entry.fileName.chopped(extension.size()));
    return rows;
}
