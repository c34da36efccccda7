#include "zarnekctl/host/System.h"

#include "ral/ral_inspect.h"
#include "zarnekctl/host/SdoReader.h"

#include <algorithm>
#include <memory>

namespace zarnekctl
{

std::vector<std::size_t> System::below(int parent, ObjectKind kind) const
{
    std::vector<std::size_t> found;
    for (std::size_t index = 0; index < nodes.size(); ++index) {
        const Node& node = nodes[index];
        if (!node.incomplete && node.parent == parent && node.object.kind() == kind)
            found.push_back(index);
    }
    return found;
}

std::size_t System::count(ObjectKind kind) const
{
    return static_cast<std::size_t>(std::count_if(nodes.begin(), nodes.end(), [kind](const Node& node) {
        return !node.incomplete && node.object.kind() == kind;
    }));
}

System readSystem()
{
    const std::unique_ptr<ral_snapshot, void (*)(ral_snapshot*)> snapshot(ral_snapshot_create(),
                                                                          ral_snapshot_destroy);
    System system;
    const unsigned int count = ral_snapshot_count(snapshot.get());
    for (unsigned int index = 0; index < count; ++index) {
        Node node;
        node.object = readObject(ral_snapshot_object(snapshot.get(), index));
        node.parent = ral_snapshot_parent(snapshot.get(), index);
        const unsigned int links = ral_snapshot_link_count(snapshot.get(), index);
        for (unsigned int link = 0; link < links; ++link) {
            const int target = ral_snapshot_link(snapshot.get(), index, link);
            if (target >= 0)
                node.links.push_back(static_cast<std::size_t>(target));
        }
        node.insertions = ral_snapshot_insertions(snapshot.get(), index);
        node.incomplete = ral_snapshot_incomplete(snapshot.get(), index) != 0;
        system.nodes.push_back(std::move(node));
    }
    return system;
}

} // namespace zarnekctl
