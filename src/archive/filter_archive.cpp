// GVRFilter <-> keyed archive, nineteen keys in the record's declaration order,
// then the mask keys, written only when a design has them.
#include "archive/filter_archive.h"

#include "archive/design_codec.h"
#include "archive/record_values.h"

namespace {

using K = ArchiveKind;

constexpr ArchiveField kFields[] = {
    {"filterName", K::String},
    {"filterType", K::Integer},
    {"windowType", K::Integer},
    {"filterWidth", K::Integer},
    {"unitsType", K::Integer},
    {"dfThetaSamplingFreq", K::Real},
    {"dfFilterLengthN", K::Real},
    {"dfBetaUpsilon", K::Real},
    {"dfThetaCutoffFreqNormalized", K::Real},
    {"dfThetaCenterFreqNormalized", K::Real},
    {"dfGimeldbLow", K::Real},
    {"dfGimeldbHigh", K::Real},
    {"dfGimeldbBandwidth", K::Real},
    {"dfPassbandRipple", K::Real},
    {"dfDynamicRange", K::Real},
    {"dfDynamicRangeError", K::Real},
    {"integerCoefficients", K::IntegerArray, kMaxFilterCoefficients},
    {"filterCoefficients", K::RealArray, kMaxFilterCoefficients},
    {"filterPrecisionCoefficients", K::RealArray, kMaxFilterCoefficients},
    {"designMethod", K::Integer, 0, true},
    {"dfMaskPassbandEdge", K::Real, 0, true},
    {"dfMaskPassbandEdge2", K::Real, 0, true},
    {"dfMaskStopbandEdge", K::Real, 0, true},
    {"dfMaskStopbandEdge2", K::Real, 0, true},
    {"dfMaskRipple", K::Real, 0, true},
    {"dfMaskAttenuation", K::Real, 0, true},
};

ArchiveRecord toArchive(const GVRFilter& f)
{
    return {toValue(f.filterName),
            toValue(f.filterType),
            toValue(f.windowType),
            toValue(f.filterWidth),
            toValue(f.unitsType),
            toValue(f.dfThetaSamplingFreq),
            toValue(f.dfFilterLengthN),
            toValue(f.dfBetaUpsilon),
            toValue(f.dfThetaCutoffFreqNormalized),
            toValue(f.dfThetaCenterFreqNormalized),
            toValue(f.dfGimeldbLow),
            toValue(f.dfGimeldbHigh),
            toValue(f.dfGimeldbBandwidth),
            toValue(f.dfPassbandRipple),
            toValue(f.dfDynamicRange),
            toValue(f.dfDynamicRangeError),
            toValue(f.integerCoefficients),
            toValue(f.filterCoefficients),
            toValue(f.filterPrecisionCoefficients),
            toValue(f.designMethod),
            toValue(f.dfMaskPassbandEdge),
            toValue(f.dfMaskPassbandEdge2),
            toValue(f.dfMaskStopbandEdge),
            toValue(f.dfMaskStopbandEdge2),
            toValue(f.dfMaskRipple),
            toValue(f.dfMaskAttenuation)};
}

GVRFilter fromArchive(const ArchiveRecord& v)
{
    GVRFilter f;
    f.filterName = fromValue<std::string>(v[0]);
    f.filterType = fromValue<std::int64_t>(v[1]);
    f.windowType = fromValue<std::int64_t>(v[2]);
    f.filterWidth = fromValue<std::int64_t>(v[3]);
    f.unitsType = fromValue<std::int64_t>(v[4]);
    f.dfThetaSamplingFreq = fromValue<double>(v[5]);
    f.dfFilterLengthN = fromValue<double>(v[6]);
    f.dfBetaUpsilon = fromValue<double>(v[7]);
    f.dfThetaCutoffFreqNormalized = fromValue<double>(v[8]);
    f.dfThetaCenterFreqNormalized = fromValue<double>(v[9]);
    f.dfGimeldbLow = fromValue<double>(v[10]);
    f.dfGimeldbHigh = fromValue<double>(v[11]);
    f.dfGimeldbBandwidth = fromValue<double>(v[12]);
    f.dfPassbandRipple = fromValue<double>(v[13]);
    f.dfDynamicRange = fromValue<double>(v[14]);
    f.dfDynamicRangeError = fromValue<double>(v[15]);
    f.integerCoefficients = fromValue<std::vector<std::int64_t>>(v[16]);
    f.filterCoefficients = fromValue<std::vector<double>>(v[17]);
    f.filterPrecisionCoefficients = fromValue<std::vector<double>>(v[18]);
    f.designMethod = fromValue<std::int64_t>(v[19]);
    f.dfMaskPassbandEdge = fromValue<double>(v[20]);
    f.dfMaskPassbandEdge2 = fromValue<double>(v[21]);
    f.dfMaskStopbandEdge = fromValue<double>(v[22]);
    f.dfMaskStopbandEdge2 = fromValue<double>(v[23]);
    f.dfMaskRipple = fromValue<double>(v[24]);
    f.dfMaskAttenuation = fromValue<double>(v[25]);
    return f;
}

// Every coefficient array holds the N coefficients the record claims.
bool checkLength(const char* key, std::size_t size, const GVRFilter& f, QString* reason)
{
    QString problem;
    if (size > kMaxFilterCoefficients)
        problem = QStringLiteral("its “%1” holds %2 coefficients; at most %3 are allowed")
                      .arg(QLatin1String(key))
                      .arg(size)
                      .arg(kMaxFilterCoefficients);
    else if (f.dfFilterLengthN && double(size) != *f.dfFilterLengthN)
        problem = QStringLiteral("its “%1” holds %2 coefficients but its filter length is %3")
                      .arg(QLatin1String(key))
                      .arg(size)
                      .arg(*f.dfFilterLengthN);
    if (problem.isEmpty())
        return true;
    if (reason)
        *reason = problem;
    return false;
}

bool check(const GVRFilter& f, QString* reason)
{
    if (f.integerCoefficients &&
        !checkLength("integerCoefficients", f.integerCoefficients->size(), f, reason))
        return false;
    if (f.filterCoefficients && !checkLength("filterCoefficients", f.filterCoefficients->size(), f, reason))
        return false;
    if (f.filterPrecisionCoefficients &&
        !checkLength("filterPrecisionCoefficients", f.filterPrecisionCoefficients->size(), f, reason))
        return false;
    return true;
}

const DesignCodec<GVRFilter> kCodec{{"GVRFilter", kFields}, "filter design", toArchive, fromArchive, check};

} // namespace

QByteArray encodeFilterArchive(const GVRFilter& filter, QString* error)
{
    return encodeDesigns(kCodec, std::vector<GVRFilter>{filter}, error);
}

QByteArray encodeFilterArchive(const std::vector<GVRFilter>& designs, QString* error)
{
    return encodeDesigns(kCodec, designs, error);
}

std::optional<GVRFilter> decodeFilterArchive(const QByteArray& bytes, QString* error, ArchiveReach reach)
{
    QString reason;
    auto filter = decodeDesign(kCodec, bytes, &reason, reach);
    if (!filter && error)
        *error = designRefusal({}, kCodec.noun, reason);
    return filter;
}

std::optional<GVRFilter> readFilterFile(const QString& path, QString* error)
{
    return readDesignFile(kCodec, path, error);
}

std::optional<GVRFilter> readFilterFileScalars(const QString& path, QString* error)
{
    return readDesignFile(kCodec, path, error, ArchiveReach::ScalarsOnly);
}

bool writeFilterFile(const QString& path, const GVRFilter& filter, QString* error)
{
    return writeDesignFile(kCodec, path, filter, error);
}
