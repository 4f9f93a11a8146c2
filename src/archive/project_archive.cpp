// GVRProject <-> keyed archive, nine keys in the record's declaration order.
#include "archive/project_archive.h"

#include "archive/design_codec.h"
#include "archive/record_values.h"

namespace {

using K = ArchiveKind;

constexpr ArchiveField kFields[] = {
    {"blockDiagramNumber", K::Integer}, {"signalOneSign", K::Integer}, {"signalTwoSign", K::Integer},
    {"multirateL", K::Integer},         {"multirateM", K::Integer},    {"multirateFilterType", K::Integer},
    {"filterName", K::String},          {"signalOneName", K::String},  {"signalTwoName", K::String},
};

ArchiveRecord toArchive(const GVRProject& p)
{
    return {toValue(p.blockDiagramNumber), toValue(p.signalOneSign), toValue(p.signalTwoSign),
            toValue(p.multirateL),         toValue(p.multirateM),    toValue(p.multirateFilterType),
            toValue(p.filterName),         toValue(p.signalOneName), toValue(p.signalTwoName)};
}

GVRProject fromArchive(const ArchiveRecord& v)
{
    GVRProject p;
    p.blockDiagramNumber = fromValue<std::int64_t>(v[0]);
    p.signalOneSign = fromValue<std::int64_t>(v[1]);
    p.signalTwoSign = fromValue<std::int64_t>(v[2]);
    p.multirateL = fromValue<std::int64_t>(v[3]);
    p.multirateM = fromValue<std::int64_t>(v[4]);
    p.multirateFilterType = fromValue<std::int64_t>(v[5]);
    p.filterName = fromValue<std::string>(v[6]);
    p.signalOneName = fromValue<std::string>(v[7]);
    p.signalTwoName = fromValue<std::string>(v[8]);
    return p;
}

// A project holds only numbers and names; the types say it all.
bool check(const GVRProject&, QString*)
{
    return true;
}

const DesignCodec<GVRProject> kCodec{{"GVRProject", kFields}, "project", toArchive, fromArchive, check};

} // namespace

QByteArray encodeProjectArchive(const GVRProject& project, QString* error)
{
    return encodeDesigns(kCodec, std::vector<GVRProject>{project}, error);
}

QByteArray encodeProjectArchive(const std::vector<GVRProject>& designs, QString* error)
{
    return encodeDesigns(kCodec, designs, error);
}

std::optional<GVRProject> decodeProjectArchive(const QByteArray& bytes, QString* error)
{
    QString reason;
    auto project = decodeDesign(kCodec, bytes, &reason);
    if (!project && error)
        *error = designRefusal({}, kCodec.noun, reason);
    return project;
}

std::optional<GVRProject> readProjectFile(const QString& path, QString* error)
{
    return readDesignFile(kCodec, path, error);
}

bool writeProjectFile(const QString& path, const GVRProject& project, QString* error)
{
    return writeDesignFile(kCodec, path, project, error);
}
