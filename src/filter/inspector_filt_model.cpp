// Rows of the filter inspector, read straight from the library's ".filt" files.
#include "filter/inspector_filt_model.h"

#include <cmath>
#include <limits>

#include <QHash>
#include <QMutex>

#include "archive/design_titles.h"
#include "archive/filter_archive.h"
#include "dsp/window.h"
#include "library/design_library.h"
#include "library/file_identity.h"

namespace {

QString fixed5(double value)
{
    return QString::asprintf("%1.5f", value);
}

// Title at an index of a list; empty for an index the list does not hold.
QString titleAt(const QStringList& titles, const std::optional<std::int64_t>& index)
{
    if (!index || *index < 0 || *index >= titles.size())
        return {};
    return titles.at(static_cast<qsizetype>(*index));
}

} // namespace

GVRInspectorFiltModel::GVRInspectorFiltModel(const DesignLibrary& library) : library_(library) {}

const QStringList& GVRInspectorFiltModel::filterTypeTitle()
{
    return titles::filterTypes();
}

const QStringList& GVRInspectorFiltModel::windowTypeTitle()
{
    return titles::windowTypes();
}

const QStringList& GVRInspectorFiltModel::bitWidthTitle()
{
    return titles::bitWidths();
}

const QStringList& GVRInspectorFiltModel::unitsFieldTitle()
{
    return titles::filterUnits();
}

// The length's whole-number value; empty when it is not a number an int holds
// (a hostile file must not reach an undefined conversion).
namespace {
QString lengthText(const std::optional<double>& length)
{
    if (!length || !std::isfinite(*length) || std::fabs(*length) > std::numeric_limits<int>::max())
        return {};
    return QString::asprintf("%d", static_cast<int>(*length));
}

} // namespace

GVRInspectFilt GVRInspectorFiltModel::rowForRecord(const QString& displayName, const GVRFilter& record)
{
    GVRInspectFilt row;
    row.filename = displayName;
    const std::int64_t type = record.filterType.value_or(-1);
    const std::int64_t units = record.unitsType.value_or(0);
    const std::int64_t window = record.windowType.value_or(-1);

    // Frequencies back to the form they were typed in: the high pass keeps its
    // complement, and units other than "Norm" scale by half the sampling rate.
    double scale = 1.0;
    if (units != 0) {
        const double fs = record.dfThetaSamplingFreq.value_or(std::nan(""));
        scale = fs * 0.5;
        if (record.dfThetaSamplingFreq)
            row.fs = fixed5(fs);
    }
    auto scaled = [&](const std::optional<double>& value, bool complement = false) -> QString {
        if (!value)
            return {};
        const double normalised = complement ? 1.0 - *value : *value;
        return fixed5(normalised * scale);
    };

    row.filter = titleAt(filterTypeTitle(), record.filterType);
    row.window = titleAt(windowTypeTitle(), record.windowType);
    row.width = titleAt(bitWidthTitle(), record.filterWidth);
    row.units = titleAt(unitsFieldTitle(), record.unitsType);
    if ((window == kWindowKaiser || window == kWindowChebyshev) && record.dfBetaUpsilon)
        row.parm = fixed5(*record.dfBetaUpsilon);
    row.length = lengthText(record.dfFilterLengthN);
    row.fcutoff = scaled(record.dfThetaCutoffFreqNormalized, type == 2);
    if (type == 1) {
        row.fcenter = scaled(record.dfThetaCenterFreqNormalized);
        row.db3high = scaled(record.dfGimeldbHigh);
    }
    row.db3band = scaled(record.dfGimeldbBandwidth);
    row.db3low = scaled(record.dfGimeldbLow);
    if (record.dfPassbandRipple)
        row.ripple = fixed5(*record.dfPassbandRipple);
    return row;
}

GVRInspectFilt GVRInspectorFiltModel::rowForFile(const QString& path, const QString& displayName)
{
    // Rows by path, kept with the identity of the file version they came from.
    struct Cached {
        FileIdentity identity;
        GVRInspectFilt row;
    };
    static QMutex mutex;
    static QHash<QString, Cached> cache;

    const std::optional<FileIdentity> identity = fileIdentity(path);
    if (identity) {
        const QMutexLocker lock(&mutex);
        const auto found = cache.constFind(path);
        if (found != cache.cend() && found->identity == *identity) {
            GVRInspectFilt row = found->row;
            row.filename = displayName;
            return row;
        }
    }
    GVRInspectFilt row;
    row.filename = displayName;
    // A file that cannot be read shows only its name: never another file's values under it.
    // The row needs no coefficients: only the scalar fields are decoded.
    if (const std::optional<GVRFilter> record = readFilterFileScalars(path))
        row = rowForRecord(displayName, *record);
    if (identity && identity == fileIdentity(path)) {
        const QMutexLocker lock(&mutex);
        cache.insert(path, Cached{*identity, row});
    }
    return row;
}

QList<GVRInspectFilt> GVRInspectorFiltModel::getFiltInspectorArray()
{
    QList<GVRInspectFilt> rows;
    const QString extension = DesignLibrary::extension(DesignLibrary::Folder::Filter);
    for (const DesignFileEntry& entry : library_.files(DesignLibrary::Folder::Filter))
        rows << rowForFile(library_.filterFolder() + u'/' + entry.fileName,
                           entry.fileName.chopped(extension.size()));
    return rows;
}
