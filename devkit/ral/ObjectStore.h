// The data engine's objects, the tree that they form and the links between them. Not synchronised.
//
// Objects come and are named as SDO objects; what is stored is never changed, only replaced, so that whoever
// shares one may read it without a lock.
#ifndef ZARNEK_DEVKIT_RAL_OBJECTSTORE_H
#define ZARNEK_DEVKIT_RAL_OBJECTSTORE_H

#include "ral/identity.h"
#include "ral/ral_inspect.h"

#include <deque>
#include <list>
#include <memory>
#include <string>
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
        Identity identity;
        Sdo object;
        Node* parent;
        std::vector<Node*> lower; // linked below this one, in the order of linking
        unsigned int insertions;
    };

    Node* find(const void* object) const;
    static bool isLinked(const Node& upper, const Node& lower);
    void collect(Node* node, std::vector<Node*>& subtree);

    std::list<Node> m_nodes; // in the order of first insertion
    std::unordered_map<std::string, Node*> m_index;
    std::deque<Sdo> m_incomplete; // the last that came
    unsigned int m_incompleteCount = 0;
};

} // namespace ral

#endif
