#include "zarnekctl/print/TreePrinter.h"

#include "common/text.h"
#include "zarnekctl/print/Census.h"
#include "zarnekctl/print/Columns.h"
#include "zarnekctl/print/PropertyTable.h"
#include <sdo.h>

#include <algorithm>

namespace zarnekctl
{

namespace
{

struct Glyphs {
    const char* fork;
    const char* corner;
    const char* trunk;
    const char* blank;
};

Glyphs glyphsFor(const Style& style)
{
    return style.utf8 ? Glyphs{"├─ ", "└─ ", "│  ", "   "} : Glyphs{"|- ", "`- ", "|  ", "   "};
}

// "0-3, 7" for 0, 1, 2, 3, 7.
std::string rangeText(std::vector<std::uint64_t> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    std::string text;
    for (std::size_t first = 0; first < numbers.size();) {
        std::size_t last = first;
        while (last + 1 < numbers.size() && numbers[last + 1] <= numbers[last] + 1)
            ++last;
        text += (text.empty() ? "" : ", ") + std::to_string(numbers[first]);
        if (numbers[last] != numbers[first])
            text += "-" + std::to_string(numbers[last]);
        first = last + 1;
    }
    return text;
}

// Links to disks as ranges of slots, links to anything else by name. The plug-in links a virtual disk with
// every disk of its controller, which says nothing about members.
std::string linkText(const System& system, const Node& node)
{
    const auto disks = system.below(node.parent, ObjectKind::PhysicalDisk);
    auto links = node.links;
    std::sort(links.begin(), links.end());
    if (!disks.empty() && links == disks)
        return "linked with all disks of the controller";
    std::vector<std::uint64_t> slots;
    std::string others;
    for (const std::size_t link : node.links) {
        const Object& target = system.nodes.at(link).object;
        const auto slot = target.number(SSPROP_SLOTNUM_U32);
        if (target.kind() == ObjectKind::PhysicalDisk && slot)
            slots.push_back(*slot);
        else
            others += (others.empty() ? "" : ", ") + target.shortName();
    }
    std::string text;
    if (!slots.empty())
        text = (slots.size() == 1 ? "disk " : "disks ") + rangeText(slots);
    if (!others.empty())
        text += (text.empty() ? "" : ", ") + others;
    return text.empty() ? "no links" : "linked with " + text;
}

// A stripe of 0 comes from a vendor who tells none: the tree leaves it out.
std::string stripeCell(const Object& disk, const Style& style)
{
    return disk.number(SSPROP_STRIPEBLOCKSIZE_U32).value_or(0) == 0
               ? ""
               : "stripe " + cell(disk, SSPROP_STRIPEBLOCKSIZE_U32, style);
}

// Those that begin the line of any disk.
std::vector<Columns::Cell> conditionCells(const Object& disk, const Style& style)
{
    const Health health = healthOf(disk);
    return {{disk.shortName()},
            {cell(disk, SSPROP_STATE_U32, style), health},
            {cell(disk, SSPROP_STATUS_U32, style), health},
            {cell(disk, SSPROP_SIZE_U64, style), true}};
}

std::vector<Columns::Cell> diskCells(const Object& disk, const Style& style)
{
    const auto text = [&](unsigned int property) { return cell(disk, property, style); };
    auto cells = conditionCells(disk, style);
    cells.insert(cells.end(), {{text(SSPROP_MEDIA_U32)},
                               {text(SSPROP_BUSPROTOCOL_U32)},
                               {text(SSPROP_NEGOTIATEDSPEED_U32), true},
                               {text(SSPROP_MODEL_ASTRING)},
                               {text(SSPROP_SERIALNUM_ASTRING)}});
    return cells;
}

std::vector<Columns::Cell> virtualDiskCells(const System& system, const Node& node, const Style& style)
{
    const Object& disk = node.object;
    const auto text = [&](unsigned int property) { return cell(disk, property, style); };
    auto cells = conditionCells(disk, style);
    cells.insert(cells.end(), {{text(SSPROP_RAIDMODE_U32)},
                               {text(SSPROP_NAME_ASTRING)},
                               {text(SSPROP_WRITEPOLICY_U32)},
                               {stripeCell(disk, style)},
                               {linkText(system, node)}});
    return cells;
}

} // namespace

void TreePrinter::print(const System& system, std::ostream& out) const
{
    for (const std::size_t controller : system.below(-1, ObjectKind::Controller))
        printController(system, controller, out);
    printLoose(system, out);
    printCensus(system, out);
}

void TreePrinter::printController(const System& system, std::size_t index, std::ostream& out) const
{
    const Object& controller = system.nodes[index].object;
    const Health health = healthOf(controller);
    out << m_style.bold(controller.shortName()) << "  " << cell(controller, SSPROP_NAME_ASTRING, m_style)
        << "  " << m_style.coloured(cell(controller, SSPROP_STATE_U32, m_style), health) << "  "
        << m_style.coloured(cell(controller, SSPROP_STATUS_U32, m_style), health);
    const char* gap = "  ";
    for (const unsigned int id : controllerFacts(controller)) {
        const std::string label = id == SSPROP_SLOTID_U32 ? "slot" : propertyLabel(id);
        out << gap << label << ' ' << cell(controller, id, m_style);
        gap = m_style.separator();
    }
    out << '\n';

    const int parent = static_cast<int>(index);
    const auto virtualDisks = system.below(parent, ObjectKind::VirtualDisk);
    printGroup(system, system.below(parent, ObjectKind::PhysicalDisk), "disk", virtualDisks.empty(), out);
    printGroup(system, virtualDisks, "virtual disk", true, out);
}

void TreePrinter::printGroup(const System& system, const std::vector<std::size_t>& members,
                             const std::string& title, bool last, std::ostream& out) const
{
    if (members.empty())
        return;
    const Glyphs glyphs = glyphsFor(m_style);
    out << (last ? glyphs.corner : glyphs.fork) << devkit::counted(members.size(), title) << '\n';
    Columns columns;
    for (const std::size_t member : members) {
        const Node& node = system.nodes[member];
        const std::string prefix = std::string(last ? glyphs.blank : glyphs.trunk) +
                                   (member == members.back() ? glyphs.corner : glyphs.fork);
        columns.add(prefix, node.object.kind() == ObjectKind::VirtualDisk
                                ? virtualDiskCells(system, node, m_style)
                                : diskCells(node.object, m_style));
    }
    columns.print(out, m_style);
}

void TreePrinter::printLoose(const System& system, std::ostream& out) const
{
    const char* title = "outside the tree\n";
    for (const Node& node : system.nodes) {
        if (!isLoose(node))
            continue;
        out << title << "   " << looseText(node) << '\n';
        title = "";
    }
}

void TreePrinter::printCensus(const System& system, std::ostream& out) const
{
    const Census census = censusOf(system);
    if (!system.nodes.empty())
        out << '\n';
    out << census.counts;
    if (census.unknown != 0)
        out << "; " << census.unknown << " of unknown status";
    if (!census.inAttention.empty())
        out << "; need attention:";
    else if (census.toldWhole)
        out << "; none reports trouble";
    out << '\n';
    Columns columns;
    for (const Object* object : census.inAttention) {
        const Health health = healthOf(*object);
        columns.add("   ", {{object->fullName()},
                            {cell(*object, SSPROP_STATE_U32, m_style), health},
                            {cell(*object, SSPROP_STATUS_U32, m_style), health}});
    }
    columns.print(out, m_style);
}

} // namespace zarnekctl
