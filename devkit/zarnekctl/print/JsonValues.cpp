#include "zarnekctl/print/JsonValues.h"

#include "common/Utf8.h"
#include "common/text.h"
#include "zarnekctl/print/PropertyTable.h"

namespace zarnekctl
{

namespace
{

// Beyond this, readers that keep numbers as doubles lose digits.
constexpr std::uint64_t EXACT_LIMIT = 1ULL << 53;

struct ValueWriter {
    Json& out;

    void operator()(std::uint64_t number) const
    {
        out["value"] = number;
        if (number > EXACT_LIMIT)
            out["text"] = std::to_string(number);
    }
    void operator()(std::int64_t number) const { out["value"] = number; }
    void operator()(const std::string& text) const
    {
        out["value"] = devkit::escaped(text);
        if (!devkit::isUtf8(text))
            out["bytes"] = devkit::hex(text);
    }
    void operator()(const std::vector<std::uint32_t>& ids) const { out["value"] = ids; }
    void operator()(const Bytes& bytes) const
    {
        out["value"] = nullptr;
        out["bytes"] = devkit::hex(bytes.data);
    }
    void operator()(const Nested& nested) const { out["value"] = propertiesJson(*nested.object); }
};

} // namespace

const char* jsonKind(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Controller:
        return "controller";
    case ObjectKind::PhysicalDisk:
        return "physical_disk";
    case ObjectKind::VirtualDisk:
        return "virtual_disk";
    case ObjectKind::Other:
        break;
    }
    return "other";
}

Json propertyJson(const Property& property, ObjectKind kind)
{
    Json json;
    json["id"] = property.id;
    json["type"] = property.type;
    std::visit(ValueWriter{json}, property.value);
    if (hasWords(property, kind))
        json["words"] = describe(property, kind);
    return json;
}

Json propertiesJson(const Object& object)
{
    Json json = Json::object();
    for (const Property& property : object.properties)
        json[propertyName(property.id)] = propertyJson(property, object.kind());
    return json;
}

} // namespace zarnekctl
