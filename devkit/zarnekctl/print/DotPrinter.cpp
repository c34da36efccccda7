#include "zarnekctl/print/DotPrinter.h"

#include <sdo.h>

namespace zarnekctl
{

namespace
{

// A graph file is UTF-8 by its format, whatever the terminal is.
constexpr Style GRAPH_STYLE{true, false};

std::string quoted(const std::string& text)
{
    std::string out;
    for (const char character : text) {
        if (character == '"' || character == '\\')
            out += '\\';
        out += character;
    }
    return out;
}

std::string label(const Object& object)
{
    std::string text = quoted(object.shortName());
    const auto line = [&](std::initializer_list<unsigned int> properties) {
        std::string words;
        for (const unsigned int property : properties) {
            const std::string value = cell(object, property, GRAPH_STYLE);
            if (value != "-")
                words += (words.empty() ? "" : " ") + quoted(value);
        }
        if (!words.empty())
            text += "\\n" + words;
    };
    line({SSPROP_NAME_ASTRING, SSPROP_MODEL_ASTRING});
    line({SSPROP_RAIDMODE_U32, SSPROP_SIZE_U64, SSPROP_BUSPROTOCOL_U32, SSPROP_MEDIA_U32});
    line({SSPROP_STATE_U32, SSPROP_STATUS_U32});
    return text;
}

const char* shape(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Controller:
        return "component";
    case ObjectKind::PhysicalDisk:
        return "cylinder";
    case ObjectKind::VirtualDisk:
        return "box3d";
    case ObjectKind::Other:
        break;
    }
    return "box";
}

const char* colour(const Node& node)
{
    if (node.incomplete)
        return "gray90";
    switch (healthOf(node.object)) {
    case Health::Good:
        return "palegreen";
    case Health::Warning:
        return "khaki";
    case Health::Critical:
        return "salmon";
    case Health::Unknown:
        break;
    }
    return "gray90";
}

} // namespace

void DotPrinter::print(const System& system, std::ostream& out) const
{
    out << "digraph storage {\n"
        << "  rankdir=LR;\n"
        << "  node [style=filled, fontname=\"sans-serif\", fontsize=10];\n";
    for (std::size_t index = 0; index < system.nodes.size(); ++index) {
        const Node& node = system.nodes[index];
        out << "  n" << index << " [shape=" << shape(node.object.kind()) << ", fillcolor=" << colour(node)
            << ", label=\"" << label(node.object) << "\"];\n";
    }
    for (std::size_t index = 0; index < system.nodes.size(); ++index) {
        const Node& node = system.nodes[index];
        if (node.parent >= 0)
            out << "  n" << node.parent << " -> n" << index << ";\n";
        for (const std::size_t link : node.links)
            out << "  n" << index << " -> n" << link
                << " [style=dashed, arrowhead=none, constraint=false];\n";
    }
    out << "}\n";
}

} // namespace zarnekctl
