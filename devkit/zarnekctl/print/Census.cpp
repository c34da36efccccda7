#include "zarnekctl/print/Census.h"

#include "common/text.h"
#include "zarnekctl/print/Health.h"

#include <algorithm>

namespace zarnekctl
{

Census censusOf(const System& system)
{
    Census census;
    census.counts = devkit::counted(system.count(ObjectKind::Controller), "controller") + ", " +
                    devkit::counted(system.count(ObjectKind::PhysicalDisk), "disk") + ", " +
                    devkit::counted(system.count(ObjectKind::VirtualDisk), "virtual disk");
    for (const Node& node : system.nodes) {
        if (node.incomplete)
            continue;
        const Health health = healthOf(node.object);
        census.unknown += health == Health::Unknown ? 1 : 0;
        if (health == Health::Warning || health == Health::Critical)
            census.inAttention.push_back(&node.object);
    }
    census.toldWhole = !system.nodes.empty() && system.refusedCalls.empty() &&
                       std::none_of(system.nodes.begin(), system.nodes.end(),
                                    [](const Node& node) { return node.incomplete; });
    return census;
}

bool isLoose(const Node& node)
{
    const bool placed = node.object.kind() == ObjectKind::Controller || node.parent >= 0;
    return !placed || node.incomplete;
}

std::string looseText(const Node& node)
{
    const std::string name = node.object.fullName();
    return node.incomplete ? name + ": arrived without an identity, with " +
                                 devkit::counted(node.object.properties.size(), "value")
                           : name;
}

} // namespace zarnekctl
