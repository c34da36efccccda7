// All that the data engine holds at one moment, as plain values: what the printers walk.
#ifndef ZARNEK_DEVKIT_ZARNEKCTL_SYSTEM_H
#define ZARNEK_DEVKIT_ZARNEKCTL_SYSTEM_H

#include "zarnekctl/host/Object.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zarnekctl
{

struct Node {
    Object object;
    int parent = -1;                // index of the object it was inserted under, -1 at the top
    std::vector<std::size_t> links; // indexes of the objects that this one is linked with as the upper one
    unsigned int insertions = 1;
    bool incomplete = false; // came without an identity
};

struct System {
    std::string source;                // where it came from, in words
    unsigned int controllersFound = 0; // what the plug-in reported
    std::string refusedCalls;          // of the vendor library, in words; empty when none
    bool complete = true;              // nothing that the vendor library has is known to be missing
    std::vector<Node> nodes;           // in the order of first insertion, incomplete objects last

    // Indexes of the nodes of this kind below `parent` (-1: at the top), in order; incomplete ones left out.
    std::vector<std::size_t> below(int parent, ObjectKind kind) const;
    std::size_t count(ObjectKind kind) const; // incomplete objects left out
};

// What the data engine in this process holds now; all but the nodes is left to the caller.
System readSystem();

} // namespace zarnekctl

#endif
