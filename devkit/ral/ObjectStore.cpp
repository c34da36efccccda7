#include "ral/ObjectStore.h"

#include <algorithm>

namespace ral
{

namespace
{

constexpr std::size_t MOST_INCOMPLETE = 1000; // kept, so that a host that runs for months stays small

} // namespace

bool ObjectStore::insert(const Sdo& object, const void* parent, std::vector<Change>& changes)
{
    if (!object)
        return false;
    std::optional<Identity> identity = identityOf(object.get());
    changes.reserve(changes.size() + 1);
    if (!identity) {
        m_incomplete.push_back(object);
        if (m_incomplete.size() > MOST_INCOMPLETE)
            m_incomplete.pop_front();
        ++m_incompleteCount;
        changes.push_back({RAL_CHANGE_INCOMPLETE, nullptr, object});
        return true;
    }

    Node* const above = find(parent);
    if (parent != nullptr && above == nullptr)
        return false;
    const auto known = m_index.find(identity->text);
    if (known == m_index.end()) {
        std::list<Node> added;
        added.push_back({std::move(*identity), object, above, {}, 1});
        m_index.emplace(added.back().identity.text, &added.back());
        m_nodes.splice(m_nodes.end(), added);
        changes.push_back({RAL_CHANGE_INSERTED, nullptr, object});
        return true;
    }

    Node& node = *known->second;
    for (const Node* step = above; step != nullptr; step = step->parent)
        if (step == &node)
            return false;
    if (above != nullptr)
        node.parent = above;
    changes.push_back({RAL_CHANGE_UPDATED, node.object, object});
    node.object = object;
    ++node.insertions;
    return true;
}

bool ObjectStore::remove(const void* object, std::vector<Change>& changes)
{
    Node* const node = find(object);
    if (node == nullptr)
        return false;
    std::vector<Node*> subtree;
    collect(node, subtree);
    changes.reserve(changes.size() + subtree.size());
    for (Node* doomed : subtree) {
        changes.push_back({RAL_CHANGE_DELETED, doomed->object, nullptr});
        for (Node& other : m_nodes)
            other.lower.erase(std::remove(other.lower.begin(), other.lower.end(), doomed), other.lower.end());
        m_index.erase(doomed->identity.text);
        m_nodes.remove_if([doomed](const Node& other) { return &other == doomed; });
    }
    return true;
}

bool ObjectStore::link(const void* upper, const void* lower)
{
    Node* const above = find(upper);
    Node* const below = find(lower);
    if (above == nullptr || below == nullptr || above == below)
        return false;
    if (!isLinked(*above, *below))
        above->lower.push_back(below);
    return true;
}

bool ObjectStore::listAssociated(const void* object, unsigned int type, std::vector<Sdo>& found) const
{
    const Node* const centre = find(object);
    if (object != nullptr && centre == nullptr)
        return false;
    for (const Node& node : m_nodes) {
        const bool linked = centre != nullptr && (isLinked(*centre, node) || isLinked(node, *centre));
        if (node.identity.type == type && (node.parent == centre || linked))
            found.push_back(node.object);
    }
    return true;
}

std::vector<SnapshotEntry> ObjectStore::snapshot() const
{
    std::unordered_map<const Node*, int> indexes;
    for (const Node& node : m_nodes)
        indexes.emplace(&node, static_cast<int>(indexes.size()));

    std::vector<SnapshotEntry> entries;
    for (const Node& node : m_nodes) {
        const int parent = node.parent == nullptr ? -1 : indexes.at(node.parent);
        SnapshotEntry entry{node.object, parent, {}, node.insertions, false};
        for (const Node* lower : node.lower)
            entry.links.push_back(indexes.at(lower));
        entries.push_back(std::move(entry));
    }
    for (const Sdo& object : m_incomplete)
        entries.push_back({object, -1, {}, 1, true});
    return entries;
}

void ObjectStore::clear()
{
    m_index.clear();
    m_nodes.clear();
    m_incomplete.clear();
    m_incompleteCount = 0;
}

ObjectStore::Node* ObjectStore::find(const void* object) const
{
    const std::optional<Identity> identity = identityOf(object);
    if (!identity)
        return nullptr;
    const auto found = m_index.find(identity->text);
    return found == m_index.end() ? nullptr : found->second;
}

bool ObjectStore::isLinked(const Node& upper, const Node& lower)
{
    return std::find(upper.lower.begin(), upper.lower.end(), &lower) != upper.lower.end();
}

// The lowest first.
void ObjectStore::collect(Node* node, std::vector<Node*>& subtree)
{
    for (Node& other : m_nodes)
        if (other.parent == node)
            collect(&other, subtree);
    subtree.push_back(node);
}

} // namespace ral
