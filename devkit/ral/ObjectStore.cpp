#include "ral/ObjectStore.h"

#include "common/guarded.h"
#include "morlan/morlan_inspect.h"

#include <algorithm>
#include <iterator>

namespace ral
{

namespace
{

constexpr std::size_t MOST_INCOMPLETE = 1000; // kept, so that a host that runs for months stays small

constexpr auto BY_NUMBER = [](const auto* left, const auto* right) { return left->number < right->number; };

template <class Nodes, class Node>
void removeFrom(Nodes& nodes, const Node* node)
{
    nodes.erase(std::find(nodes.begin(), nodes.end(), node));
}

template <class Nodes, class Node>
bool contains(const Nodes& nodes, const Node* node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

template <class Nodes, class Node>
void addByNumber(Nodes& nodes, Node* node)
{
    nodes.insert(std::lower_bound(nodes.begin(), nodes.end(), node, BY_NUMBER), node);
}

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
    const auto known = m_nodes.find(identity->text);
    if (known == m_nodes.end()) {
        Node& node = add(std::move(*identity), above);
        replace(node, object);
        changes.push_back({RAL_CHANGE_INSERTED, nullptr, object});
        return true;
    }

    Node& node = *known->second;
    for (const Node* step = above; step != nullptr; step = step->parent)
        if (step == &node)
            return false;
    if (above != nullptr && above != node.parent) {
        addByNumber(above->children, &node);
        removeFrom(childrenOf(node.parent), &node);
        node.parent = above;
    }
    changes.push_back({RAL_CHANGE_UPDATED, node.object, object});
    replace(node, object);
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
        erase(*doomed);
    }
    return true;
}

bool ObjectStore::link(const void* upper, const void* lower)
{
    Node* const above = find(upper);
    Node* const below = find(lower);
    if (above == nullptr || below == nullptr || above == below)
        return false;
    if (isLinked(*above, *below))
        return true;
    above->lower.push_back(below);
    try {
        below->upper.push_back(above);
    } catch (...) {
        above->lower.pop_back();
        throw;
    }
    return true;
}

bool ObjectStore::listAssociated(const void* object, unsigned int type, std::vector<Sdo>& found) const
{
    const Node* const centre = find(object);
    if (object != nullptr && centre == nullptr)
        return false;
    std::vector<const Node*> nodes;
    const auto add = [&nodes, type](const std::vector<Node*>& associated) {
        std::copy_if(associated.begin(), associated.end(), std::back_inserter(nodes),
                     [type](const Node* node) { return node->identity.type == type; });
    };
    add(centre == nullptr ? m_top : centre->children);
    if (centre != nullptr) {
        add(centre->lower);
        add(centre->upper);
    }
    std::sort(nodes.begin(), nodes.end(), BY_NUMBER);
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    for (const Node* node : nodes)
        found.push_back(node->object);
    return true;
}

std::vector<SnapshotEntry> ObjectStore::snapshot() const
{
    std::vector<const Node*> nodes;
    for (const auto& [identity, node] : m_nodes)
        nodes.push_back(node.get());
    std::sort(nodes.begin(), nodes.end(), BY_NUMBER);
    const auto indexOf = [&nodes](const Node* node) {
        return static_cast<int>(std::lower_bound(nodes.begin(), nodes.end(), node, BY_NUMBER) -
                                nodes.begin());
    };

    std::vector<SnapshotEntry> entries;
    for (const Node* node : nodes) {
        const int parent = node->parent == nullptr ? -1 : indexOf(node->parent);
        SnapshotEntry entry{node->object, parent, {}, node->insertions, false};
        std::transform(node->lower.begin(), node->lower.end(), std::back_inserter(entry.links), indexOf);
        entries.push_back(std::move(entry));
    }
    for (const Sdo& object : m_incomplete)
        entries.push_back({object, -1, {}, 1, true});
    return entries;
}

void ObjectStore::clear()
{
    m_byContent.clear();
    m_top.clear();
    m_nodes.clear();
    m_incomplete.clear();
    m_incompleteCount = 0;
}

ObjectStore::Node* ObjectStore::find(const void* object) const
{
    const auto sharing = m_byContent.find(morlan_sdo_content(object));
    if (sharing != m_byContent.end())
        return sharing->second;
    const std::optional<Identity> identity = identityOf(object);
    if (!identity)
        return nullptr;
    const auto found = m_nodes.find(identity->text);
    return found == m_nodes.end() ? nullptr : found->second.get();
}

bool ObjectStore::isLinked(const Node& upper, const Node& lower)
{
    return upper.lower.size() < lower.upper.size() ? contains(upper.lower, &lower)
                                                   : contains(lower.upper, &upper);
}

ObjectStore::Node& ObjectStore::add(Identity identity, Node* parent)
{
    auto added = std::make_unique<Node>();
    Node& node = *added;
    node.identity = std::move(identity);
    node.number = m_inserted;
    node.parent = parent;
    const auto place = m_nodes.emplace(node.identity.text, std::move(added)).first;
    try {
        childrenOf(parent).push_back(&node);
    } catch (...) {
        m_nodes.erase(place);
        throw;
    }
    ++m_inserted;
    return node;
}

void ObjectStore::replace(Node& node, const Sdo& object)
{
    m_byContent.erase(morlan_sdo_content(node.object.get()));
    node.object = object;
    devkit::guarded([&] { m_byContent.emplace(morlan_sdo_content(object.get()), &node); });
}

void ObjectStore::erase(Node& node)
{
    for (Node* lower : node.lower)
        removeFrom(lower->upper, &node);
    for (Node* upper : node.upper)
        removeFrom(upper->lower, &node);
    removeFrom(childrenOf(node.parent), &node);
    m_byContent.erase(morlan_sdo_content(node.object.get()));
    m_nodes.erase(m_nodes.find(node.identity.text));
}

// The lowest first.
void ObjectStore::collect(Node* node, std::vector<Node*>& subtree)
{
    for (Node* child : node->children)
        collect(child, subtree);
    subtree.push_back(node);
}

} // namespace ral
