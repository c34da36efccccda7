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

constexpr int INDENT = 2;

// As it stands two levels deep in a document.
std::string dumpBelow(const Json& json)
{
    const std::string text = json.dump(INDENT);
    std::string lines;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = text.find('\n', begin);
        lines += "\n    ";
        lines.append(text, begin, end - begin);
    }
    return lines;
}

} // namespace

void JsonPrinter::print(const System& system, std::ostream& out) const
{
    Json json;
    json["format"] = "zarnekctl-discovery";
    json["format_version"] = JSON_FORMAT_VERSION;
    json["source"] = devkit::escaped(system.source);
    json["controllers_found"] = system.controllersFound;
    const std::string head = json.dump(INDENT);
    // Object by object: a whole document takes many times the room of what it tells of.
    out << head.substr(0, head.rfind('\n')) << ",\n  \"objects\": [";
    const char* gap = "";
    for (const Node& node : system.nodes) {
        out << gap << dumpBelow(nodeJson(system, node));
        gap = ",";
    }
    out << (system.nodes.empty() ? "]" : "\n  ]") << "\n}\n";
}

} // namespace zarnekctl
