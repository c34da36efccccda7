// The data engine's objects, the tree that they form and the links between them. Not synchronised.
//
// Objects come and are named as SDO objects; what is stored is never changed, only replaced, so that whoever
// shares one may read it without a lock.
#ifndef ZARNEK_DEVKIT_RAL_OBJECTSTORE_H
#define ZARNEK_DEVKIT_RAL_OBJECTSTORE_H

#include "ral/identity.h"
#include "ral/ral_inspect.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ral
{

// A stored object as ral_inspect.h shows it.
struct SnapshotEntry {
    std::shared_ptr<void> object;
    int parent;             // index; -1 at the top
    std::vector<int> links; // indexes of the lower objects
    unsigned int insertions;
    bool incomplete;
};

class ObjectStore
{
  public:
    using Sdo = std::shared_ptr<void>; // frees the SDO object with its last owner

    struct Change {
        ral_change kind;
        Sdo before; // null where there is none
        Sdo after;
    };

    // The operations below return false, and change nothing, when an object that they are to find is unknown,
    // and throw, having changed nothing, without memory; `changes` gets what happened, in order.

    // Adds the object, or replaces the properties of the one with its identity. With a parent it moves, or
    // comes, under the parent; without, a new one is at the top and a known one stays where it is. Also false
    // for a parent that is the object itself or stands below it. An object without an identity is counted,
    // and kept apart until a thousand more have come.
    bool insert(const Sdo& object, const void* parent, std::vector<Change>& changes);
    // Removes the object with all below it, lowest first, and their links.
    bool remove(const void* object, std::vector<Change>& changes);
    // Linking once more what is linked is no change. False also for an object and itself.
    bool link(const void* upper, const void* lower);
    // The objects of `type` that are children of `object` or linked with it, or those at the top for null; in
    // the order of first insertion.
    bool listAssociated(const void* object, unsigned int type, std::vector<Sdo>& found) const;

    unsigned int incomplete() const { return m_incompleteCount; } // came so far
    std::vector<SnapshotEntry> snapshot() const;
    void clear();

  private:
    struct Node {
        Identity identity{};
        std::uint64_t number = 0; // in the order of first insertion
        Sdo object;
        Node* parent = nullptr;
        std::vector<Node*> children; // by number
        std::vector<Node*> lower;    // linked below this one, in the order of linking
        std::vector<Node*> upper;    // linked above it
        unsigned int insertions = 1;
    };

    Node* find(const void* object) const;
    std::vector<Node*>& childrenOf(Node* parent) { return parent == nullptr ? m_top : parent->children; }
    static bool isLinked(const Node& upper, const Node& lower);
    Node& add(Identity identity, Node* parent);
    void replace(Node& node, const Sdo& object);
    void erase(Node& node);
    static void collect(Node* node, std::vector<Node*>& subtree);

    std::unordered_map<std::string_view, std::unique_ptr<Node>> m_nodes; // by the texts of their identities
    // By what they share with their clones, so that objects on their way back are known at a glance. A node
    // that got no room here is found by its identity.
    std::unordered_map<const void*, Node*> m_byContent;
    std::vector<Node*> m_top; // without a parent, by number
    std::uint64_t m_inserted = 0;
    std::deque<Sdo> m_incomplete; // the last that came
    unsigned int m_incompleteCount = 0;
};

} // namespace ral

#endif
