#include "zarnekctl/print/JsonPrinter.h"

#include "common/Utf8.h"
#include "zarnekctl/print/JsonValues.h"

namespace zarnekctl
{

namespace
{

Json nodeJson(const System& system, const Node& node)
{
    const auto identityOf = [&system](std::size_t index) { return system.nodes.at(index).object.identity; };
    Json json;
    json["kind"] = jsonKind(node.object.kind());
    json["name"] = node.object.fullName();
    json["identity"] = node.incomplete ? Json(nullptr) : Json(node.object.identity);
    json["parent"] =
        node.parent < 0 ? Json(nullptr) : Json(identityOf(static_cast<std::size_t>(node.parent)));
    json["links"] = Json::array();
    for (const std::size_t link : node.links)
        json["links"].push_back(identityOf(link));
    json["insertions"] = node.insertions;
    json["incomplete"] = node.incomplete;
    json["properties"] = propertiesJson(node.object);
    return json;
}

} // namespace

void JsonPrinter::print(const System& system, std::ostream& out) const
{
    Json json;
    json["format"] = "zarnekctl-discovery";
    json["format_version"] = JSON_FORMAT_VERSION;
    json["source"] = devkit::escaped(system.source);
    json["controllers_found"] = system.controllersFound;
    json["objects"] = Json::array();
    for (const Node& node : system.nodes)
        json["objects"].push_back(nodeJson(system, node));
    out << json.dump(2) << '\n';
}

} // namespace zarnekctl
