// GVRSignal <-> keyed archive, fourteen keys in the record's declaration order.
#include "archive/signal_archive.h"

#include "archive/design_codec.h"
#include "archive/record_values.h"

namespace {

using K = ArchiveKind;

constexpr ArchiveField kFields[] = {
    {"samplingFreq", K::Real}, {"yStepIndex", K::Real},
    {"freqUnits", K::Integer}, {"voltUnits", K::Integer},
    {"parm1", K::Real},        {"parm2", K::Real},
    {"parm3", K::Real},        {"parm4", K::Real},
    {"parm5", K::Real},        {"parm6", K::Real},
    {"maxAmplitude", K::Real}, {"minAmplitude", K::Real},
    {"maxFreq", K::Real},      {"sampledSignalArray", K::RealArray, kSignalSampleCount},
};

ArchiveRecord toArchive(const GVRSignal& s)
{
    return {toValue(s.samplingFreq), toValue(s.yStepIndex),
            toValue(s.freqUnits),    toValue(s.voltUnits),
            toValue(s.parm1),        toValue(s.parm2),
            toValue(s.parm3),        toValue(s.parm4),
            toValue(s.parm5),        toValue(s.parm6),
            toValue(s.maxAmplitude), toValue(s.minAmplitude),
            toValue(s.maxFreq),      toValue(s.sampledSignalArray)};
}

GVRSignal fromArchive(const ArchiveRecord& v)
{
    GVRSignal s;
    s.samplingFreq = fromValue<double>(v[0]);
    s.yStepIndex = fromValue<double>(v[1]);
    s.freqUnits = fromValue<std::int64_t>(v[2]);
    s.voltUnits = fromValue<std::int64_t>(v[3]);
    s.parm1 = fromValue<double>(v[4]);
    s.parm2 = fromValue<double>(v[5]);
    s.parm3 = fromValue<double>(v[6]);
    s.parm4 = fromValue<double>(v[7]);
    s.parm5 = fromValue<double>(v[8]);
    s.parm6 = fromValue<double>(v[9]);
    s.maxAmplitude = fromValue<double>(v[10]);
    s.minAmplitude = fromValue<double>(v[11]);
    s.maxFreq = fromValue<double>(v[12]);
    s.sampledSignalArray = fromValue<std::vector<double>>(v[13]);
    return s;
}

bool check(const GVRSignal& s, QString* reason)
{
    if (!s.sampledSignalArray || s.sampledSignalArray->size() == kSignalSampleCount)
        return true;
    if (reason)
        *reason = QStringLiteral("its “sampledSignalArray” holds %1 samples instead of %2")
                      .arg(s.sampledSignalArray->size())
                      .arg(kSignalSampleCount);
    return false;
}

const DesignCodec<GVRSignal> kCodec{{"GVRSignal", kFields}, "signal design", toArchive, fromArchive, check};

} // namespace

QByteArray encodeSignalArchive(const GVRSignal& signal, QString* error)
{
    return encodeDesigns(kCodec, std::vector<GVRSignal>{signal}, error);
}

QByteArray encodeSignalArchive(const std::vector<GVRSignal>& designs, QString* error)
{
    return encodeDesigns(kCodec, designs, error);
}

std::optional<GVRSignal> decodeSignalArchive(const QByteArray& bytes, QString* error, ArchiveReach reach)
{
    QString reason;
    auto signal = decodeDesign(kCodec, bytes, &reason, reach);
    if (!signal && error)
        *error = designRefusal({}, kCodec.noun, reason);
    return signal;
}

std::optional<GVRSignal> readSignalFile(const QString& path, QString* error)
{
    return readDesignFile(kCodec, path, error);
}

std::optional<GVRSignal> readSignalFileScalars(const QString& path, QString* error)
{
    return readDesignFile(kCodec, path, error, ArchiveReach::ScalarsOnly);
}

bool writeSignalFile(const QString& path, const GVRSignal& signal, QString* error)
{
    return writeDesignFile(kCodec, path, signal, error);
}
