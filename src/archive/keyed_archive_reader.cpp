// Keyed-archive layer over the strict binary property list reader. Decoding is
// driven by the record schema, never by what the file claims: every UID is
// bounds-checked, every object's class must be on the allow-list, every key
// must hold the type its field expects, and the walk is at most four levels
// deep (root array, record, number array, number), so a hostile archive can
// neither loop nor recurse.
#include "archive/keyed_archive_reader.h"

#include <algorithm>
#include <array>

#include "archive/binary_plist.h"

namespace {

using Type = BinaryPlist::Type;

// Keys of a dictionary the reader looks into; ours have at most twenty.
constexpr std::uint64_t kMaxDictKeys = 64;
constexpr std::uint64_t kMaxKeyLength = 255;

constexpr std::array<std::string_view, 2> kArrayClasses{"NSMutableArray", "NSArray"};
constexpr std::array<std::string_view, 5> kAllowedClasses{"NSMutableArray", "NSArray", "GVRFilter",
                                                          "GVRSignal", "GVRProject"};

QString quoted(std::string_view text)
{
    return QStringLiteral("“%1”").arg(QString::fromUtf8(text.data(), qsizetype(text.size())));
}

class Decoder {
public:
    Decoder(const BinaryPlist& plist, QString* reason, bool scalarsOnly)
        : plist_(plist), reason_(reason), scalarsOnly_(scalarsOnly)
    {
    }

    std::optional<std::vector<ArchiveRecord>> run(const ArchiveSchema& schema);

private:
    // A reference to an $objects entry: `null` for UID 0.
    struct Ref {
        bool null = true;
        std::uint64_t object = 0; // index in the property list, not the UID
    };

    bool fail(const QString& text)
    {
        if (reason_)
            *reason_ = text;
        return false;
    }

    bool checkHeader();
    bool resolve(std::uint64_t uidObject, Ref& out);
    bool classOf(std::uint64_t dict, std::string& name);
    bool checkDict(std::uint64_t dict);
    // An archived object: a checked dictionary (notAnObject when it is none), put on the
    // decoding path, and its allowed class name.
    bool enterObject(std::uint64_t dict, const QString& notAnObject, std::string& className);
    bool arrayElements(std::uint64_t dict, std::uint64_t maxCount, const QString& what,
                       std::vector<std::uint64_t>& elements);
    bool decodeRecord(std::uint64_t dict, const ArchiveSchema& schema, ArchiveRecord& out);
    bool decodeValue(std::uint64_t object, const ArchiveField& field, ArchiveValue& out);
    bool onPath(std::uint64_t object) const
    {
        return std::find(path_.begin(), path_.end(), object) != path_.end();
    }

    const BinaryPlist& plist_;
    QString* reason_;
    bool scalarsOnly_ = false;
    std::uint64_t objects_ = 0;       // the $objects array
    std::uint64_t objectCount_ = 0;   // its length
    std::vector<std::uint64_t> path_; // objects being decoded, for cycle detection
};

bool Decoder::checkHeader()
{
    const std::uint64_t top = plist_.top();
    if (plist_.type(top) != Type::Dict)
        return fail(QStringLiteral("it is not a keyed archive"));
    const auto archiver = plist_.lookup(top, "$archiver");
    if (!archiver || plist_.type(*archiver) != Type::String || plist_.string(*archiver) != "NSKeyedArchiver")
        return fail(QStringLiteral("it was not written by a keyed archiver"));
    const auto version = plist_.lookup(top, "$version");
    if (!version || plist_.type(*version) != Type::Integer)
        return fail(QStringLiteral("its archive version is missing"));
    if (plist_.integer(*version) != 100000)
        return fail(QStringLiteral("its archive version is %1, not 100000").arg(plist_.integer(*version)));
    const auto objects = plist_.lookup(top, "$objects");
    if (!objects || plist_.type(*objects) != Type::Array || plist_.count(*objects) == 0)
        return fail(QStringLiteral("its object list is missing"));
    objects_ = *objects;
    objectCount_ = plist_.count(objects_);
    const std::uint64_t first = plist_.element(objects_, 0);
    if (plist_.type(first) != Type::String || plist_.string(first) != "$null")
        return fail(QStringLiteral("its object list does not begin with “$null”"));
    return true;
}

bool Decoder::resolve(std::uint64_t uidObject, Ref& out)
{
    if (plist_.type(uidObject) != Type::Uid)
        return fail(QStringLiteral("it holds a value where a reference belongs"));
    const std::uint64_t uid = plist_.uid(uidObject);
    if (uid >= objectCount_)
        return fail(
            QStringLiteral("it refers to object %1 of an archive of %2 objects").arg(uid).arg(objectCount_));
    out.null = uid == 0;
    out.object = plist_.element(objects_, uid);
    if (!out.null && onPath(out.object))
        return fail(QStringLiteral("it contains a reference cycle"));
    return true;
}

bool Decoder::classOf(std::uint64_t dict, std::string& name)
{
    const auto classRef = plist_.lookup(dict, "$class");
    if (!classRef)
        return fail(QStringLiteral("one of its objects has no class"));
    Ref ref;
    if (!resolve(*classRef, ref))
        return false;
    if (ref.null || plist_.type(ref.object) != Type::Dict || plist_.count(ref.object) > kMaxDictKeys)
        return fail(QStringLiteral("one of its objects has a damaged class entry"));
    const auto className = plist_.lookup(ref.object, "$classname");
    if (!className || plist_.type(*className) != Type::String || plist_.count(*className) > kMaxKeyLength)
        return fail(QStringLiteral("one of its objects has a damaged class entry"));
    if (const auto chain = plist_.lookup(ref.object, "$classes")) {
        if (plist_.type(*chain) != Type::Array || plist_.count(*chain) > kMaxDictKeys)
            return fail(QStringLiteral("one of its objects has a damaged class entry"));
        for (std::uint64_t i = 0; i < plist_.count(*chain); ++i) {
            if (plist_.type(plist_.element(*chain, i)) != Type::String)
                return fail(QStringLiteral("one of its objects has a damaged class entry"));
        }
    }
    name = plist_.string(*className);
    if (std::find(kAllowedClasses.begin(), kAllowedClasses.end(), name) == kAllowedClasses.end())
        return fail(QStringLiteral("it contains an object of class %1, which design files never hold")
                        .arg(quoted(name)));
    return true;
}

// Dictionaries we look into are small, with short distinct keys.
bool Decoder::checkDict(std::uint64_t dict)
{
    const std::uint64_t pairs = plist_.count(dict);
    if (pairs > kMaxDictKeys)
        return fail(QStringLiteral("one of its objects has %1 keys, more than any design holds").arg(pairs));
    std::vector<std::string> keys;
    for (std::uint64_t i = 0; i < pairs; ++i) {
        const std::uint64_t key = plist_.dictKey(dict, i);
        if (plist_.count(key) > kMaxKeyLength)
            return fail(
                QStringLiteral("one of its objects has a key longer than %1 characters").arg(kMaxKeyLength));
        keys.push_back(plist_.string(key));
    }
    std::sort(keys.begin(), keys.end());
    const auto twice = std::adjacent_find(keys.begin(), keys.end());
    if (twice != keys.end())
        return fail(QStringLiteral("one of its objects has the key %1 twice").arg(quoted(*twice)));
    return true;
}

bool Decoder::enterObject(std::uint64_t dict, const QString& notAnObject, std::string& className)
{
    if (plist_.type(dict) != Type::Dict)
        return fail(notAnObject);
    if (!checkDict(dict))
        return false;
    path_.push_back(dict);
    return classOf(dict, className);
}

bool Decoder::arrayElements(std::uint64_t dict, std::uint64_t maxCount, const QString& what,
                            std::vector<std::uint64_t>& elements)
{
    std::string name;
    if (!enterObject(dict, QStringLiteral("%1 is not an array").arg(what), name))
        return false;
    if (std::find(kArrayClasses.begin(), kArrayClasses.end(), name) == kArrayClasses.end())
        return fail(QStringLiteral("%1 is a %2, not an array").arg(what, quoted(name)));
    const auto list = plist_.lookup(dict, "NS.objects");
    if (!list || plist_.type(*list) != Type::Array)
        return fail(QStringLiteral("%1 has no element list").arg(what));
    const std::uint64_t count = plist_.count(*list);
    if (count > maxCount)
        return fail(QStringLiteral("%1 holds %2 elements; at most %3 are allowed")
                        .arg(what)
                        .arg(count)
                        .arg(maxCount));
    elements.clear();
    elements.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i) {
        Ref ref;
        if (!resolve(plist_.element(*list, i), ref))
            return false;
        if (ref.null)
            return fail(QStringLiteral("%1 holds an empty element").arg(what));
        elements.push_back(ref.object);
    }
    return true;
}

bool Decoder::decodeValue(std::uint64_t object, const ArchiveField& field, ArchiveValue& out)
{
    // Made only for a message: thousands of list rows decode without one.
    const auto what = [&] { return QStringLiteral("the value under %1").arg(quoted(field.key)); };
    const Type type = plist_.type(object);
    switch (field.kind) {
    case ArchiveKind::String:
        if (type != Type::String)
            return fail(QStringLiteral("%1 is not a text").arg(what()));
        out = plist_.string(object);
        return true;
    case ArchiveKind::Integer:
        if (type != Type::Integer)
            return fail(QStringLiteral("%1 is not a whole number").arg(what()));
        out = plist_.integer(object);
        return true;
    case ArchiveKind::Real:
        if (type != Type::Real)
            return fail(QStringLiteral("%1 is not a real number").arg(what()));
        out = plist_.real(object);
        return true;
    case ArchiveKind::IntegerArray:
    case ArchiveKind::RealArray: {
        std::vector<std::uint64_t> elements;
        const std::size_t depth = path_.size();
        if (!arrayElements(object, field.maxCount, what(), elements))
            return false;
        path_.resize(depth);
        const bool integers = field.kind == ArchiveKind::IntegerArray;
        const Type wanted = integers ? Type::Integer : Type::Real;
        for (std::uint64_t element : elements) {
            if (plist_.type(element) != wanted)
                return fail(QStringLiteral("%1 holds an element that is not a %2")
                                .arg(what(), integers ? QStringLiteral("whole number")
                                                      : QStringLiteral("real number")));
        }
        if (integers) {
            std::vector<std::int64_t> values(elements.size());
            std::transform(elements.begin(), elements.end(), values.begin(),
                           [&](std::uint64_t e) { return plist_.integer(e); });
            out = std::move(values);
        } else {
            std::vector<double> values(elements.size());
            std::transform(elements.begin(), elements.end(), values.begin(),
                           [&](std::uint64_t e) { return plist_.real(e); });
            out = std::move(values);
        }
        return true;
    }
    }
    return false;
}

bool Decoder::decodeRecord(std::uint64_t dict, const ArchiveSchema& schema, ArchiveRecord& out)
{
    std::string name;
    if (!enterObject(dict, QStringLiteral("its root array holds something other than a design"), name))
        return false;
    if (name != schema.className)
        return fail(QStringLiteral("it holds a %1 record where a %2 belongs")
                        .arg(quoted(name), quoted(schema.className)));
    out.assign(schema.fields.size(), std::monostate{});
    for (std::size_t i = 0; i < schema.fields.size(); ++i) {
        const ArchiveField& field = schema.fields[i];
        const bool isArray = field.kind == ArchiveKind::IntegerArray || field.kind == ArchiveKind::RealArray;
        if (scalarsOnly_ && isArray)
            continue;
        // A key that is missing decodes as absent, as decodeObjectForKey: answers nil.
        const auto stored = plist_.lookup(dict, field.key);
        if (!stored)
            continue;
        Ref ref;
        if (!resolve(*stored, ref))
            return false;
        if (!ref.null && !decodeValue(ref.object, field, out[i]))
            return false;
    }
    path_.pop_back();
    return true;
}

std::optional<std::vector<ArchiveRecord>> Decoder::run(const ArchiveSchema& schema)
{
    if (!checkHeader())
        return std::nullopt;
    const auto top = plist_.lookup(plist_.top(), "$top");
    if (!top || plist_.type(*top) != Type::Dict) {
        fail(QStringLiteral("its root object is missing"));
        return std::nullopt;
    }
    const auto rootUid = plist_.lookup(*top, "root");
    Ref root;
    if (!rootUid) {
        fail(QStringLiteral("its root object is missing"));
        return std::nullopt;
    }
    if (!resolve(*rootUid, root))
        return std::nullopt;
    if (root.null) {
        fail(QStringLiteral("its root object is missing"));
        return std::nullopt;
    }
    std::vector<std::uint64_t> elements;
    if (!arrayElements(root.object, kMaxArchiveRecords, QStringLiteral("its root object"), elements))
        return std::nullopt;
    if (elements.empty()) {
        fail(QStringLiteral("it holds no design"));
        return std::nullopt;
    }
    std::vector<ArchiveRecord> records(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (!decodeRecord(elements[i], schema, records[i]))
            return std::nullopt;
    }
    return records;
}

} // namespace

std::optional<std::vector<ArchiveRecord>>
decodeKeyedArchive(const QByteArray& bytes, const ArchiveSchema& schema, QString* reason, ArchiveReach reach)
{
    const bool scalarsOnly = reach == ArchiveReach::ScalarsOnly;
    const auto plist = BinaryPlist::parse(
        bytes, reason, scalarsOnly ? BinaryPlist::Scope::OnDemand : BinaryPlist::Scope::Whole);
    if (!plist)
        return std::nullopt;
    Decoder decoder(*plist, reason, scalarsOnly);
    auto records = decoder.run(schema);
    // A damaged object met on the way decides, whatever the decoder made of
    // the stand-in it was given.
    if (!plist->refusal().isEmpty()) {
        if (reason)
            *reason = plist->refusal();
        return std::nullopt;
    }
    return records;
}
