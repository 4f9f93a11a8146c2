// NSKeyedArchiver-compatible writer on libplist.
//
// Layout of what the platform's archiver writes for an array of records:
//   { "$version": 100000, "$archiver": "NSKeyedArchiver",
//     "$top": { "root": UID 1 },
//     "$objects": [ "$null", {array: "NS.objects", "$class"}, {record keys.., "$class"},
//                   numbers and strings, class entries.. ] }
// Numbers and strings sit directly in $objects and are referred to by UID;
// equal ones are written once, as the archiver's uniquing does.
#include "archive/keyed_archive_writer.h"

#include "archive/bplist_reals.h"

#include <bit>
#include <map>
#include <memory>
#include <utility>

#include <QStringDecoder>

#include <plist/plist.h>

namespace {

struct PlistDeleter {
    void operator()(void* node) const { plist_free(static_cast<plist_t>(node)); }
};
using PlistPtr = std::unique_ptr<void, PlistDeleter>;

bool isStorableText(const std::string& text)
{
    if (text.find('\0') != std::string::npos)
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder.decode(QByteArrayView(text.data(), qsizetype(text.size())));
    return !decoder.hasError();
}

class Archiver {
public:
    Archiver() { objects_.emplace_back(plist_new_string("$null")); }

    std::uint64_t reserve()
    {
        objects_.emplace_back(nullptr);
        return objects_.size() - 1;
    }

    void place(std::uint64_t uid, plist_t node) { objects_[uid].reset(node); }

    std::uint64_t append(plist_t node)
    {
        objects_.emplace_back(node);
        return objects_.size() - 1;
    }

    std::uint64_t string(const std::string& text)
    {
        const auto found = strings_.find(text);
        if (found != strings_.end())
            return found->second;
        const std::uint64_t uid = append(plist_new_string(text.c_str()));
        strings_.emplace(text, uid);
        return uid;
    }

    // Integers and reals are kept apart; reals are told apart by their bits,
    // so 0.0 and -0.0 stay two objects.
    std::uint64_t integer(std::int64_t value)
    {
        return number({0, std::uint64_t(value)}, [&] { return plist_new_uint(std::uint64_t(value)); });
    }

    std::uint64_t real(double value)
    {
        return number({1, std::bit_cast<std::uint64_t>(value)}, [&] { return plist_new_real(value); });
    }

    std::uint64_t classEntry(const char* name)
    {
        const std::string key = name;
        const auto found = classes_.find(key);
        if (found != classes_.end())
            return found->second;
        plist_t entry = plist_new_dict();
        plist_t chain = plist_new_array();
        plist_array_append_item(chain, plist_new_string(name));
        if (key == "NSMutableArray")
            plist_array_append_item(chain, plist_new_string("NSArray"));
        plist_array_append_item(chain, plist_new_string("NSObject"));
        plist_dict_set_item(entry, "$classname", plist_new_string(name));
        plist_dict_set_item(entry, "$classes", chain);
        const std::uint64_t uid = append(entry);
        classes_.emplace(key, uid);
        return uid;
    }

    template <typename T, typename Encode> std::uint64_t array(const std::vector<T>& values, Encode encode)
    {
        const std::uint64_t uid = reserve();
        plist_t refs = plist_new_array();
        for (const T& value : values)
            plist_array_append_item(refs, plist_new_uid(encode(value)));
        plist_t dict = plist_new_dict();
        plist_dict_set_item(dict, "NS.objects", refs);
        plist_dict_set_item(dict, "$class", plist_new_uid(classEntry("NSMutableArray")));
        place(uid, dict);
        return uid;
    }

    PlistPtr finish(std::uint64_t rootUid)
    {
        plist_t root = plist_new_dict();
        plist_dict_set_item(root, "$version", plist_new_uint(100000));
        plist_dict_set_item(root, "$archiver", plist_new_string("NSKeyedArchiver"));
        plist_t top = plist_new_dict();
        plist_dict_set_item(top, "root", plist_new_uid(rootUid));
        plist_dict_set_item(root, "$top", top);
        plist_t objects = plist_new_array();
        for (PlistPtr& object : objects_)
            plist_array_append_item(objects, object.release());
        objects_.clear();
        plist_dict_set_item(root, "$objects", objects);
        return PlistPtr(root);
    }

private:
    template <typename Make> std::uint64_t number(std::pair<int, std::uint64_t> key, Make make)
    {
        const auto found = numbers_.find(key);
        if (found != numbers_.end())
            return found->second;
        const std::uint64_t uid = append(make());
        numbers_.emplace(key, uid);
        return uid;
    }

    std::vector<PlistPtr> objects_;
    std::map<std::string, std::uint64_t> strings_;
    std::map<std::pair<int, std::uint64_t>, std::uint64_t> numbers_;
    std::map<std::string, std::uint64_t> classes_;
};

bool kindMatches(ArchiveKind kind, const ArchiveValue& value)
{
    switch (kind) {
    case ArchiveKind::String:
        return std::holds_alternative<std::string>(value);
    case ArchiveKind::Integer:
        return std::holds_alternative<std::int64_t>(value);
    case ArchiveKind::Real:
        return std::holds_alternative<double>(value);
    case ArchiveKind::IntegerArray:
        return std::holds_alternative<std::vector<std::int64_t>>(value);
    case ArchiveKind::RealArray:
        return std::holds_alternative<std::vector<double>>(value);
    }
    return false;
}

} // namespace

std::optional<QByteArray> encodeKeyedArchive(const ArchiveSchema& schema,
                                             const std::vector<ArchiveRecord>& records, QString* reason)
{
    const auto fail = [&](const QString& text) {
        if (reason)
            *reason = text;
        return std::nullopt;
    };
    for (const ArchiveRecord& record : records) {
        if (record.size() != schema.fields.size())
            return fail(QStringLiteral("a %1 record must have %2 values")
                            .arg(QLatin1String(schema.className))
                            .arg(schema.fields.size()));
        for (std::size_t i = 0; i < record.size(); ++i) {
            const ArchiveField& field = schema.fields[i];
            if (!std::holds_alternative<std::monostate>(record[i]) && !kindMatches(field.kind, record[i]))
                return fail(
                    QStringLiteral("the value for “%1” has the wrong type").arg(QLatin1String(field.key)));
            const auto* text = std::get_if<std::string>(&record[i]);
            if (text && !isStorableText(*text))
                return fail(QStringLiteral("the text for “%1” is not valid UTF-8 or holds a NUL character")
                                .arg(QLatin1String(field.key)));
        }
    }

    Archiver archiver;
    const std::uint64_t rootUid = archiver.reserve();
    std::vector<std::uint64_t> recordUids;
    for (const ArchiveRecord& record : records) {
        const std::uint64_t recordUid = archiver.reserve();
        recordUids.push_back(recordUid);
        plist_t dict = plist_new_dict();
        for (std::size_t i = 0; i < record.size(); ++i) {
            const ArchiveValue& value = record[i];
            if (schema.fields[i].omittedWhenAbsent && std::holds_alternative<std::monostate>(value))
                continue;
            std::uint64_t uid = 0; // $null
            if (const auto* text = std::get_if<std::string>(&value))
                uid = archiver.string(*text);
            else if (const auto* integer = std::get_if<std::int64_t>(&value))
                uid = archiver.integer(*integer);
            else if (const auto* real = std::get_if<double>(&value))
                uid = archiver.real(*real);
            else if (const auto* integers = std::get_if<std::vector<std::int64_t>>(&value))
                uid = archiver.array(*integers, [&](std::int64_t v) { return archiver.integer(v); });
            else if (const auto* reals = std::get_if<std::vector<double>>(&value))
                uid = archiver.array(*reals, [&](double v) { return archiver.real(v); });
            plist_dict_set_item(dict, schema.fields[i].key, plist_new_uid(uid));
        }
        plist_dict_set_item(dict, "$class", plist_new_uid(archiver.classEntry(schema.className)));
        archiver.place(recordUid, dict);
    }
    plist_t rootRefs = plist_new_array();
    for (std::uint64_t uid : recordUids)
        plist_array_append_item(rootRefs, plist_new_uid(uid));
    plist_t rootArray = plist_new_dict();
    plist_dict_set_item(rootArray, "NS.objects", rootRefs);
    plist_dict_set_item(rootArray, "$class", plist_new_uid(archiver.classEntry("NSMutableArray")));
    archiver.place(rootUid, rootArray);

    const PlistPtr root = archiver.finish(rootUid);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(static_cast<plist_t>(root.get()), &bytes, &length);
    if (!bytes || length == 0) {
        plist_to_bin_free(bytes);
        return fail(QStringLiteral("the property list writer produced nothing"));
    }
    const QByteArray packed(bytes, qsizetype(length));
    plist_to_bin_free(bytes);
    // Doubles stay 8-byte reals, as the platform's archiver writes them.
    std::optional<QByteArray> out = widenBinaryPlistReals(packed);
    if (!out)
        return fail(QStringLiteral("the property list writer produced an unexpected layout"));
    return out;
}
