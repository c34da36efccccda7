#include "zarnekctl/print/TablePrinter.h"

#include "zarnekctl/print/Census.h"
#include <sdo.h>

namespace zarnekctl
{

namespace
{

// A column has one property for each kind of object; SSPROP_NONE leaves the cell empty.
struct Column {
    const char* title;
    unsigned int controller;
    unsigned int physicalDisk;
    unsigned int virtualDisk;
    bool alignRight;
};

constexpr Column COLUMNS[] = {
    {"SIZE", SSPROP_NONE, SSPROP_SIZE_U64, SSPROP_SIZE_U64, true},
    {"STATE", SSPROP_STATE_U32, SSPROP_STATE_U32, SSPROP_STATE_U32, false},
    {"STATUS", SSPROP_STATUS_U32, SSPROP_STATUS_U32, SSPROP_STATUS_U32, false},
    {"RAID", SSPROP_NONE, SSPROP_NONE, SSPROP_RAIDMODE_U32, false},
    {"MEDIA", SSPROP_NONE, SSPROP_MEDIA_U32, SSPROP_MEDIA_U32, false},
    {"BUS", SSPROP_BUSPROTOCOL_U32, SSPROP_BUSPROTOCOL_U32, SSPROP_BUSPROTOCOL_U32, false},
    {"SPEED", SSPROP_NONE, SSPROP_NEGOTIATEDSPEED_U32, SSPROP_NONE, true},
    {"LABEL", SSPROP_NAME_ASTRING, SSPROP_MODEL_ASTRING, SSPROP_NAME_ASTRING, false},
    {"SERIAL", SSPROP_NONE, SSPROP_SERIALNUM_ASTRING, SSPROP_NONE, false},
    {"REVISION", SSPROP_FWVERSION_ASTRING, SSPROP_REVISION_ASTRING, SSPROP_NONE, false},
};

unsigned int propertyFor(const Column& column, ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Controller:
        return column.controller;
    case ObjectKind::PhysicalDisk:
        return column.physicalDisk;
    case ObjectKind::VirtualDisk:
        return column.virtualDisk;
    case ObjectKind::Other:
        break;
    }
    return SSPROP_NONE;
}

} // namespace

void TablePrinter::addRow(const std::string& graph, const Object& object, Columns& columns) const
{
    std::vector<Columns::Cell> cells{{graph + object.shortName()}};
    for (const Column& column : COLUMNS) {
        const unsigned int property = propertyFor(column, object.kind());
        const std::string text = property == SSPROP_NONE ? "" : cell(object, property, m_style);
        if (property == SSPROP_STATE_U32 || property == SSPROP_STATUS_U32)
            cells.emplace_back(text, healthOf(object));
        else
            cells.emplace_back(text, column.alignRight);
    }
    columns.add("", std::move(cells));
}

void TablePrinter::print(const System& system, std::ostream& out) const
{
    Columns columns;
    std::vector<Columns::Cell> head{{"NAME"}};
    for (const Column& column : COLUMNS)
        head.emplace_back(column.title, column.alignRight);
    columns.add("", std::move(head));

    const std::string fork = m_style.utf8 ? "├─" : "|-";
    const std::string corner = m_style.utf8 ? "└─" : "`-";
    for (const std::size_t controller : system.below(-1, ObjectKind::Controller)) {
        addRow("", system.nodes[controller].object, columns);
        auto children = system.below(static_cast<int>(controller), ObjectKind::PhysicalDisk);
        const auto virtualDisks = system.below(static_cast<int>(controller), ObjectKind::VirtualDisk);
        children.insert(children.end(), virtualDisks.begin(), virtualDisks.end());
        for (const std::size_t child : children)
            addRow(child == children.back() ? corner : fork, system.nodes[child].object, columns);
    }
    for (const Node& node : system.nodes)
        if (isLoose(node))
            addRow(node.incomplete ? "? " : "", node.object, columns);
    columns.print(out, m_style);
}

} // namespace zarnekctl
